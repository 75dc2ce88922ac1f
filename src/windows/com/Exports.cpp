// The five functions through which the system uses the library.
#include <windows.h>

#include <olectl.h>

#include "windows/com/Classes.h"
#include "windows/com/Module.h"
#include "windows/com/Registration.h"
#include "windows/com/Unloading.h"

using dlv::RegisterFor;

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID processEnds) {
    if (reason == DLL_PROCESS_ATTACH) {
        dlv::SetModuleInstance(instance);
        DisableThreadLibraryCalls(instance);
    }
    if (reason == DLL_PROCESS_DETACH && processEnds == nullptr) dlv::NoteUnloading();
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID id, REFIID iid, void** factory) {
    return dlv::GetFactory(id, iid, factory);
}

STDAPI DllCanUnloadNow() { return dlv::ModuleLock::AnyHeld() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() { return dlv::Register(RegisterFor::Machine); }

STDAPI DllUnregisterServer() { return dlv::Unregister(RegisterFor::Machine); }

/// "user" is for this user alone, as regsvr32 /n /i:user asks for it; nothing is for the machine.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    RegisterFor whom = RegisterFor::Machine;
    if (commandLine != nullptr && *commandLine != L'\0') {
        if (_wcsicmp(commandLine, L"user") != 0) return E_INVALIDARG;
        whom = RegisterFor::User;
    }
    return install != FALSE ? dlv::Register(whom) : dlv::Unregister(whom);
}
