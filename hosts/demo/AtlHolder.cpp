#include "hosts/demo/AtlHolder.h"

#include <utility>

namespace dlv::demo {

namespace {

/// A function of the system's container library, which stays loaded.
template <class Function>
Function Find(const char* name) {
    const HMODULE library = LoadLibraryW(L"atl.dll");
    return library == nullptr
               ? nullptr
               : reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace

HRESULT AtlHolder::Open(HWND window, const RECT& place) {
    const auto init = Find<BOOL(WINAPI*)()>("AtlAxWinInit");
    const auto getControl = Find<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl");
    if (init == nullptr || getControl == nullptr || !init()) return E_NOTIMPL;
    // The class makes the control that its window's text names.
    container_ = CreateWindowExW(
        0, L"AtlAxWin", L"DashlonViewer.DLViewer", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, place.left,
        place.top, place.right - place.left, place.bottom - place.top, window, nullptr, nullptr, nullptr);
    if (container_ == nullptr) return HRESULT_FROM_WIN32(GetLastError());
    const HRESULT result = getControl(container_, &control_);
    return SUCCEEDED(result) && !control_ ? E_FAIL : result;
}

void AtlHolder::Move(const RECT& place) {
    MoveWindow(container_, place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
}

void AtlHolder::Close() {
    control_.Reset();
    if (container_ != nullptr) DestroyWindow(std::exchange(container_, nullptr));
}

}  // namespace dlv::demo
