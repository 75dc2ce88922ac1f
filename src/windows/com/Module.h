// The library as a whole: its handle, whether anything of it is in use, and its type library.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oaidl.h>
#include <wrl/client.h>

#include <string>

namespace dlv {

/// Set once, when the library is loaded.
void SetModuleInstance(HINSTANCE instance) noexcept;
HINSTANCE ModuleInstance() noexcept;
/// The full path of the library's own file.
std::wstring ModulePath();

/// Holds the library in use while it lives: every object has one.
class ModuleLock {
public:
    ModuleLock() noexcept;
    ~ModuleLock();
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;

    /// For IClassFactory::LockServer.
    static void Lock() noexcept;
    static void Unlock() noexcept;
    static bool AnyHeld() noexcept;
};

/// The type library inside the library's file, registered or not. Only while something holds a ModuleLock.
Microsoft::WRL::ComPtr<ITypeLib> TypeLibrary();
/// Its description of an interface or class.
Microsoft::WRL::ComPtr<ITypeInfo> TypeInfoOf(REFGUID guid);

}  // namespace dlv
