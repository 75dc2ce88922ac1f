#include "windows/com/Registration.h"

#include <oleauto.h>

#include <string>

#include "ClassTable.h"
#include "Version.h"
#include "windows/com/ComError.h"
#include "windows/com/Entry.h"
#include "windows/com/Module.h"

extern "C" {
// In oleaut32, but in no header of the tools.
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID id, WORD major, WORD minor, LCID locale, SYSKIND kind);
}

namespace dlv {

using Microsoft::WRL::ComPtr;

namespace {

constexpr wchar_t kClassesKey[] = L"Software\\Classes\\";
constexpr wchar_t kControlCategory[] = L"{40FC6ED4-2438-11CF-A3DB-080036F12502}";
constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

void CheckStatus(LSTATUS status) {
    if (status != ERROR_SUCCESS) throw ComError(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

class Keys {
public:
    explicit Keys(RegisterFor whom)
        : root_(whom == RegisterFor::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE) {}

    /// Sets a value of a key below the classes; a null name is the key's own value.
    void Set(const std::wstring& key, const wchar_t* name, const std::wstring& text) const {
        CheckStatus(RegSetKeyValueW(root_, (kClassesKey + key).c_str(), name, REG_SZ, text.c_str(),
                                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
    }
    void Remove(const std::wstring& key) const {
        const LSTATUS status = RegDeleteTreeW(root_, (kClassesKey + key).c_str());
        if (status == ERROR_FILE_NOT_FOUND) return;
        CheckStatus(status);
        // The tree's own root stays with some systems.
        RegDeleteKeyW(root_, (kClassesKey + key).c_str());
    }

private:
    HKEY root_;
};

std::wstring ClassKey(const RegisteredClass& entry) { return std::wstring(L"CLSID\\") + entry.clsid; }

void RegisterClassEntry(const Keys& keys, const RegisteredClass& entry, const std::wstring& file) {
    const std::wstring key = ClassKey(entry);
    const std::wstring versioned = entry.progId + std::wstring(L".") + kProgIdVersion;
    keys.Set(key, nullptr, entry.description);
    keys.Set(key + L"\\InprocServer32", nullptr, file);
    keys.Set(key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
    keys.Set(key + L"\\ProgID", nullptr, versioned);
    keys.Set(key + L"\\VersionIndependentProgID", nullptr, entry.progId);
    keys.Set(key + L"\\Programmable", nullptr, {});
    keys.Set(key + L"\\TypeLib", nullptr, kTypeLibraryId);
    keys.Set(key + L"\\Version", nullptr, kTypeLibraryVersion);
    if (entry.kind == ClassKind::Control) {
        keys.Set(key + L"\\Control", nullptr, {});
        keys.Set(key + L"\\MiscStatus", nullptr, L"0");
        keys.Set(key + L"\\MiscStatus\\1", nullptr, std::to_wstring(kControlMiscStatus));
        keys.Set(key + L"\\Implemented Categories\\" + kControlCategory, nullptr, {});
    }
    keys.Set(entry.progId, nullptr, entry.description);
    keys.Set(entry.progId + std::wstring(L"\\CLSID"), nullptr, entry.clsid);
    keys.Set(entry.progId + std::wstring(L"\\CurVer"), nullptr, versioned);
    keys.Set(versioned, nullptr, entry.description);
    keys.Set(versioned + L"\\CLSID", nullptr, entry.clsid);
}

void RegisterTypeLibrary(RegisterFor whom, std::wstring file) {
    std::wstring folder = file.substr(0, file.find_last_of(L'\\'));
    ComPtr<ITypeLib> library;
    Check(LoadTypeLibEx(file.c_str(), REGKIND_NONE, &library));
    Check(whom == RegisterFor::User ? RegisterTypeLibForUser(library.Get(), file.data(), folder.data())
                                    : RegisterTypeLib(library.Get(), file.data(), folder.data()));
}

void UnregisterTypeLibrary(RegisterFor whom) {
    GUID id{};
    Check(IIDFromString(kTypeLibraryId, &id));
    const auto remove = whom == RegisterFor::User ? UnRegisterTypeLibForUser : UnRegisterTypeLib;
    const HRESULT removed = remove(id, DLV_VERSION_MAJOR, DLV_VERSION_MINOR, LOCALE_NEUTRAL, kSystem);
    if (removed != TYPE_E_REGISTRYACCESS) Check(removed);
}

void KeepFirst(HRESULT& kept, HRESULT result) {
    if (SUCCEEDED(kept)) kept = result;
}

}  // namespace

HRESULT Register(RegisterFor whom) noexcept {
    return GuardMethod(IID_NULL, [&] {
        const std::wstring file = ModulePath();
        const Keys keys(whom);
        for (const RegisteredClass& entry : kRegisteredClasses) RegisterClassEntry(keys, entry, file);
        RegisterTypeLibrary(whom, file);
    });
}

HRESULT Unregister(RegisterFor whom) noexcept {
    const Keys keys(whom);
    HRESULT result = S_OK;
    for (const RegisteredClass& entry : kRegisteredClasses)
        KeepFirst(result, GuardMethod(IID_NULL, [&] {
                      keys.Remove(ClassKey(entry));
                      keys.Remove(entry.progId);
                      keys.Remove(entry.progId + std::wstring(L".") + kProgIdVersion);
                  }));
    KeepFirst(result, GuardMethod(IID_NULL, [&] { UnregisterTypeLibrary(whom); }));
    return result;
}

}  // namespace dlv
