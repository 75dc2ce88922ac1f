#include "tests/windows/soak/Ledger.h"

#include <uxtheme.h>

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <vector>

namespace dlv::test {

namespace {

/// A handle, with the window that it goes with, if any.
struct Entry {
    std::uintptr_t handle = 0;
    HWND window = nullptr;
    auto operator<=>(const Entry&) const = default;
};

// A program's own threads take things too.
SRWLOCK lock = SRWLOCK_INIT;
std::map<std::string, std::multiset<Entry>> open;

class Locked {
public:
    Locked() { AcquireSRWLockExclusive(&lock); }
    ~Locked() { ReleaseSRWLockExclusive(&lock); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
};

template <class Handle>
std::uintptr_t Plain(Handle handle) {
    if constexpr (std::is_pointer_v<Handle>)
        return reinterpret_cast<std::uintptr_t>(handle);
    else
        return static_cast<std::uintptr_t>(handle);
}

/// A function's name, as a template argument.
template <std::size_t Size>
struct Name {
    constexpr Name(const char (&text)[Size]) { std::copy_n(text, Size, value); }
    char value[Size];
};

using Function = void*;

/// One watched function: what stands in for it, and where the real one is kept.
struct StandIn {
    std::string_view name;
    Function function;
    Function* real;
};

/// A function that opens something: `entryOf` makes the entry from the result and the arguments.
template <Name kFunction, Name kKind, auto entryOf, class Type>
struct Opener;
template <Name kFunction, Name kKind, auto entryOf, class Result, class... Arguments>
struct Opener<kFunction, kKind, entryOf, Result(WINAPI*)(Arguments...)> {
    static inline Function real = nullptr;

    static Result WINAPI Call(Arguments... arguments) {
        const Result result = reinterpret_cast<Result(WINAPI*)(Arguments...)>(real)(arguments...);
        if (result && Plain(result) != Plain(INVALID_HANDLE_VALUE)) {
            const Entry entry = entryOf(result, arguments...);
            const Locked locked;
            auto& known = open[kKind.value];
            // A timer that is set again, and a window class's atom, are the same thing once more.
            if (std::string_view(kKind.value) != "timers" || !known.contains(entry)) known.insert(entry);
        }
        return result;
    }
};

template <Name kFunction, Name kKind, auto entryOf, class Type>
struct Closer;
template <Name kFunction, Name kKind, auto entryOf, class Result, class... Arguments>
struct Closer<kFunction, kKind, entryOf, Result(WINAPI*)(Arguments...)> {
    static inline Function real = nullptr;

    static Result WINAPI Call(Arguments... arguments) {
        {
            const Locked locked;
            auto& known = open[kKind.value];
            if (const auto found = known.find(entryOf(arguments...)); found != known.end())
                known.erase(found);
        }
        return reinterpret_cast<Result(WINAPI*)(Arguments...)>(real)(arguments...);
    }
};

template <class Stand>
StandIn Watch(std::string_view name) {
    return {name, reinterpret_cast<Function>(Stand::Call), &Stand::real};
}

constexpr auto kResult = [](auto result, auto...) { return Entry{Plain(result), nullptr}; };
constexpr auto kResultWindow = [](HWND result, auto...) { return Entry{Plain(result), result}; };
constexpr auto kFirst = [](auto first, auto...) { return Entry{Plain(first), nullptr}; };
constexpr auto kSecond = [](auto, auto second, auto...) { return Entry{Plain(second), nullptr}; };
constexpr auto kWindowDc = [](HDC dc, HWND window) { return Entry{Plain(dc), window}; };
constexpr auto kWindowDcBack = [](HWND window, HDC dc) { return Entry{Plain(dc), window}; };
constexpr auto kTimer = [](UINT_PTR result, HWND window, UINT_PTR id, auto...) {
    return Entry{window == nullptr ? result : id, window};
};
constexpr auto kTimerBack = [](HWND window, UINT_PTR id) { return Entry{id, window}; };
constexpr auto kPaint = [](HDC, HWND window, auto...) { return Entry{1, window}; };
constexpr auto kPaintBack = [](HWND window, auto...) { return Entry{1, window}; };
constexpr auto kOne = [](auto...) { return Entry{1, nullptr}; };

#define OPENS(function, kind, entry) Watch<Opener<#function, kind, entry, decltype(&function)>>(#function)
#define CLOSES(function, kind, entry) Watch<Closer<#function, kind, entry, decltype(&function)>>(#function)

const std::vector<StandIn>& AllWatched() {
    static const std::vector<StandIn> all = {
        OPENS(CreateWindowExW, "windows", kResultWindow),
        OPENS(CreateDialogIndirectParamW, "windows", kResultWindow),
        OPENS(SetWindowsHookExW, "hooks", kResult),
        CLOSES(UnhookWindowsHookEx, "hooks", kFirst),
        OPENS(SetTimer, "timers", kTimer),
        CLOSES(KillTimer, "timers", kTimerBack),
        OPENS(CreatePopupMenu, "menus", kResult),
        CLOSES(DestroyMenu, "menus", kFirst),
        OPENS(GetDC, "window contexts", kWindowDc),
        CLOSES(ReleaseDC, "window contexts", kWindowDcBack),
        OPENS(BeginPaint, "paintings", kPaint),
        CLOSES(EndPaint, "paintings", kPaintBack),
        OPENS(BeginDeferWindowPos, "moves", kOne),
        CLOSES(EndDeferWindowPos, "moves", kOne),
        OPENS(RegisterClassExW, "window classes", kOne),
        CLOSES(UnregisterClassW, "window classes", kOne),
        OPENS(CreateCompatibleDC, "memory contexts", kResult),
        CLOSES(DeleteDC, "memory contexts", kFirst),
        OPENS(CreateFontIndirectW, "GDI objects", kResult),
        OPENS(CreatePen, "GDI objects", kResult),
        OPENS(CreateSolidBrush, "GDI objects", kResult),
        OPENS(CreateCompatibleBitmap, "GDI objects", kResult),
        OPENS(CreateRectRgnIndirect, "GDI objects", kResult),
        CLOSES(DeleteObject, "GDI objects", kFirst),
        // The window owns the region from then on.
        CLOSES(SetWindowRgn, "GDI objects", kSecond),
        OPENS(OpenThemeData, "themes", kResult),
        CLOSES(CloseThemeData, "themes", kFirst),
        OPENS(CreateActCtxW, "activation contexts", kResult),
        CLOSES(ReleaseActCtx, "activation contexts", kFirst),
        OPENS(ActivateActCtx, "activations", kOne),
        CLOSES(DeactivateActCtx, "activations", kOne),
        OPENS(LoadLibraryW, "libraries", kResult),
        CLOSES(FreeLibrary, "libraries", kFirst),
        OPENS(CreateEventA, "kernel objects", kResult),
        OPENS(CreateSemaphoreA, "kernel objects", kResult),
        CLOSES(CloseHandle, "kernel objects", kFirst),
        OPENS(GlobalAlloc, "global memory", kResult),
        CLOSES(GlobalFree, "global memory", kFirst),
    };
    return all;
}

#undef OPENS
#undef CLOSES

/// Calls back with each imported function's name and the place of its address.
template <class Act>
void ForEachImport(HMODULE module, Act&& act) {
    const auto* base = reinterpret_cast<const BYTE*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const DWORD start = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + start);
    for (; start != 0 && library->Name != 0; ++library) {
        const auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
        auto* places = reinterpret_cast<Function*>(const_cast<BYTE*>(base) + library->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++places) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
            const auto* named = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            act(std::string_view(reinterpret_cast<const char*>(named->Name)), *places);
        }
    }
}

void Put(Function& place, Function function) {
    DWORD before = 0;
    VirtualProtect(&place, sizeof place, PAGE_READWRITE, &before);
    place = function;
    VirtualProtect(&place, sizeof place, before, &before);
}

}  // namespace

Ledger::Ledger(HMODULE module) : module_(module) {
    open.clear();
    ForEachImport(module, [&](std::string_view name, Function& place) {
        for (const StandIn& watched : AllWatched()) {
            if (watched.name != name) continue;
            *watched.real = place;
            Put(place, watched.function);
            ++watched_;
        }
    });
}

Ledger::~Ledger() {
    ForEachImport(module_, [&](std::string_view name, Function& place) {
        for (const StandIn& watched : AllWatched())
            if (watched.name == name && place == watched.function) Put(place, *watched.real);
    });
}

std::string Ledger::Open() {
    std::string text;
    const Locked locked;
    for (auto& [kind, entries] : open) {
        std::erase_if(entries,
                      [](const Entry& entry) { return entry.window != nullptr && !IsWindow(entry.window); });
        if (!entries.empty()) text += std::to_string(entries.size()) + " " + kind + "; ";
    }
    return text;
}

HiddenUse HiddenUse::Now() {
    HiddenUse now;
    now.nextThreadSlot = TlsAlloc();
    TlsFree(now.nextThreadSlot);
    // The lowest free handles are given first.
    HANDLE events[64];
    for (HANDLE& event : events) {
        event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        now.nextHandle = std::max(now.nextHandle, reinterpret_cast<std::size_t>(event));
    }
    for (const HANDLE event : events) CloseHandle(event);
    return now;
}

}  // namespace dlv::test
