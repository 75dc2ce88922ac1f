#include "hosts/demo/Smoke.h"
#include "hosts/container/WindowList.h"

#include <commctrl.h>

#include <cstdio>

#include "hosts/demo/AtlHolder.h"

namespace dlv::demo {

namespace {

bool Failed(const char* what) {
    std::fprintf(stderr, "demo: %s\n", what);
    return false;
}

/// The unit list is filled from the figures.
bool ShowsUnits(HWND window) {
    for (const HWND list : container::VisibleInside(window, WC_LISTVIEWW))
        if (SendMessageW(list, LVM_GETITEMCOUNT, 0, 0) == static_cast<LRESULT>(Units().size())) return true;
    return false;
}

bool LibraryIsIdle() {
    const HMODULE library = GetModuleHandleW(L"DashlonViewer.ocx");
    if (library == nullptr) return true;
    const auto canUnload = reinterpret_cast<HRESULT(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")));
    return canUnload != nullptr && canUnload() == S_OK;
}

}  // namespace

bool RunSmoke(const Options& options) {
    bool shown = false;
    {
        DemoWindow window(options, std::make_unique<AtlHolder>());
        if (!window.Create()) return Failed("no window could be made");
        window.afterFigures = [&] {
            shown = ShowsUnits(window.Handle());
            DestroyWindow(window.Handle());
        };
        if (!window.StartControl(options.language, options.profile))
            return Failed("the control did not start");
        window.RunMessages();
    }
    if (!shown) return Failed("the figures did not appear");
    return LibraryIsIdle() || Failed("something of the control is still in use");
}

}  // namespace dlv::demo
