#include "tests/windows/Dialogs.h"

#include <commctrl.h>

#include <algorithm>

#include "hosts/container/WindowList.h"

namespace dlv::test {

namespace {

constexpr UINT kEvery = 20;  // milliseconds

}  // namespace

HWND FindChild(HWND parent, const std::wstring& text) {
    for (const HWND window : container::WindowsInside(parent))
        if (IsWindowVisible(window) && container::TextOf(window) == text) return window;
    return nullptr;
}

HWND OpenDialog() {
    for (const HWND window : container::WindowsOfThread())
        if (IsWindowVisible(window) && IsWindowEnabled(window) && container::ClassOf(window) == L"#32770")
            return window;
    return nullptr;
}

HWND OpenMenu() {
    const HWND menu = FindWindowW(L"#32768", nullptr);
    return menu != nullptr && IsWindowVisible(menu) != FALSE ? menu : nullptr;
}

void Press(const HostedControl& control, Tool tool) {
    const HWND bar = control.WindowOf(TOOLBARCLASSNAMEW);
    RECT area{};
    ASSERT_NE(SendMessageW(bar, TB_GETITEMRECT, static_cast<WPARAM>(tool), reinterpret_cast<LPARAM>(&area)),
              0);
    const LPARAM point = MAKELPARAM(area.left + 8, (area.top + area.bottom) / 2);
    SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendMessageW(bar, WM_LBUTTONUP, 0, point);
}

Person::Person(std::vector<Act> acts) : acts_(std::move(acts)) {
    EXPECT_EQ(current_, nullptr) << "one person at a time";
    current_ = this;
    timer_ = SetTimer(nullptr, 0, kEvery, Tick);
}

Person::~Person() {
    KillTimer(nullptr, timer_);
    current_ = nullptr;
    EXPECT_EQ(next_, acts_.size()) << "what there was to be used never opened";
}

void CALLBACK Person::Tick(HWND, UINT, UINT_PTR, DWORD) {
    if (current_ != nullptr) current_->Look();
}

void Person::Look() {
    const HWND dialog = OpenDialog();
    const HWND window = dialog != nullptr ? dialog : OpenMenu();
    if (window == nullptr) return;
    if (closing_) {
        PostMessageW(window, WM_KEYDOWN, VK_ESCAPE, 1);
        if (dialog == nullptr) return;
        PostMessageW(window, WM_COMMAND, IDNO, 0);
        PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
        return;
    }
    if (acting_ || window == last_ || next_ == acts_.size()) return;
    acting_ = true;
    if (acts_[next_](window)) {
        last_ = window;
        ++next_;
    }
    acting_ = false;
}

Person::Act Person::Keys(std::vector<WPARAM> keys) {
    return [keys](HWND window) {
        for (const WPARAM key : keys) PostMessageW(window, WM_KEYDOWN, key, 1);
        return true;
    };
}

Person::Act Person::Press(std::wstring caption) {
    return [caption](HWND window) {
        for (HWND button = nullptr;
             (button = FindWindowExW(window, button, WC_BUTTONW, nullptr)) != nullptr;) {
            std::wstring text = container::TextOf(button);
            std::erase(text, L'&');
            if (text != caption || IsWindowEnabled(button) == FALSE) continue;
            PostMessageW(button, BM_CLICK, 0, 0);
            return true;
        }
        return false;
    };
}

Person::Act Person::Name(std::wstring name) {
    return [name](HWND window) {
        const HWND box = FindWindowExW(window, nullptr, WC_EDITW, nullptr);
        if (box != nullptr && container::TextOf(box) != name) SetWindowTextW(box, name.c_str());
        return box != nullptr && Press(L"OK")(window);
    };
}

Person::Act Person::Line(int line, std::wstring caption) {
    return [line, caption](HWND window) {
        const HWND list = FindWindowExW(window, nullptr, WC_LISTBOXW, nullptr);
        if (list == nullptr) return false;
        SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(line), 0);
        SendMessageW(window, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), LBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(list));
        return Press(caption)(window);
    };
}

void Click(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    const LPARAM middle = MAKELPARAM(area.right / 2, area.bottom / 2);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, middle);
    SendMessageW(window, WM_LBUTTONUP, 0, middle);
}

DialogWatch::DialogWatch(std::function<void(HWND dialog)> found) : found_(std::move(found)) {
    EXPECT_EQ(current_, nullptr) << "one watch at a time";
    current_ = this;
    timer_ = SetTimer(nullptr, 0, kEvery, Tick);
}

DialogWatch::~DialogWatch() {
    KillTimer(nullptr, timer_);
    current_ = nullptr;
}

void CALLBACK DialogWatch::Tick(HWND, UINT, UINT_PTR, DWORD) {
    DialogWatch* const watch = current_;
    if (watch == nullptr) return;
    const HWND dialog = OpenDialog();
    if (dialog == watch->last_) return;
    watch->last_ = dialog;
    if (dialog != nullptr) watch->found_(dialog);
}

DialogCloser::DialogCloser()
    : watch_([this](HWND dialog) {
          ++closed_;
          for (const HWND child : container::WindowsInside(dialog))
              texts_.push_back(container::TextOf(child));
          PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
          PostMessageW(dialog, WM_CLOSE, 0, 0);
      }) {}

bool DialogCloser::Showed(const std::wstring& text) const {
    return std::find(texts_.begin(), texts_.end(), text) != texts_.end();
}

}  // namespace dlv::test
