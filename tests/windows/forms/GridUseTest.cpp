// A grid in the hands of a person: typing, copying, the mouse on cells and on the edges of columns, the tip,
// the menu.
#include <commctrl.h>

#include "tests/windows/forms/FormHost.h"
#include "windows/com/Strings.h"

namespace dlv::test {
namespace {

/// Keys that count as held down while it lives.
class KeysDown {
public:
    explicit KeysDown(std::vector<int> keys) : keys_(std::move(keys)) { Set(0x80); }
    ~KeysDown() { Set(0); }
    KeysDown(const KeysDown&) = delete;
    KeysDown& operator=(const KeysDown&) = delete;

private:
    void Set(BYTE state) const {
        BYTE all[256];
        GetKeyboardState(all);
        for (const int key : keys_) all[key] = state;
        SetKeyboardState(all);
    }
    std::vector<int> keys_;
};

std::string ClipboardText() {
    if (!OpenClipboard(nullptr)) return "not to be opened";
    const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
    const auto* text = memory == nullptr ? nullptr : static_cast<const wchar_t*>(GlobalLock(memory));
    std::string found = text == nullptr ? "nothing" : Narrow(std::wstring_view(text));
    if (text != nullptr) GlobalUnlock(memory);
    CloseClipboard();
    return found;
}

class GridUseTest : public testing::Test {
protected:
    GridUseTest() {
        shown.Change([&] {
            FillGrid(grid, 5);
            const char* const names[] = {"Alba", "Birne", "Boskop", "Citra", "Bo"};
            for (int i = 0; i < 5; ++i) grid.SetText(3 + i, 0, names[i]);
        });
        SetFocus(window);
        shown.Paint();
    }

    GridLayout Layout() const { return shown.Layout(); }
    POINT CellMiddle(int row, int column) const { return shown.CellMiddle(row, column); }
    void Mouse(UINT message, POINT point, WPARAM keys = 0) const {
        SendMessageW(window, message, keys, MAKELPARAM(point.x, point.y));
    }
    void Type(std::wstring_view text) const {
        for (const wchar_t unit : text) SendMessageW(window, WM_CHAR, unit, 1);
    }
    /// The tip that is shown; null while there is none.
    HWND Tip() const {
        HWND tip = nullptr;
        do tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr);
        while (tip != nullptr &&
               (!IsWindowVisible(tip) || GetWindow(tip, GW_OWNER) != GetAncestor(window, GA_ROOT)));
        return tip;
    }
    std::string TipText() const {
        if (Tip() == nullptr) return {};
        wchar_t text[600] = {};
        TTTOOLINFOW tool{};
        tool.cbSize = sizeof tool;
        tool.hwnd = window;
        tool.uId = 1;
        tool.lpszText = text;
        SendMessageW(Tip(), TTM_GETTEXTW, 600, reinterpret_cast<LPARAM>(&tool));
        return Narrow(std::wstring_view(text));
    }
    /// How far the tip stands below the cell's place: 0 when their middles are level.
    LONG TipBelow(int row, int column) const {
        RECT tip{};
        GetWindowRect(Tip(), &tip);
        POINT cell = CellMiddle(row, column);
        ClientToScreen(window, &cell);
        return (tip.top + tip.bottom) / 2 - cell.y;
    }
    void Rest(POINT point) const {
        Mouse(WM_MOUSEMOVE, point);
        Mouse(WM_MOUSEHOVER, point);
    }

    ShownForm shown;
    OutlineGrid& grid = shown.form.grid;
    HWND window = shown.Of(grid);
};

TEST_F(GridUseTest, TypingGoesToTheRowThatBeginsSo) {
    Type(L"bos");
    EXPECT_EQ(grid.CurrentRow(), 5);
    Press(window, VK_ESCAPE);
    Type(L"b");
    EXPECT_EQ(grid.CurrentRow(), 7) << "Esc ended the text";
    Type(L"\x01\x08");
    EXPECT_EQ(grid.CurrentRow(), 7) << "what Ctrl makes of letters is no text";
}

TEST_F(GridUseTest, ACharacterOfSeveralUnitsCountsAsOne) {
    shown.Change([&] { grid.SetText(6, 0, "\U0001F600 smile"); });
    Type(L"\xD83D\xDE00 s");
    EXPECT_EQ(grid.CurrentRow(), 6);
    Type(L"\xDE00");
    EXPECT_EQ(grid.CurrentRow(), 6);
}

TEST_F(GridUseTest, SignsAreCommandsUntilATextIsBegun) {
    Type(L"-");
    EXPECT_TRUE(grid.IsCollapsed(2));
    Type(L"+");
    EXPECT_FALSE(grid.IsCollapsed(2));
    shown.Change([&] { grid.SetText(4, 0, "A-1"); });
    Type(L"a-");
    EXPECT_EQ(grid.CurrentRow(), 4);
    EXPECT_FALSE(grid.IsCollapsed(2));
}

TEST_F(GridUseTest, AKeyThatWasACommandTypesNothing) {
    shown.Change([&] { grid.SetText(4, 0, "+1"); });
    SendMessageW(window, WM_KEYDOWN, VK_SUBTRACT, 1);
    Type(L"-");
    SendMessageW(window, WM_KEYDOWN, VK_ADD, 1);
    Type(L"+");
    EXPECT_FALSE(grid.IsCollapsed(2));
    EXPECT_EQ(grid.CurrentRow(), 2);
}

TEST_F(GridUseTest, CopiesWhatIsSelected) {
    shown.Change([&] { grid.SetCurrentCell(3, 0); });
    {
        const KeysDown shift({VK_SHIFT});
        Press(window, VK_RIGHT);
        Press(window, VK_DOWN);
    }
    {
        const KeysDown control({VK_CONTROL});
        Press(window, 'C');
        EXPECT_EQ(ClipboardText(), "Alba\t3\r\nBirne\t4\r\n");
        Press(window, 'A');
        Press(window, 'C');
        EXPECT_TRUE(ClipboardText().ends_with("Bo\t7\t7\t7\t7\t7\r\n")) << ClipboardText();
        EXPECT_EQ(grid.CurrentRow(), 4) << "the current cell stays";
    }
    shown.Change([&] { grid.SetCurrentCell(5, 2); });
    const KeysDown both({VK_CONTROL, VK_SHIFT});
    Press(window, 'C');
    EXPECT_EQ(ClipboardText(), "Work: Column\r\n5\r\n");
}

TEST_F(GridUseTest, DraggingSelectsABlockAndScrolls) {
    Mouse(WM_LBUTTONDOWN, CellMiddle(4, 1), MK_LBUTTON);
    Mouse(WM_MOUSEMOVE, CellMiddle(6, 3), MK_LBUTTON);
    Mouse(WM_LBUTTONUP, CellMiddle(6, 3));
    EXPECT_EQ(grid.Selection(), (OutlineGrid::Block{4, 6, 1, 3}));
    Mouse(WM_MOUSEMOVE, CellMiddle(3, 1));
    EXPECT_EQ(grid.CurrentRow(), 6) << "the button is up";
    Mouse(WM_LBUTTONDOWN, CellMiddle(3, 2), MK_LBUTTON | MK_SHIFT);
    Mouse(WM_LBUTTONUP, CellMiddle(3, 2));
    EXPECT_EQ(grid.Selection(), (OutlineGrid::Block{3, 4, 1, 2})) << "Shift goes on from where it began";
    shown.Change([&] { FillGrid(grid, 300); });
    Mouse(WM_LBUTTONDOWN, CellMiddle(4, 1), MK_LBUTTON);
    for (int i = 0; i < 5; ++i) Mouse(WM_MOUSEMOVE, {20, 5000 + i}, MK_LBUTTON);
    Mouse(WM_LBUTTONUP, {20, 5000});
    EXPECT_GT(grid.TopIndex(), 2);
    EXPECT_NE(GetCapture(), window);
}

TEST_F(GridUseTest, TheRightButtonChoosesTheCellUnlessItIsSelected) {
    shown.Change([&] {
        grid.SetCurrentCell(3, 1);
        grid.ExtendSelection(5, 2);
    });
    Mouse(WM_RBUTTONDOWN, CellMiddle(4, 1));
    EXPECT_EQ(grid.Selection(), (OutlineGrid::Block{3, 5, 1, 2}));
    Mouse(WM_RBUTTONDOWN, CellMiddle(6, 4));
    EXPECT_EQ(grid.Selection(), (OutlineGrid::Block{6, 6, 4, 4}));
}

TEST_F(GridUseTest, EdgesOfColumnsAreDraggedAndFitted) {
    const POINT edge{Layout().ColumnRight(1), 10};
    const double before = grid.ColumnWidth(1);
    Mouse(WM_LBUTTONDOWN, edge, MK_LBUTTON);
    Mouse(WM_MOUSEMOVE, {edge.x + 30, 10}, MK_LBUTTON);
    EXPECT_EQ(grid.ColumnWidth(1), before + Pixels(30));
    Press(window, VK_ESCAPE);
    EXPECT_EQ(grid.ColumnWidth(1), before);
    Mouse(WM_LBUTTONDOWN, edge, MK_LBUTTON);
    Mouse(WM_MOUSEMOVE, {edge.x - 500, 10}, MK_LBUTTON);
    Mouse(WM_LBUTTONUP, {edge.x - 500, 10});
    EXPECT_EQ(grid.ColumnWidth(1), Pixels(12)) << "there is a least width";
    shown.Change([&] { grid.SetText(5, 1, "a long text that takes some room in its column"); });
    Click(window, {Layout().ColumnRight(1), 10}, WM_LBUTTONDBLCLK);
    EXPECT_GT(grid.ColumnWidth(1), before);
    const RECT room = Layout().TextArea(5, 1);
    EXPECT_EQ(shown.windows.Kept().fonts.TextWidth(Wide(grid.CellText(5, 1)), Weight::Regular) >
                  room.right - room.left,
              false);
    EXPECT_TRUE(shown.done.empty()) << "edges are no cells";
}

TEST_F(GridUseTest, ATipShowsOnlyWhatIsClippedOrExplained) {
    Rest(CellMiddle(3, 0));
    EXPECT_EQ(TipText(), "");
    const std::string longName = "A name that is much longer than its column has room for";
    shown.Change([&] { grid.SetText(4, 0, longName); });
    Rest(CellMiddle(4, 0));
    EXPECT_EQ(TipText(), longName);
    EXPECT_LE(std::abs(TipBelow(4, 0)), 2) << "over the cell";
    Mouse(WM_MOUSEMOVE, CellMiddle(5, 0));
    EXPECT_EQ(TipText(), "") << "on another cell it goes";
    shown.explanation = "because";
    Rest(CellMiddle(5, 2));
    EXPECT_EQ(TipText(), "because");
    EXPECT_GT(TipBelow(5, 2), Layout().RowHeight() / 2) << "below the figure";
    shown.Change([&] { grid.SetText(6, 3, "new"); });
    EXPECT_EQ(TipText(), "") << "a refresh takes it away";
    Rest(CellMiddle(4, 0));
    EXPECT_EQ(TipText(), longName + "\r\nbecause");
    Press(window, VK_DOWN);
    EXPECT_EQ(TipText(), "");
}

/// Presses keys in the menu as soon as it is open.
class MenuKeys {
public:
    MenuKeys(HWND owner, std::vector<WPARAM> keys) : owner_(owner) {
        Waiting() = std::move(keys);
        SetTimer(owner, kTimer, USER_TIMER_MINIMUM, &OnTimer);
    }
    ~MenuKeys() { KillTimer(owner_, kTimer); }
    MenuKeys(const MenuKeys&) = delete;
    MenuKeys& operator=(const MenuKeys&) = delete;

private:
    static constexpr UINT_PTR kTimer = 77;
    static std::vector<WPARAM>& Waiting() {
        static std::vector<WPARAM> keys;
        return keys;
    }
    static void CALLBACK OnTimer(HWND window, UINT, UINT_PTR, DWORD) {
        if (FindWindowW(L"#32768", nullptr) == nullptr || Waiting().empty()) return;
        const WPARAM key = Waiting().front();
        Waiting().erase(Waiting().begin());
        PostMessageW(window, WM_KEYDOWN, key, 1);
    }
    HWND owner_;
};

TEST_F(GridUseTest, TheMenuOpensAtTheCellAndDoesWhatIsChosen) {
    shown.Change([&] { grid.SetCurrentCell(2, 0); });
    {
        const MenuKeys keys(shown.outer.Handle(), {VK_DOWN, VK_RETURN});
        SendMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), -1);
    }
    EXPECT_EQ(shown.done, (std::vector<std::string>{"key 13"})) << "the first entry asks for details";
    {
        const MenuKeys keys(shown.outer.Handle(), {VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
        SendMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), -1);
    }
    EXPECT_TRUE(grid.IsCollapsed(2)) << "the entry below the grey one closes the node";
    {
        const MenuKeys keys(shown.outer.Handle(), {VK_ESCAPE});
        SendMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), MAKELPARAM(40, 40));
    }
    EXPECT_EQ(shown.done.size(), 1u);
}

}  // namespace
}  // namespace dlv::test
