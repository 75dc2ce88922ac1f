#include "tests/windows/Dialogs.h"

#include <algorithm>

namespace dlv::test {

namespace {

constexpr UINT kEvery = 20;  // milliseconds

std::wstring TextOf(HWND window) {
    wchar_t text[512] = {};
    GetWindowTextW(window, text, static_cast<int>(std::size(text)));
    return text;
}

struct ChildSearch {
    const std::wstring& text;
    HWND found = nullptr;
};

}  // namespace

HWND FindChild(HWND parent, const std::wstring& text) {
    ChildSearch search{text};
    EnumChildWindows(
        parent,
        [](HWND window, LPARAM data) -> BOOL {
            auto& wanted = *reinterpret_cast<ChildSearch*>(data);
            if (IsWindowVisible(window) == FALSE || TextOf(window) != wanted.text) return TRUE;
            wanted.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND OpenDialog() {
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM data) -> BOOL {
            wchar_t name[16] = {};
            GetClassNameW(window, name, static_cast<int>(std::size(name)));
            if (IsWindowVisible(window) == FALSE || wcscmp(name, L"#32770") != 0) return TRUE;
            *reinterpret_cast<HWND*>(data) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
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
          EnumChildWindows(
              dialog,
              [](HWND child, LPARAM data) -> BOOL {
                  reinterpret_cast<std::vector<std::wstring>*>(data)->push_back(TextOf(child));
                  return TRUE;
              },
              reinterpret_cast<LPARAM>(&texts_));
          PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
          PostMessageW(dialog, WM_CLOSE, 0, 0);
      }) {}

bool DialogCloser::Showed(const std::wstring& text) const {
    return std::find(texts_.begin(), texts_.end(), text) != texts_.end();
}

}  // namespace dlv::test
