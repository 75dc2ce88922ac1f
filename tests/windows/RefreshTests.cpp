// New figures while a person is in the middle of something.
#include <commctrl.h>

#include <map>

#include "tests/windows/Keyboard.h"
#include "tests/windows/Support.h"

namespace dlv::test {
namespace {

constexpr wchar_t kGrid[] = L"DashlonViewerGrid";

/// Unit 12 with 60 job classes in 6 job types, `open` work orders open in each.
ComPtr<_QZWebMessage> Figures(int open) {
    std::wstring details;
    for (int i = 0; i < 60; ++i)
        details += L"<row BUID=\"12\" JobType=\"T" + std::to_wstring(i % 6) + L"\" JobClass=\"" +
                   std::to_wstring(100 + i) + L"\" WOOpen=\"" + std::to_wstring(open) + L"\"/>";
    std::wstring text = kSampleMessage;
    const std::wstring last = L"<row BUID=\"12\" JobType=\"I\"";
    text.insert(text.find(last), details);
    ComPtr<_QZWebMessage> message = New<_QZWebMessage>(L"QZWebMessage");
    EXPECT_EQ(message->LoadText(_bstr_t(text.c_str())), S_OK);
    return message;
}

/// Counts the paintings of all windows of the control while it lives.
class PaintCount {
public:
    explicit PaintCount(HWND control) {
        counts_.clear();
        hook_ = SetWindowsHookExW(WH_CALLWNDPROC, Count, nullptr, GetCurrentThreadId());
        control_ = control;
    }
    ~PaintCount() { UnhookWindowsHookEx(hook_); }
    PaintCount(const PaintCount&) = delete;
    PaintCount& operator=(const PaintCount&) = delete;
    int Of(HWND window) const {
        const auto found = counts_.find(window);
        return found == counts_.end() ? 0 : found->second;
    }

private:
    static LRESULT CALLBACK Count(int code, WPARAM wParam, LPARAM lParam) {
        const auto& call = *reinterpret_cast<const CWPSTRUCT*>(lParam);
        if (code == HC_ACTION && call.message == WM_PAINT && IsChild(control_, call.hwnd))
            ++counts_[call.hwnd];
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }
    static inline std::map<HWND, int> counts_;
    static inline HWND control_ = nullptr;
    HHOOK hook_;
};

class RefreshTest : public testing::Test {
protected:
    RefreshTest() {
        control.StartUp();
        Send(1);
        control.container.ActivateUI();
        grid = control.WindowOf(kGrid);
        SetFocus(grid);
        PumpMessages();
    }
    void Send(int open) { ASSERT_EQ(Receive(control.Viewer(), Figures(open).Get()), S_OK); }
    void Press(WPARAM key, unsigned held = kNone) const {
        const HeldKeys keys(held);
        SendMessageW(grid, WM_KEYDOWN, key, 1);
        SendMessageW(grid, WM_KEYUP, key, 1);
    }
    std::wstring Copied() const {
        Press('C', kCtrl);
        if (!OpenClipboard(nullptr)) return L"not to be opened";
        const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
        std::wstring text = memory == nullptr ? L"" : static_cast<const wchar_t*>(GlobalLock(memory));
        if (memory != nullptr) GlobalUnlock(memory);
        CloseClipboard();
        return text;
    }
    int Top() const { return GetScrollPos(grid, SB_VERT); }
    /// Paintings that the change leads to, once all has been painted that waited before.
    template <class Change>
    int Paintings(Change change) {
        PumpMessages();
        RedrawWindow(control.window.Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        const PaintCount count(control.container.ControlWindow());
        change();
        // What waits is painted now, by calls that are counted.
        RedrawWindow(control.window.Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        return count.Of(grid);
    }

    HostedControl control;
    HWND grid = nullptr;
};

TEST_F(RefreshTest, KeepsWhatThePersonIsDoing) {
    Press(VK_END, kCtrl);
    Press(VK_HOME);
    Press(VK_RIGHT);
    Press(VK_UP, kShift);
    Press(VK_RIGHT, kShift);
    const std::wstring before = Copied();
    const int top = Top();
    EXPECT_GT(top, 0);
    EXPECT_EQ(before, L"1\t0\r\n1\t0\r\n");
    Send(7);
    EXPECT_EQ(Copied(), L"7\t0\r\n7\t0\r\n") << "the same cells with their new figures";
    EXPECT_EQ(Top(), top);
    EXPECT_EQ(GetFocus(), grid);
}

TEST_F(RefreshTest, KeepsClosedNodesAndATextBeingTyped) {
    Press(VK_DOWN);
    Press(VK_HOME);
    SendMessageW(grid, WM_CHAR, '-', 1);
    SCROLLINFO bar{sizeof bar, SIF_ALL, 0, 0, 0, 0, 0};
    GetScrollInfo(grid, SB_VERT, &bar);
    const int rows = bar.nMax;
    SendMessageW(grid, WM_CHAR, 'T', 1);
    Send(3);
    GetScrollInfo(grid, SB_VERT, &bar);
    EXPECT_EQ(bar.nMax, rows);
    SendMessageW(grid, WM_CHAR, '4', 1);
    Press(VK_RIGHT);
    EXPECT_EQ(Copied(), L"30\r\n") << "the text went on to the group T4, ten units with 3 each";
}

TEST_F(RefreshTest, PaintsOnceAndNothingWhenNothingChanged) {
    EXPECT_EQ(Paintings([&] { Send(5); }), 1);
    EXPECT_EQ(Paintings([&] { Send(5); }), 0);
}

}  // namespace
}  // namespace dlv::test
