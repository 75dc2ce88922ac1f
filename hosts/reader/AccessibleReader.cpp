#include "hosts/reader/AccessibleReader.h"

#include <cstdlib>

namespace dlv::reader {

namespace {

VARIANT Id(LONG id) {
    VARIANT value;
    value.vt = VT_I4;
    value.lVal = id;
    return value;
}

template <class Call>
void AskText(std::string& text, HRESULT& first, Call call) {
    BSTR told = nullptr;
    const HRESULT result = call(&told);
    if (FAILED(result) && SUCCEEDED(first) && result != DISP_E_MEMBERNOTFOUND) first = result;
    if (told != nullptr) text = Utf8(told);
    SysFreeString(told);
}

template <class Call>
void AskNumber(LONG& number, HRESULT& first, Call call) {
    VARIANT told;
    VariantInit(&told);
    const HRESULT result = call(&told);
    if (FAILED(result) && SUCCEEDED(first)) first = result;
    if (told.vt == VT_I4) number = told.lVal;
    VariantClear(&told);
}

BOOL CALLBACK Collect(HWND window, LPARAM found) {
    if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
    return TRUE;
}

std::vector<HWND> ShownWindows(HWND outer) {
    std::vector<HWND> windows;
    EnumChildWindows(outer, Collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

}  // namespace

std::string Utf8(const wchar_t* text) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    if (size <= 1) return {};
    std::string utf8(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
    utf8.pop_back();
    return utf8;
}

Told Ask(IAccessible* object, LONG child) {
    Told told;
    const VARIANT self = Id(child);
    AskText(told.name, told.result, [&](BSTR* text) { return object->get_accName(self, text); });
    AskText(told.value, told.result, [&](BSTR* text) { return object->get_accValue(self, text); });
    AskText(told.description, told.result,
            [&](BSTR* text) { return object->get_accDescription(self, text); });
    AskText(told.action, told.result, [&](BSTR* text) { return object->get_accDefaultAction(self, text); });
    AskNumber(told.role, told.result, [&](VARIANT* number) { return object->get_accRole(self, number); });
    AskNumber(told.state, told.result, [&](VARIANT* number) { return object->get_accState(self, number); });
    return told;
}

std::vector<ToldWindow> WindowsIn(HWND outer) {
    std::vector<ToldWindow> windows;
    for (const HWND window : ShownWindows(outer)) {
        ToldWindow entry;
        entry.handle = window;
        entry.className = Utf8(ClassOf(window).c_str());
        ComPtr<IAccessible> object;
        entry.told.result =
            AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                       reinterpret_cast<void**>(object.GetAddressOf()));
        if (object) entry.told = Ask(object.Get());
        windows.push_back(std::move(entry));
    }
    return windows;
}

HWND WindowOf(HWND outer, const wchar_t* className, int which) {
    for (const HWND window : ShownWindows(outer))
        if (ClassOf(window) == className && which-- == 0) return window;
    return nullptr;
}

ComPtr<IAccessible> AsAccessible(IDispatch* object) {
    ComPtr<IAccessible> found;
    if (object != nullptr) object->QueryInterface(IID_PPV_ARGS(&found));
    return found;
}

GridReader::GridReader(HWND grid) {
    AccessibleObjectFromWindow(grid, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                               reinterpret_cast<void**>(grid_.GetAddressOf()));
}

bool GridReader::IsOutline() { return grid_ && Ask(grid_.Get()).role == ROLE_SYSTEM_OUTLINE; }

std::string GridReader::Name() { return grid_ ? Ask(grid_.Get()).name : std::string(); }

LONG GridReader::RowCount() {
    LONG count = 0;
    if (grid_) grid_->get_accChildCount(&count);
    return count;
}

ComPtr<IAccessible> GridReader::Child(IAccessible* parent, LONG id) {
    ComPtr<IDispatch> object;
    if (parent != nullptr) parent->get_accChild(Id(id), &object);
    if (object) ++fetched_;
    return AsAccessible(object.Get());
}

// As screen readers do it: all children of one object in one call.
std::vector<ComPtr<IAccessible>> GridReader::Children(IAccessible* parent) {
    std::vector<ComPtr<IAccessible>> children;
    LONG count = 0;
    if (parent == nullptr || FAILED(parent->get_accChildCount(&count)) || count <= 0) return children;
    std::vector<VARIANT> found(static_cast<std::size_t>(count));
    LONG got = 0;
    AccessibleChildren(parent, 0, count, found.data(), &got);
    for (LONG i = 0; i < got; ++i) {
        VARIANT& child = found[static_cast<std::size_t>(i)];
        if (child.vt == VT_DISPATCH) children.push_back(AsAccessible(child.pdispVal));
        VariantClear(&child);
    }
    fetched_ += got;
    return children;
}

LONG GridReader::HeaderRows() {
    LONG rows = 0;
    const LONG count = RowCount();
    while (rows < count) {
        const ComPtr<IAccessible> row = Child(grid_.Get(), rows + 1);
        if (!row || Ask(row.Get()).role != ROLE_SYSTEM_ROW) break;
        ++rows;
    }
    return rows;
}

std::vector<std::string> GridReader::Headings(LONG header) {
    std::vector<std::string> texts;
    const ComPtr<IAccessible> row = Child(grid_.Get(), header);
    for (const auto& cell : Children(row.Get())) texts.push_back(Ask(cell.Get()).name);
    return texts;
}

ToldRow GridReader::Row(LONG id) {
    ToldRow row;
    const ComPtr<IAccessible> object = Child(grid_.Get(), id);
    if (!object) return row;
    const Told told = Ask(object.Get());
    row.name = told.name;
    row.level = std::atoi(told.value.c_str());
    row.position = told.description;
    row.state = told.state;
    if ((told.state & STATE_SYSTEM_EXPANDED) != 0) row.node = ToldRow::Node::Open;
    if ((told.state & STATE_SYSTEM_COLLAPSED) != 0) row.node = ToldRow::Node::Closed;
    for (const auto& cell : Children(object.Get())) {
        ToldCell one;
        HRESULT failed = S_OK;
        const VARIANT self = Id(CHILDID_SELF);
        AskText(one.heading, failed, [&](BSTR* text) { return cell->get_accName(self, text); });
        AskText(one.text, failed, [&](BSTR* text) { return cell->get_accValue(self, text); });
        row.cells.push_back(std::move(one));
    }
    return row;
}

std::vector<ToldRow> GridReader::Rows() {
    std::vector<ToldRow> rows;
    const LONG count = RowCount();
    for (LONG id = HeaderRows() + 1; id <= count; ++id) rows.push_back(Row(id));
    return rows;
}

std::string StateWords(LONG state) {
    const struct {
        LONG bit;
        const char* word;
    } words[] = {{STATE_SYSTEM_EXPANDED, "expanded"},       {STATE_SYSTEM_COLLAPSED, "collapsed"},
                 {STATE_SYSTEM_SELECTED, "selected"},       {STATE_SYSTEM_FOCUSED, "focused"},
                 {STATE_SYSTEM_UNAVAILABLE, "unavailable"}, {STATE_SYSTEM_OFFSCREEN, "offscreen"}};
    std::string text;
    for (const auto& word : words)
        if ((state & word.bit) != 0) text += (text.empty() ? "" : " ") + std::string(word.word);
    return text;
}

std::string RoleWord(LONG role) {
    const struct {
        LONG role;
        const char* word;
    } words[] = {{ROLE_SYSTEM_OUTLINE, "outline"},
                 {ROLE_SYSTEM_OUTLINEITEM, "item"},
                 {ROLE_SYSTEM_ROW, "header"},
                 {ROLE_SYSTEM_CELL, "cell"},
                 {ROLE_SYSTEM_COLUMNHEADER, "heading"},
                 {ROLE_SYSTEM_STATICTEXT, "text"},
                 {ROLE_SYSTEM_ALERT, "alert"},
                 {ROLE_SYSTEM_LINK, "link"},
                 {ROLE_SYSTEM_TOOLBAR, "toolbar"},
                 {ROLE_SYSTEM_PUSHBUTTON, "button"},
                 {ROLE_SYSTEM_BUTTONMENU, "menu button"},
                 {ROLE_SYSTEM_CLIENT, "client"}};
    for (const auto& word : words)
        if (word.role == role) return word.word;
    return std::to_string(role);
}

std::string Line(const ToldRow& row) {
    std::string line =
        std::string(static_cast<std::size_t>(row.level) * 2, ' ') + row.name + " (" + row.position + ")";
    const std::string states = StateWords(row.state);
    if (!states.empty()) line += " " + states;
    for (const ToldCell& cell : row.cells)
        line += "; " + cell.heading + (cell.heading.empty() ? "" : " = ") + cell.text;
    return line;
}

}  // namespace dlv::reader
