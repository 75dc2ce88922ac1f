// The accessible objects of windows by the rules of their interface, from inside the process, where they can
// be counted: arguments, threads, lives, enumeration, names.
#include <oleacc.h>

#include <thread>

#include "tests/windows/forms/FormHost.h"
#include "windows/access/AccessibleObject.h"
#include "windows/com/Strings.h"

namespace dlv::test {
namespace {

class ComScope {
public:
    ComScope() { OleInitialize(nullptr); }
    ~ComScope() { OleUninitialize(); }
};

VARIANT Id(LONG id) {
    VARIANT value;
    value.vt = VT_I4;
    value.lVal = id;
    return value;
}

ComPtr<IAccessible> ObjectOf(HWND window) {
    ComPtr<IAccessible> object;
    EXPECT_EQ(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                         reinterpret_cast<void**>(object.GetAddressOf())),
              S_OK);
    return object;
}

ComPtr<IAccessible> ChildOf(IAccessible* object, LONG id) {
    ComPtr<IDispatch> child;
    ComPtr<IAccessible> found;
    if (SUCCEEDED(object->get_accChild(Id(id), &child))) child.As(&found);
    return found;
}

std::string NameOf(IAccessible* object, LONG id = CHILDID_SELF) {
    Bstr name;
    object->get_accName(Id(id), name.Address());
    return Narrow(name.Get());
}

/// Every call of the interface with good arguments.
std::vector<HRESULT> AllCalls(IAccessible* object, IEnumVARIANT* children) {
    ComPtr<IDispatch> parent, child;
    ComPtr<ITypeInfo> info;
    ComPtr<IEnumVARIANT> copy;
    Variant values[8];
    Bstr texts[6];
    LONG number = 0, place[4] = {};
    ULONG fetched = 0;
    UINT count = 0;
    DISPID id = 0;
    DISPPARAMS none{};
    wchar_t name[] = L"accName";
    LPOLESTR names[] = {name};
    return {object->GetTypeInfoCount(&count),
            object->GetTypeInfo(0, 0, &info),
            object->GetIDsOfNames(IID_NULL, names, 1, 0, &id),
            object->Invoke(DISPID_ACC_CHILDCOUNT, IID_NULL, 0, DISPATCH_PROPERTYGET, &none,
                           values[0].Address(), nullptr, nullptr),
            object->get_accParent(&parent),
            object->get_accChildCount(&number),
            object->get_accChild(Id(CHILDID_SELF), &child),
            object->get_accName(Id(CHILDID_SELF), texts[0].Address()),
            object->get_accValue(Id(CHILDID_SELF), texts[1].Address()),
            object->get_accDescription(Id(CHILDID_SELF), texts[2].Address()),
            object->get_accRole(Id(CHILDID_SELF), values[1].Address()),
            object->get_accState(Id(CHILDID_SELF), values[2].Address()),
            object->get_accHelp(Id(CHILDID_SELF), texts[3].Address()),
            object->get_accKeyboardShortcut(Id(CHILDID_SELF), texts[4].Address()),
            object->get_accFocus(values[3].Address()),
            object->get_accSelection(values[4].Address()),
            object->get_accDefaultAction(Id(CHILDID_SELF), texts[5].Address()),
            object->accLocation(&place[0], &place[1], &place[2], &place[3], Id(CHILDID_SELF)),
            object->accNavigate(NAVDIR_FIRSTCHILD, Id(CHILDID_SELF), values[5].Address()),
            object->accHitTest(0, 0, values[6].Address()),
            object->accSelect(SELFLAG_TAKEFOCUS, Id(CHILDID_SELF)),
            object->accDoDefaultAction(Id(CHILDID_SELF)),
            children->Reset(),
            children->Skip(0),
            children->Next(1, values[7].Address(), &fetched),
            children->Clone(&copy)};
}

class AccessibleTest : public testing::Test {
protected:
    AccessibleTest() { Fill(5); }
    void Fill(int units) {
        shown.Change([&] { FillGrid(shown.form.grid, units); });
        shown.Paint();
    }

    ComScope com;
    ShownForm shown;
    OutlineGrid& grid = shown.form.grid;
};

TEST_F(AccessibleTest, CallsAreGoodOnlyOnTheirThreadAndWhileTheWindowIsThere) {
    const ComPtr<IAccessible> outline = ObjectOf(shown.Of(grid));
    const ComPtr<IAccessible> row = ChildOf(outline.Get(), 3);
    const ComPtr<IAccessible> cell = ChildOf(row.Get(), 2);
    const ComPtr<IAccessible> label = ObjectOf(shown.Of(shown.form.label));
    const ComPtr<IAccessible> bar = ObjectOf(shown.Of(shown.form.bar));
    const ComPtr<IAccessible> tool = ChildOf(bar.Get(), 1);
    for (const auto& object : {outline, row, cell, label, bar, tool}) {
        ASSERT_NE(object, nullptr);
        ComPtr<IEnumVARIANT> children;
        ASSERT_EQ(object.As(&children), S_OK);
        int wrong = 0, failed = 0;
        for (const HRESULT result : AllCalls(object.Get(), children.Get()))
            if (FAILED(result) && result != DISP_E_MEMBERNOTFOUND && result != E_INVALIDARG) ++failed;
        EXPECT_EQ(failed, 0) << NameOf(object.Get());
        std::thread other([&] {
            for (const HRESULT result : AllCalls(object.Get(), children.Get()))
                if (result != RPC_E_WRONG_THREAD) ++wrong;
        });
        other.join();
        EXPECT_EQ(wrong, 0);
    }
    const long made = AccessibleObject::Made();
    shown.windows.Destroy();
    for (const auto& object : {outline, row, cell, label, bar, tool}) {
        ComPtr<IEnumVARIANT> children;
        ASSERT_EQ(object.As(&children), S_OK);
        for (const HRESULT result : AllCalls(object.Get(), children.Get()))
            EXPECT_EQ(result, CO_E_OBJNOTCONNECTED);
    }
    EXPECT_EQ(AccessibleObject::Made(), made);
}

TEST_F(AccessibleTest, WrongArgumentsAreRefused) {
    const ComPtr<IAccessible> outline = ObjectOf(shown.Of(grid));
    Bstr text;
    Variant value;
    LONG number = 0;
    EXPECT_EQ(outline->get_accName(Id(0), nullptr), E_POINTER);
    EXPECT_EQ(outline->get_accChildCount(nullptr), E_POINTER);
    EXPECT_EQ(outline->accLocation(&number, &number, &number, nullptr, Id(0)), E_POINTER);
    for (const LONG id : {9L, -1000L, LONG_MIN, LONG_MAX})
        EXPECT_EQ(outline->get_accName(Id(id), text.Address()), E_INVALIDARG) << id;
    VARIANT name;
    name.vt = VT_EMPTY;
    EXPECT_EQ(outline->get_accName(name, text.Address()), E_INVALIDARG);
    EXPECT_EQ(outline->accNavigate(NAVDIR_MAX, Id(0), value.Address()), E_INVALIDARG);
    for (const LONG flags : {0, SELFLAG_ADDSELECTION, SELFLAG_TAKEFOCUS | SELFLAG_EXTENDSELECTION})
        EXPECT_EQ(outline->accSelect(flags, Id(4)), E_INVALIDARG) << flags;
    EXPECT_EQ(outline->accSelect(SELFLAG_TAKEFOCUS, Id(1)), DISP_E_MEMBERNOTFOUND) << "a header row";
    EXPECT_EQ(NameOf(outline.Get(), 3), "Root") << "a child may be named by its id";
}

TEST_F(AccessibleTest, RowsAreMadeOnlyWhenAskedForAndGoWhenLetGo) {
    Fill(100'000);
    const long before = AccessibleObject::Alive();
    const long made = AccessibleObject::Made();
    {
        const ComPtr<IAccessible> outline = ObjectOf(shown.Of(grid));
        LONG count = 0;
        EXPECT_EQ(outline->get_accChildCount(&count), S_OK);
        EXPECT_EQ(count, 100'003);
        ComPtr<IEnumVARIANT> rows, copy;
        ASSERT_EQ(outline.As(&rows), S_OK);
        ULONG fetched = 0;
        VARIANT three[3];
        EXPECT_EQ(rows->Skip(100'001), S_OK);
        EXPECT_EQ(rows->Clone(&copy), S_OK);
        EXPECT_EQ(rows->Next(3, three, &fetched), S_FALSE);
        EXPECT_EQ(fetched, 2u);
        for (ULONG i = 0; i < fetched; ++i) VariantClear(&three[i]);
        EXPECT_EQ(copy->Skip(3), S_FALSE);
        EXPECT_EQ(copy->Reset(), S_OK);
        EXPECT_EQ(copy->Next(1, three, nullptr), S_OK);
        VariantClear(three);
        // All selected rows, of which one is looked at.
        shown.Change([&] { grid.SelectAll(); });
        Variant selected;
        EXPECT_EQ(outline->get_accSelection(selected.Address()), S_OK);
        ASSERT_EQ(selected->vt, VT_UNKNOWN);
        ComPtr<IEnumVARIANT> list;
        selected->punkVal->QueryInterface(IID_PPV_ARGS(&list));
        EXPECT_EQ(list->Skip(99'999), S_OK);
        EXPECT_EQ(list->Next(1, three, nullptr), S_OK);
        VariantClear(three);
        EXPECT_LE(AccessibleObject::Made() - made, 8);
    }
    EXPECT_EQ(AccessibleObject::Alive(), before);
}

TEST_F(AccessibleTest, ControlsWithoutATextAreNamedByTheLabelBeforeThem) {
    shown.Change([&] { shown.form.label.SetCaption("Things"); });
    EXPECT_EQ(shown.TextOf(shown.form.list), "Things");
    EXPECT_EQ(NameOf(ObjectOf(shown.Of(shown.form.bar)).Get(), 1), "Save");
    const ComPtr<IAccessible> bar = ObjectOf(shown.Of(shown.form.bar));
    EXPECT_EQ(bar->accDoDefaultAction(Id(1)), S_OK);
    EXPECT_TRUE(shown.done.empty()) << "not while the reader waits";
    shown.Paint();
    EXPECT_EQ(shown.done, std::vector<std::string>{"tool without mouse SaveGrid"});
    SetFocus(shown.Of(shown.form.bar));
    Variant focused;
    EXPECT_EQ(bar->get_accFocus(focused.Address()), S_OK);
    ASSERT_EQ(focused->vt, VT_DISPATCH) << "the button that the keyboard is on";
    ComPtr<IAccessible> button;
    focused->pdispVal->QueryInterface(IID_PPV_ARGS(&button));
    EXPECT_EQ(NameOf(button.Get(), CHILDID_SELF), "Save");
}

TEST_F(AccessibleTest, AScriptReadsByNames) {
    const ComPtr<IAccessible> outline = ObjectOf(shown.Of(grid));
    wchar_t name[] = L"accRole";
    LPOLESTR names[] = {name};
    DISPID id = 0;
    ASSERT_EQ(outline->GetIDsOfNames(IID_NULL, names, 1, 0, &id), S_OK);
    VARIANT child = Id(4);
    DISPPARAMS arguments{&child, nullptr, 1, 0};
    Variant role;
    EXPECT_EQ(
        outline->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &arguments, role.Address(), nullptr, nullptr),
        S_OK);
    EXPECT_EQ(role->lVal, ROLE_SYSTEM_OUTLINEITEM);
}

}  // namespace
}  // namespace dlv::test
