#include "tests/windows/hostile/Watch.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace dlv::hostile {

namespace {

constexpr std::size_t kDeepest = 16;

// Read by the watch's thread while a call hangs, and by whoever tells of a crash: plain memory, never freed.
std::array<CallNote, kDeepest> notes;
std::atomic<std::size_t> depth{0};
std::array<char, 64> sequenceName;
std::atomic<std::size_t> currentStep{0};
std::atomic<ULONGLONG> stepBegan{0};
std::atomic<DWORD> allowed{0};

[[noreturn]] void Tell(const char* what, int status) {
    std::fprintf(stdout, "%s: %s\n%s", what, sequenceName.data(), CallsUnderWay().c_str());
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
    std::abort();
}

LONG WINAPI Crashed(EXCEPTION_POINTERS* exception) {
    const auto* record = exception->ExceptionRecord;
    HMODULE module = nullptr;
    char name[MAX_PATH] = "no module";
    if (GetModuleHandleExA(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            static_cast<LPCSTR>(record->ExceptionAddress), &module) != FALSE)
        GetModuleFileNameA(module, name, MAX_PATH);
    std::fprintf(
        stdout, "exception %08lx at +%llx in %s, touching %p\n", record->ExceptionCode,
        static_cast<unsigned long long>(static_cast<const char*>(record->ExceptionAddress) -
                                        reinterpret_cast<const char*>(module)),
        name,
        record->NumberParameters > 1 ? reinterpret_cast<void*>(record->ExceptionInformation[1]) : nullptr);
    Tell("CRASHED", kCrashed);
}

void Aborted(int) { Tell("CRASHED (aborted)", kCrashed); }

DWORD WINAPI WatchSteps(void*) {
    for (;;) {
        Sleep(100);
        if (GetTickCount64() - stepBegan > allowed) Tell("HUNG", kHung);
    }
}

}  // namespace

NoteScope::NoteScope(const CallNote& note) {
    const std::size_t at = depth++;
    if (at < kDeepest) notes[at] = note;
}

NoteScope::~NoteScope() { --depth; }

void NoteScope::Value(const char* name) {
    const std::size_t at = depth - 1;
    if (at >= kDeepest) return;
    for (const char*& value : notes[at].values)
        if (value == nullptr) {
            value = name;
            return;
        }
}

std::string CallsUnderWay() {
    std::string text = "  step " + std::to_string(currentStep) + "\n";
    for (std::size_t i = 0; i < depth && i < kDeepest; ++i) {
        const CallNote& note = notes[i];
        text += std::string("  ") + note.object + "." + note.member + " " + note.way + "(";
        for (const char* value : note.values)
            if (value != nullptr) text += std::string("[") + value + "]";
        text += ")\n";
    }
    return text;
}

void NoteSequence(const std::string& sequence) {
    std::snprintf(sequenceName.data(), sequenceName.size(), "%s", sequence.c_str());
    NoteStep(0);
}

void NoteStep(std::size_t step) {
    currentStep = step;
    stepBegan = GetTickCount64();
}

void StartWatch(DWORD milliseconds) {
    allowed = milliseconds;
    stepBegan = GetTickCount64();
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    SetUnhandledExceptionFilter(Crashed);
    std::signal(SIGABRT, Aborted);
    CloseHandle(CreateThread(nullptr, 0, WatchSteps, nullptr, 0, nullptr));
}

}  // namespace dlv::hostile
