#include "dlcheck/ThisComputer.h"

#include <windows.h>

#include <objbase.h>

#include "base/Text.h"

namespace dlv::dlcheck {

namespace {

/// The value of an environment variable or a path that a function fills a buffer with; empty when it fails.
template <class Fill>
std::wstring FilledBy(Fill fill) {
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = fill(text.data(), static_cast<DWORD>(text.size()));
        const bool fits = length < text.size();
        text.resize(length);
        if (fits) return text;
    }
}

std::wstring SystemFolder(Bitness bitness) {
    if (bitness == kOwnBitness) return FilledBy(GetSystemDirectoryW);
    if (bitness == Bitness::Bits32) return FilledBy(GetSystemWow64DirectoryW);
    // Where a 32-bit program sees the 64-bit system folder.
    return FilledBy(GetWindowsDirectoryW) + L"\\Sysnative";
}

bool IsFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool IsOnPath(const std::wstring& name) {
    const std::wstring folders =
        FilledBy([](wchar_t* buffer, DWORD size) { return GetEnvironmentVariableW(L"PATH", buffer, size); });
    return SearchPathW(folders.c_str(), name.c_str(), nullptr, 0, nullptr, nullptr) != 0;
}

std::wstring RegisteredPath(HKEY root, const std::wstring& classId, Bitness bitness) {
    const std::wstring key = L"Software\\Classes\\CLSID\\" + classId + L"\\InprocServer32";
    HKEY opened = nullptr;
    const REGSAM view = bitness == Bitness::Bits64 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY;
    if (RegOpenKeyExW(root, key.c_str(), 0, KEY_READ | view, &opened) != ERROR_SUCCESS) return {};
    wchar_t text[32768];
    DWORD size = sizeof text;
    // An expandable text comes expanded.
    const LSTATUS status = RegGetValueW(opened, nullptr, nullptr, RRF_RT_REG_SZ, nullptr, text, &size);
    RegCloseKey(opened);
    if (status != ERROR_SUCCESS) return {};
    std::wstring path = text;
    std::erase(path, L'"');
    return path;
}

std::string ErrorText(DWORD error) {
    wchar_t text[512];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                                  0, text, static_cast<DWORD>(std::size(text)), nullptr);
    while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
    return "error " + std::to_string(static_cast<long>(error)) + ", " + Narrow({text, length}) + ".";
}

/// What the library says when it is asked for the control.
std::optional<std::string> FactoryProblem(HMODULE library, const std::wstring& classId) {
    using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto entry = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
    if (entry == nullptr) return "it is no library of classes.";
    CLSID id{};
    IClassFactory* factory = nullptr;
    HRESULT result = CLSIDFromString(classId.c_str(), &id);
    if (SUCCEEDED(result)) result = entry(id, IID_IClassFactory, reinterpret_cast<void**>(&factory));
    if (FAILED(result))
        return "it has no class for the control (" + ErrorText(static_cast<DWORD>(result)) + ")";
    factory->Release();
    return std::nullopt;
}

}  // namespace

std::wstring Wide(std::string_view text) {
    const std::u16string wide = ToUtf16(text);
    return {wide.begin(), wide.end()};
}

std::string Narrow(std::wstring_view text) { return FromUtf16(std::u16string(text.begin(), text.end())); }

bool ThisComputer::HasBits64() const {
    BOOL emulated = FALSE;
    return kOwnBitness == Bitness::Bits64 || (IsWow64Process(GetCurrentProcess(), &emulated) && emulated);
}

FileContent ThisComputer::Read(const std::string& path) const {
    const HANDLE file = CreateFileW(Wide(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        const bool missing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
        return {missing ? Access::Missing : Access::Denied, {}};
    }
    FileContent content{Access::Given, {}};
    char piece[65536];
    DWORD count = 0;
    BOOL good = FALSE;
    while ((good = ReadFile(file, piece, sizeof piece, &count, nullptr)) != FALSE && count > 0)
        content.bytes.append(piece, count);
    CloseHandle(file);
    return good != FALSE ? content : FileContent{Access::Denied, {}};
}

std::optional<Registered> ThisComputer::Find(Bitness bitness) const {
    if (bitness == Bitness::Bits64 && !HasBits64()) return std::nullopt;
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        const std::wstring path = RegisteredPath(root, classId_, bitness);
        if (!path.empty()) return Registered{Narrow(path), root == HKEY_CURRENT_USER};
    }
    return std::nullopt;
}

bool ThisComputer::HasLibrary(const std::string& name, const std::string& folder, Bitness bitness) const {
    // Names that stand for several libraries of Windows; there are no files for them.
    if (FoldCase(name).starts_with("api-ms-") || FoldCase(name).starts_with("ext-ms-")) return true;
    const std::wstring wide = Wide(name);
    const std::wstring system = SystemFolder(bitness);
    return IsFile(Wide(folder) + wide) || (!system.empty() && IsFile(system + L'\\' + wide)) ||
           IsFile(FilledBy(GetWindowsDirectoryW) + L'\\' + wide) || IsOnPath(wide);
}

std::optional<std::string> ThisComputer::LoadingProblem(const std::string& path, Bitness bitness) const {
    if (bitness != kOwnBitness) return std::nullopt;
    const UINT before = SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    const HMODULE library = LoadLibraryExW(Wide(path).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    const DWORD error = GetLastError();
    SetErrorMode(before);
    if (library == nullptr) return ErrorText(error);
    std::optional<std::string> problem = FactoryProblem(library, classId_);
    FreeLibrary(library);
    return problem;
}

}  // namespace dlv::dlcheck
