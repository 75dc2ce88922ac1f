#include "windows/com/Unloading.h"

#include <windows.h>

#include <array>
#include <atomic>

namespace __gnu_cxx {
void __freeres();
}

extern "C" const IMAGE_TLS_DIRECTORY _tls_used;

namespace dlv {

namespace {

// The run-time library takes one.
std::array<std::atomic<DWORD>, 8> slots;
std::atomic<std::size_t> slotCount{0};
bool unloading = false;

DWORD WINAPI AllocateNotedSlot() {
    const auto real = reinterpret_cast<DWORD(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "TlsAlloc")));
    const DWORD slot = real();
    if (slot != TLS_OUT_OF_INDEXES)
        if (const std::size_t at = slotCount++; at < slots.size()) slots[at] = slot;
    return slot;
}

/// The first static object of the library is the last to go.
class LastToGo {
public:
    LastToGo() = default;
    ~LastToGo() {
        if (!unloading) return;
        // As at the end of a thread, which this one is for the library.
        auto* const* callbacks = reinterpret_cast<PIMAGE_TLS_CALLBACK*>(_tls_used.AddressOfCallBacks);
        for (; callbacks != nullptr && *callbacks != nullptr; ++callbacks)
            (*callbacks)(nullptr, DLL_THREAD_DETACH, nullptr);
        __gnu_cxx::__freeres();
        for (std::size_t i = 0; i < slotCount && i < slots.size(); ++i) TlsFree(slots[i]);
    }
    LastToGo(const LastToGo&) = delete;
    LastToGo& operator=(const LastToGo&) = delete;
};

constexpr int kBeforeAllOthers = 101;
__attribute__((init_priority(kBeforeAllOthers))) LastToGo lastToGo;

}  // namespace

void NoteUnloading() { unloading = true; }

// What calls to TlsAlloc go through in the whole library.
#ifdef _WIN64
extern "C" DWORD(WINAPI* const allocateSlot)() __asm__("__imp_TlsAlloc");
#else
extern "C" DWORD(WINAPI* const allocateSlot)() __asm__("__imp__TlsAlloc@0");
#endif
DWORD(WINAPI* const allocateSlot)() = AllocateNotedSlot;

}  // namespace dlv
