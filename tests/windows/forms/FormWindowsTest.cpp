#include <commctrl.h>

#include "tests/windows/forms/FormHost.h"
#include "windows/com/Strings.h"

namespace dlv::test {
namespace {

class FormWindowsTest : public testing::Test {
protected:
    void SetItems(int count) {
        std::vector<ListView::Item> items;
        for (int i = 0; i < count; ++i)
            items.push_back({"_" + std::to_string(i), "Item " + std::to_string(i)});
        shown.Change([&] { shown.form.list.SetItems(std::move(items)); });
    }
    std::string Selected() const {
        std::string text;
        for (const ListView::Item& item : shown.form.list.Items()) text += item.selected ? '1' : '0';
        return text;
    }
    std::string SelectedInWindow() const {
        std::string text;
        for (std::size_t i = 0; i < shown.form.list.Items().size(); ++i)
            text += SendMessageW(list, LVM_GETITEMSTATE, i, LVIS_SELECTED) ? '1' : '0';
        return text;
    }

    ShownForm shown;
    SampleForm& form = shown.form;
    HWND list = shown.Of(form.list);
};

TEST_F(FormWindowsTest, TextsPlacesAndStatesFollowTheState) {
    shown.Change([&] {
        form.label.SetCaption("Caf\xC3\xA9 & more");
        form.button.SetCaption("Save & go");
        form.button.SetEnabled(false);
        form.label.SetPlace({Pixels(50), Pixels(12), Pixels(80), Pixels(17)});
        form.option[1].SetVisible(false);
        form.option.Select(1);
        form.tabs.SelectTab(2);
    });
    EXPECT_EQ(shown.TextOf(form.label), "Caf\xC3\xA9 & more");
    EXPECT_EQ(shown.TextOf(form.button), "Save && go");
    EXPECT_FALSE(IsWindowEnabled(shown.Of(form.button)));
    const RECT place = shown.PlaceOf(form.label);
    EXPECT_EQ(place.left, 50);
    EXPECT_EQ(place.right, 130);
    EXPECT_FALSE(IsWindowVisible(shown.Of(form.option[1])));
    EXPECT_EQ(SendMessageW(shown.Of(form.option[1]), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessageW(shown.Of(form.option[0]), BM_GETCHECK, 0, 0), BST_UNCHECKED);
    EXPECT_EQ(SendMessageW(shown.Of(form.tabs), TCM_GETCURSEL, 0, 0), 1);
    EXPECT_TRUE(shown.done.empty()) << "state that was set came back as a person's doing";
}

TEST_F(FormWindowsTest, WhatAPersonDoesReachesTheListener) {
    SendMessageW(shown.Of(form.button), BM_CLICK, 0, 0);
    Click(shown.Of(form.option[1]), {5, 5});
    EXPECT_EQ(form.option.Selected(), 1);
    SendMessageW(shown.Of(form.tabs), TCM_SETCURFOCUS, 1, 0);
    EXPECT_EQ(form.tabs.SelectedTab(), 2);
    Click(shown.Of(form.bar), {10, 10});
    EXPECT_EQ(shown.done, (std::vector<std::string>{"click button", "option 1", "tab 2", "tool SaveGrid"}));
}

TEST_F(FormWindowsTest, OnlyLabelsThatAnswerClicksReportThem) {
    Click(shown.Of(form.label), {5, 5});
    EXPECT_TRUE(shown.done.empty());
    shown.Change([&] { form.label.SetClickable(true); });
    Click(shown.Of(form.label), {5, 5});
    EXPECT_EQ(shown.done, (std::vector<std::string>{"click label"}));
}

TEST_F(FormWindowsTest, TipsTellWhatCannotBeRead) {
    const HWND label = shown.Of(form.label);
    const auto labelTip = [&] {
        NMTTDISPINFOW asked{};
        asked.hdr = {shown.windows.TipWindow(), reinterpret_cast<UINT_PTR>(label),
                     static_cast<UINT>(TTN_GETDISPINFOW)};
        SendMessageW(label, WM_NOTIFY, asked.hdr.idFrom, reinterpret_cast<LPARAM>(&asked));
        return Narrow(std::wstring_view(asked.lpszText));
    };
    EXPECT_EQ(labelTip(), "");
    const std::string longText(100, 'm');
    shown.Change([&] { form.label.SetCaption(longText); });
    EXPECT_EQ(labelTip(), longText) << "what is cut";
    shown.Change([&] { form.label.SetToolTip("more"); });
    EXPECT_EQ(labelTip(), "more") << "its own comes first";

    const HWND bar = shown.Of(form.bar);
    TBBUTTON button{};
    SendMessageW(bar, TB_GETBUTTON, 0, reinterpret_cast<LPARAM>(&button));
    wchar_t text[20] = {};
    NMTBGETINFOTIPW asked{};
    asked.hdr = {bar, 0, static_cast<UINT>(TBN_GETINFOTIPW)};
    asked.iItem = button.idCommand;
    asked.pszText = text;
    asked.cchTextMax = 20;
    SendMessageW(GetParent(bar), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&asked));
    EXPECT_EQ(Narrow(std::wstring_view(text)), "Save");
}

TEST_F(FormWindowsTest, TheListShowsTheStateAndItsSelection) {
    SetItems(20);
    EXPECT_EQ(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), 20);
    wchar_t text[40];
    LVITEMW item{};
    item.pszText = text;
    item.cchTextMax = 40;
    SendMessageW(list, LVM_GETITEMTEXTW, 7, reinterpret_cast<LPARAM>(&item));
    EXPECT_STREQ(item.pszText, L"Item 7");
    shown.Change([&] {
        form.list.SetSelected(3, true);
        form.list.SetSelected(7, true);
    });
    EXPECT_EQ(SelectedInWindow(), "00010001000000000000");
    shown.Change([&] { form.list.ClearSelection(); });
    EXPECT_EQ(SelectedInWindow(), std::string(20, '0'));
}

TEST_F(FormWindowsTest, TheSelectionOfAPersonReachesTheState) {
    SetItems(6);
    SetFocus(list);
    RECT row{};
    row.left = LVIR_BOUNDS;
    SendMessageW(list, LVM_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&row));
    PostMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(20, Middle(row).y));
    SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, Middle(row).y));
    shown.Paint();
    EXPECT_EQ(Selected(), "001000");
    LVITEMW all{};
    all.state = all.stateMask = LVIS_SELECTED;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&all));
    EXPECT_EQ(Selected(), "111111");
    EXPECT_EQ(SelectedInWindow(), "111111");
}

TEST_F(FormWindowsTest, NewItemsTakeTheirSelectionFromTheState) {
    SetItems(6);
    shown.Change([&] { form.list.SetSelected(1, true); });
    shown.Change([&] { form.list.SetItems({{"_a", "a", false}, {"_b", "b", false}, {"_c", "c", true}}); });
    EXPECT_EQ(SelectedInWindow(), "001");
    EXPECT_EQ(Selected(), "001");
}

TEST_F(FormWindowsTest, TheListIsAsTallAsWholeRows) {
    SetItems(40);
    RECT row{};
    row.left = LVIR_BOUNDS;
    SendMessageW(list, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
    RECT client{};
    GetClientRect(list, &client);
    EXPECT_EQ(client.bottom % (row.bottom - row.top), 0);
}

TEST_F(FormWindowsTest, TabGoesThroughTheFormInItsOrder) {
    const Control* const order[] = {&form.list, &form.option[0], &form.button,
                                    &form.tabs, &form.grid,      &form.bar};
    SetFocus(shown.Of(form.list));
    for (const Control* control : order) {
        ASSERT_NE(shown.windows.Focused(), nullptr);
        EXPECT_EQ(shown.windows.Focused()->Shown().Name(), control->Name());
        const bool last = control == &form.bar;
        EXPECT_EQ(shown.windows.MoveFocus(Direction::Forward), !last);
    }
    EXPECT_TRUE(shown.windows.MoveFocus(Direction::Backward));
    EXPECT_EQ(GetFocus(), shown.Of(form.grid));
}

TEST_F(FormWindowsTest, ArrowsChooseAmongOptions) {
    SetFocus(shown.Of(form.option[0]));
    EXPECT_TRUE(shown.windows.MoveInGroup(VK_DOWN));
    EXPECT_EQ(form.option.Selected(), 1);
    EXPECT_EQ(GetFocus(), shown.Of(form.option[1]));
    SetFocus(list);
    EXPECT_FALSE(shown.windows.MoveInGroup(VK_DOWN));
}

TEST_F(FormWindowsTest, AControlThatIsDisabledGivesTheFocusAway) {
    SetFocus(shown.Of(form.button));
    shown.Change([&] { form.button.SetEnabled(false); });
    EXPECT_EQ(GetFocus(), shown.Of(form.tabs));
}

TEST_F(FormWindowsTest, AFrameThatIsDisabledGetsTheFocusBack) {
    SetFocus(shown.Of(form.button));
    shown.Change([&] { form.frame.SetEnabled(false); });
    EXPECT_EQ(GetFocus(), shown.outer.Handle());
    shown.Change([&] { form.frame.SetEnabled(true); });
    EXPECT_EQ(GetFocus(), shown.Of(form.button));
}

TEST_F(FormWindowsTest, AFormThatDidNotChangeCausesNoPainting) {
    SetFocus(list);
    shown.Paint();
    for (const Control* control : form.Controls())
        ASSERT_FALSE(GetUpdateRect(shown.Of(*control), nullptr, FALSE)) << control->Name();
    shown.Change([&] {
        form.label.MarkChanged();
        form.button.MarkChanged();
        form.list.MarkChanged();
        form.tabs.MarkChanged();
        form.frame.MarkChanged();
        form.bar.MarkChanged();
    });
    for (const Control* control : form.Controls()) {
        if (control == &form.label) continue;  // It may have changed its colour, which no window knows.
        EXPECT_FALSE(GetUpdateRect(shown.Of(*control), nullptr, FALSE)) << control->Name();
    }
}

TEST_F(FormWindowsTest, WindowsThatAreGoneAreLeftAlone) {
    DestroyWindow(shown.outer.Handle());
    shown.Change([&] {
        form.label.SetCaption("nobody sees this");
        form.list.SetItems({{"_a", "a", true}});
        FillGrid(form.grid, 3);
        form.frame.SetEnabled(false);
    });
    EXPECT_EQ(shown.windows.Find(form.label)->Handle(), nullptr);
    EXPECT_FALSE(shown.windows.MoveFocus(Direction::Forward));
}

class FormScale : public testing::TestWithParam<int> {};

TEST_P(FormScale, PlacesFollowTheResolution) {
    const int dpi = GetParam();
    ShownForm shown(dpi);
    const RECT place = shown.PlaceOf(shown.form.button);
    EXPECT_EQ(place.left, MulDiv(330, dpi, 96));
    EXPECT_EQ(place.right, MulDiv(410, dpi, 96));
    const auto font = reinterpret_cast<HFONT>(SendMessageW(shown.Of(shown.form.button), WM_GETFONT, 0, 0));
    LOGFONTW description{};
    GetObjectW(font, sizeof description, &description);
    EXPECT_EQ(-description.lfHeight, MulDiv(9, dpi, 72));
    // The same windows, moved to a screen of the design's resolution.
    shown.host.Window([&] { shown.windows.SetLook(DefaultFont(), Scale(96)); });
    EXPECT_EQ(shown.PlaceOf(shown.form.button).left, 330);
}

INSTANTIATE_TEST_SUITE_P(Resolutions, FormScale, testing::Values(96, 120, 144, 192));

}  // namespace
}  // namespace dlv::test
