// The one way into the control from outside. Every COM method, window procedure, timer and return from a
// message loop of the host's or the system's runs inside an entry. An entry holds the control alive, counts
// how deep entries are nested, lets no exception out, brings the windows up to date when it is left, and
// gives the control the chance to tear down what was let go meanwhile once the outermost one is left.
#pragma once

#include "windows/com/PlainWindows.h"

#include <cstdint>
#include <string_view>
#include <type_traits>

#include "base/Trap.h"

namespace dlv {

/// Runs a COM method's body. What it throws becomes the result: a run-time error 0x800A0000 plus its number
/// with its text as error information, a ComError its own result, lack of memory E_OUTOFMEMORY.
HRESULT GuardMethod(REFIID iid, BodyRef body) noexcept;

/// The result under which a run-time error reaches a host.
constexpr HRESULT HostResult(std::int32_t number) {
    return static_cast<HRESULT>(0x800A0000u + static_cast<std::uint32_t>(number));
}

/// Sets the thread's error information and gives `result` back.
HRESULT FailWithText(HRESULT result, REFIID iid, std::string_view text) noexcept;

/// The guard of one object that belongs to the thread that made it.
class MethodGuard {
public:
    MethodGuard() noexcept : thread_(GetCurrentThreadId()) {}
    virtual ~MethodGuard() = default;
    MethodGuard(const MethodGuard&) = delete;
    MethodGuard& operator=(const MethodGuard&) = delete;

    /// A COM method: the body returns an HRESULT or nothing (S_OK). RPC_E_WRONG_THREAD, and the body not
    /// run, on any thread but the object's own.
    template <class Body>
    HRESULT Method(REFIID iid, Body&& body) noexcept {
        HRESULT result = S_OK;
        const HRESULT guarded = RunMethod(iid, [&] {
            if constexpr (std::is_void_v<std::invoke_result_t<Body&>>) {
                body();
            } else {
                result = body();
            }
        });
        return FAILED(guarded) ? guarded : result;
    }

    bool OnOwnThread() const noexcept { return GetCurrentThreadId() == thread_; }

protected:
    /// Keeps the object alive for a call, and lets go of it again: the last thing a call does, after which
    /// the object may be gone.
    virtual void Keep() noexcept = 0;
    virtual void LetGo() noexcept = 0;
    virtual HRESULT RunMethod(REFIID iid, BodyRef body) noexcept;

private:
    const DWORD thread_;
};

/// The door of one control.
class EntryGate : public MethodGuard {
public:
    /// Anything that Windows calls and that has nobody to tell of a failure: a window or dialog procedure, a
    /// timer, a hook. `Failed` when the body was cut short.
    Outcome Window(BodyRef body) noexcept;

    /// How many entries are under way, one inside the other. What may not happen while the control's own
    /// code is on the stack waits for 0.
    int Depth() const noexcept { return depth_; }

protected:
    /// Every entry ends with this, unless one that is under way inside it is just doing so: brings the
    /// windows up to date with the state.
    virtual void BringUpToDate() = 0;
    /// The outermost entry is being left.
    virtual void AtRest() = 0;

private:
    class Scope;
    HRESULT RunMethod(REFIID iid, BodyRef body) noexcept override;
    void Leave() noexcept;

    int depth_ = 0;
    bool updating_ = false;
};

}  // namespace dlv
