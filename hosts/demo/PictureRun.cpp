#include "hosts/demo/PictureRun.h"
#include "hosts/container/WindowList.h"

#include <commctrl.h>

#include <cstdio>

#include "hosts/demo/WindowPicture.h"
#include "windows/com/Strings.h"

namespace dlv::demo {

namespace {

constexpr int kRefreshesBeforePicture = 2;
constexpr DWORD kSettleMilliseconds = 300;

bool ChooseSecondTab(HWND window) {
    const auto tabs = container::VisibleInside(window, WC_TABCONTROLW);
    if (tabs.empty()) return false;
    SendMessageW(tabs.front(), TCM_SETCURFOCUS, 1, 0);
    return SendMessageW(tabs.front(), TCM_GETCURSEL, 0, 0) == 1;
}

/// The display options are the lowest buttons on the hierarchy page; the second one stands at the right.
bool ChooseDisplayByPoints(HWND window) {
    HWND chosen = nullptr;
    POINT best{};
    for (const HWND button : container::VisibleInside(window, WC_BUTTONW)) {
        RECT place;
        GetWindowRect(button, &place);
        const bool lower = place.top > best.y || (place.top == best.y && place.left > best.x);
        if (chosen != nullptr && !lower) continue;
        chosen = button;
        best = {place.left, place.top};
    }
    if (chosen == nullptr) return false;
    SendMessageW(chosen, BM_CLICK, 0, 0);
    return true;
}

/// Lets everything that has been posted be painted.
void Settle() {
    const DWORD end = GetTickCount() + kSettleMilliseconds;
    while (GetTickCount() < end) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message != WM_TIMER) DispatchMessageW(&message);
        }
        Sleep(10);
    }
}

}  // namespace

bool PictureRun::Run() {
    window_.afterFigures = [this] { FiguresCame(); };
    if (!window_.StartControl(options_.language, options_.profile)) {
        std::fputs("demo: the control did not start\n", stderr);
        return false;
    }
    window_.RunMessages();
    return complete_;
}

void PictureRun::FiguresCame() {
    if (++refreshes_ < kRefreshesBeforePicture) return;
    refreshes_ = 0;
    window_.afterFigures = nullptr;
    Settle();
    if (!summaryDone_) {
        summaryDone_ = Save(L"summary.png");
        if (!summaryDone_) return End(false);
        window_.afterFigures = [this] { FiguresCame(); };
        window_.StartControl(options_.language, std::string(kAllUnitsProfile));
        return;
    }
    const bool chosen = ChooseSecondTab(window_.Handle());
    Settle();
    const bool byWorkOrders = chosen && Save(L"hierarchy.png");
    const bool byPoints = byWorkOrders && ChooseDisplayByPoints(window_.Handle());
    Settle();
    End(byPoints && Save(L"hierarchy-points.png"));
}

bool PictureRun::Save(const wchar_t* name) {
    const std::wstring path = Wide(options_.picturesFolder) + L"\\" + name;
    if (SavePicture(window_.Handle(), path)) return true;
    std::fprintf(stderr, "demo: %s cannot be written\n", Narrow(path).c_str());
    return false;
}

void PictureRun::End(bool complete) {
    complete_ = complete;
    DestroyWindow(window_.Handle());
}

}  // namespace dlv::demo
