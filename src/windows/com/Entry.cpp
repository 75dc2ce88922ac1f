#include "windows/com/Entry.h"

#include <oleauto.h>
#include <wrl/client.h>

#include <new>

#include "base/RunTimeError.h"
#include "windows/com/ComError.h"
#include "windows/com/Strings.h"

namespace dlv {

using Microsoft::WRL::ComPtr;

HRESULT FailWithText(HRESULT result, REFIID iid, std::string_view text) noexcept try {
    ComPtr<ICreateErrorInfo> creator;
    if (FAILED(CreateErrorInfo(&creator))) return result;
    creator->SetGUID(iid);
    creator->SetSource(Bstr(L"DashlonViewer").Get());
    creator->SetDescription(Bstr(text).Get());
    ComPtr<IErrorInfo> info;
    if (SUCCEEDED(creator.As(&info))) SetErrorInfo(0, info.Get());
    return result;
} catch (...) {
    return result;
}

HRESULT GuardMethod(REFIID iid, BodyRef body) noexcept try {
    body();
    return S_OK;
} catch (const ComError& error) {
    return error.Result();
} catch (const RunTimeError& error) {
    return FailWithText(HostResult(error.Number()), iid, error.Description());
} catch (const ControlStopped&) {
    return S_OK;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
} catch (const std::length_error&) {
    return E_OUTOFMEMORY;
} catch (...) {
    return E_UNEXPECTED;
}

HRESULT MethodGuard::RunMethod(REFIID iid, BodyRef body) noexcept {
    if (!OnOwnThread()) return RPC_E_WRONG_THREAD;
    SetErrorInfo(0, nullptr);
    Keep();
    const HRESULT result = GuardMethod(iid, body);
    LetGo();
    return result;
}

/// One entry under way.
class EntryGate::Scope {
public:
    explicit Scope(EntryGate& gate) noexcept : gate_(gate) {
        gate_.Keep();
        ++gate_.depth_;
    }
    ~Scope() { gate_.Leave(); }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

private:
    EntryGate& gate_;
};

HRESULT EntryGate::RunMethod(REFIID iid, BodyRef body) noexcept {
    if (!OnOwnThread()) return RPC_E_WRONG_THREAD;
    SetErrorInfo(0, nullptr);
    HRESULT result = S_OK;
    ComPtr<IErrorInfo> info;
    {
        const Scope scope(*this);
        result = GuardMethod(iid, body);
        // What the windows do while they are brought up to date is not to cover it.
        if (FAILED(result)) GetErrorInfo(0, &info);
    }
    if (info) SetErrorInfo(0, info.Get());
    return result;
}

Outcome EntryGate::Window(BodyRef body) noexcept {
    if (!OnOwnThread()) return Outcome::Failed;
    const Scope scope(*this);
    return SUCCEEDED(GuardMethod(IID_NULL, body)) ? Outcome::Done : Outcome::Failed;
}

void EntryGate::Leave() noexcept {
    if (!updating_) {
        updating_ = true;
        GuardMethod(IID_NULL, [this] { BringUpToDate(); });
        updating_ = false;
    }
    if (depth_ == 1) GuardMethod(IID_NULL, [this] { AtRest(); });
    --depth_;
    LetGo();
}

}  // namespace dlv
