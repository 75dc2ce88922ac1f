#include "windows/hwnd/CommonControls.h"

#include <commctrl.h>

#include "windows/com/ComError.h"

namespace dlv {

namespace {

class ControlsContext {
public:
    ControlsContext() {
        ACTCTXW wanted{};
        wanted.cbSize = sizeof wanted;
        wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
        wanted.lpResourceName = ISOLATIONAWARE_MANIFEST_RESOURCE_ID;
        wanted.hModule = OwnModule();
        context_ = CreateActCtxW(&wanted);
    }
    ~ControlsContext() {
        if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
    }
    ControlsContext(const ControlsContext&) = delete;
    ControlsContext& operator=(const ControlsContext&) = delete;

    HANDLE Get() const { return context_; }

private:
    HANDLE context_ = INVALID_HANDLE_VALUE;
};

const ControlsContext& Context() {
    static const ControlsContext context;
    return context;
}

/// Whether the controls' context is the active one of this thread, and which one was before it.
thread_local bool inControls = false;
thread_local HANDLE hostContext = nullptr;

/// The themed library is loaded by name inside the context: an import would be bound to the host's version.
/// It stays loaded, since a library is not to free others while it is unloaded itself.
HMODULE LoadControls() {
    const HMODULE library = LoadLibraryW(L"comctl32.dll");
    if (library == nullptr) RaiseLastError();
    const INITCOMMONCONTROLSEX classes{
        sizeof classes, ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES | ICC_STANDARD_CLASSES};
    const FARPROC entry = GetProcAddress(library, "InitCommonControlsEx");
    using Initialise = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
    if (entry != nullptr) reinterpret_cast<Initialise>(reinterpret_cast<void*>(entry))(&classes);
    return library;
}

}  // namespace

ControlsScope::ControlsScope() : hostBefore_(hostContext), before_(inControls) {
    const HANDLE context = Context().Get();
    if (!inControls && GetCurrentActCtx(&host_)) hostContext = host_;
    active_ = context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &cookie_);
    inControls = true;
}

ControlsScope::~ControlsScope() {
    if (active_) DeactivateActCtx(0, cookie_);
    inControls = before_;
    hostContext = hostBefore_;
    if (host_ != nullptr) ReleaseActCtx(host_);
}

HostScope::HostScope() : before_(inControls) {
    active_ = inControls && ActivateActCtx(hostContext, &cookie_);
    inControls = false;
}

HostScope::~HostScope() {
    if (active_) DeactivateActCtx(0, cookie_);
    inControls = before_;
}

void NeedCommonControls() {
    static const HMODULE library = LoadControls();
    static_cast<void>(library);
}

HINSTANCE OwnModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&OwnModule), &module);
    return module;
}

}  // namespace dlv
