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

// What the library has; the run-time library takes one.
std::array<std::atomic<DWORD>, 8> slots;
std::atomic<std::size_t> slotCount{0};
bool unloading = false;

template <class Function>
Function Real(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name)));
}

DWORD WINAPI AllocateNotedSlot() {
    const DWORD slot = Real<DWORD(WINAPI*)()>("TlsAlloc")();
    if (slot != TLS_OUT_OF_INDEXES)
        if (const std::size_t at = slotCount++; at < slots.size()) slots[at] = slot;
    return slot;
}

BOOL WINAPI FreeNotedSlot(DWORD slot) {
    for (std::size_t i = 0; i < slotCount && i < slots.size(); ++i)
        if (slots[i] == slot) slots[i] = TLS_OUT_OF_INDEXES;
    return Real<BOOL(WINAPI*)(DWORD)>("TlsFree")(slot);
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
        for (std::size_t i = 0; i < slotCount && i < slots.size(); ++i)
            if (const DWORD slot = slots[i]; slot != TLS_OUT_OF_INDEXES) FreeNotedSlot(slot);
    }
    LastToGo(const LastToGo&) = delete;
    LastToGo& operator=(const LastToGo&) = delete;
};

constexpr int kBeforeAllOthers = 101;
__attribute__((init_priority(kBeforeAllOthers))) LastToGo lastToGo;

}  // namespace

void NoteUnloading() { unloading = true; }

// What calls of the whole library to these functions go through, under the names that imports have.
#ifdef _WIN64
#define DLV_IMPORT(name, size) "__imp_" name
#else
#define DLV_IMPORT(name, size) "__imp__" name "@" size
#endif
extern "C" DWORD(WINAPI* const allocateSlot)() __asm__(DLV_IMPORT("TlsAlloc", "0"));
extern "C" BOOL(WINAPI* const freeSlot)(DWORD) __asm__(DLV_IMPORT("TlsFree", "4"));
#undef DLV_IMPORT
DWORD(WINAPI* const allocateSlot)() = AllocateNotedSlot;
BOOL(WINAPI* const freeSlot)(DWORD) = FreeNotedSlot;

}  // namespace dlv
