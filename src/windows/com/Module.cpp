#include "windows/com/Module.h"

#include <oleauto.h>

#include <mutex>

#include "windows/com/ComError.h"

namespace dlv {

using Microsoft::WRL::ComPtr;

namespace {

HINSTANCE instance = nullptr;

// Released with the last lock, so that nothing is left to release while the library is being unloaded.
std::mutex guard;
long locks = 0;
ComPtr<ITypeLib> typeLibrary;

}  // namespace

void SetModuleInstance(HINSTANCE newInstance) noexcept { instance = newInstance; }

HINSTANCE ModuleInstance() noexcept { return instance; }

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(instance, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) RaiseLastError();
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

ModuleLock::ModuleLock() noexcept { Lock(); }

ModuleLock::~ModuleLock() { Unlock(); }

void ModuleLock::Lock() noexcept {
    const std::lock_guard lock(guard);
    ++locks;
}

void ModuleLock::Unlock() noexcept {
    ComPtr<ITypeLib> unused;
    const std::lock_guard lock(guard);
    if (--locks == 0) unused = std::move(typeLibrary);
}

bool ModuleLock::AnyHeld() noexcept {
    const std::lock_guard lock(guard);
    return locks > 0;
}

ComPtr<ITypeLib> TypeLibrary() {
    const std::lock_guard lock(guard);
    if (!typeLibrary) Check(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &typeLibrary));
    return typeLibrary;
}

ComPtr<ITypeInfo> TypeInfoOf(REFGUID guid) {
    ComPtr<ITypeInfo> info;
    Check(TypeLibrary()->GetTypeInfoOfGuid(guid, &info));
    return info;
}

}  // namespace dlv
