#include "tests/windows/Resources.h"

#include <vector>

#include "hosts/container/WindowList.h"
#include "tests/windows/Support.h"

namespace dlv::test {

namespace {

// Every count of these is far above what a process may have.
constexpr std::size_t kMostBrushes = 100'000;
constexpr DWORD kMostHeaps = 64;

int CountFreeGdiSlots() {
    std::vector<HBRUSH> brushes;
    brushes.reserve(kMostBrushes);
    while (brushes.size() < kMostBrushes) {
        const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
        if (brush == nullptr) break;
        brushes.push_back(brush);
    }
    for (const HBRUSH brush : brushes) DeleteObject(brush);
    return static_cast<int>(brushes.size());
}

/// The window and all inside it.
int CountOf(HWND window) { return 1 + static_cast<int>(container::WindowsInside(window).size()); }

int CountWindows() {
    int count = 0;
    for (const HWND window : container::WindowsOfThread()) count += CountOf(window);
    // Windows that were taken out of sight stand below the message window.
    for (HWND window = nullptr;
         (window = FindWindowExW(HWND_MESSAGE, window, L"DashlonViewerControl", nullptr)) != nullptr;)
        count += CountOf(window);
    return count;
}

void CountHeaps(Resources& resources) {
    HANDLE heaps[kMostHeaps];
    const DWORD count = GetProcessHeaps(kMostHeaps, heaps);
    for (DWORD i = 0; i < count && i < kMostHeaps; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heaps[i]);
        while (HeapWalk(heaps[i], &entry) != FALSE) {
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) == 0) continue;
            resources.bytes += entry.cbData;
            ++resources.blocks;
        }
        HeapUnlock(heaps[i]);
    }
}

/// Makes and ends labels as the control has them: those of the common controls that its manifest asks for.
void MakeLabels(int count) {
    const std::wstring file = container::BesideProgram(L"DashlonViewer.ocx");
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    wanted.lpSource = file.c_str();
    wanted.lpResourceName = MAKEINTRESOURCEW(2);
    const HANDLE context = CreateActCtxW(&wanted);
    ULONG_PTR cookie = 0;
    ASSERT_TRUE(ActivateActCtx(context, &cookie));
    const HostWindow window;
    for (int i = 0; i < count; ++i) {
        const HWND label = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20,
                                           window.Handle(), nullptr, nullptr, nullptr);
        SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), 0);
        DestroyWindow(label);
    }
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
}

}  // namespace

Resources Resources::Now() {
    Resources now;
    now.freeGdiSlots = CountFreeGdiSlots();
    now.windows = CountWindows();
    CountHeaps(now);
    return now;
}

LabelResidue::LabelResidue() {
    constexpr int kLabels = 50;
    MakeLabels(kLabels);
    const Resources before = Resources::Now();
    MakeLabels(kLabels);
    const Resources after = Resources::Now();
    blocksEach_ = (after.blocks - before.blocks) / kLabels;
    bytesEach_ = (after.bytes - before.bytes) / kLabels;
    current_ = this;
    hook_ = SetWindowsHookExW(WH_CBT, Note, nullptr, GetCurrentThreadId());
}

LabelResidue::~LabelResidue() {
    UnhookWindowsHookEx(hook_);
    current_ = nullptr;
}

LRESULT CALLBACK LabelResidue::Note(int code, WPARAM window, LPARAM data) {
    wchar_t name[16] = {};
    if (code == HCBT_CREATEWND &&
        GetClassNameW(reinterpret_cast<HWND>(window), name, static_cast<int>(std::size(name))) > 0 &&
        _wcsicmp(name, L"STATIC") == 0)
        ++current_->made_;
    return CallNextHookEx(nullptr, code, window, data);
}

std::string Resources::LeakedSince(const Resources& before) const {
    std::string leaked;
    const auto add = [&](long long count, const char* what) {
        if (count > 0) leaked += std::to_string(count) + " " + what + "; ";
    };
    add(before.freeGdiSlots - freeGdiSlots, "GDI objects");
    add(windows - before.windows, "windows");
    add(static_cast<long long>(blocks) - static_cast<long long>(before.blocks), "heap blocks");
    add(static_cast<long long>(bytes) - static_cast<long long>(before.bytes), "bytes");
    return leaked;
}

}  // namespace dlv::test
