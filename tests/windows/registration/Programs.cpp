#include "tests/windows/registration/Programs.h"

#include <gtest/gtest.h>

#include "hosts/container/Library.h"

namespace dlv::test {

namespace {

constexpr DWORD kMilliseconds = 60000;

/// A file that is gone when it is closed.
HANDLE MakeOutputFile() {
    wchar_t folder[MAX_PATH], path[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"dlv", 0, path);
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(path, GENERIC_READ | GENERIC_WRITE,
                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inherited, CREATE_ALWAYS,
                       FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
}

std::string ReadAll(HANDLE file) {
    std::string text(GetFileSize(file, nullptr), '\0');
    SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    DWORD count = 0;
    ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &count, nullptr);
    text.resize(count);
    std::erase(text, '\r');
    return text;
}

}  // namespace

Ran RunProgram(std::wstring commandLine) {
    Ran run;
    const HANDLE output = MakeOutputFile();
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = startup.hStdError = output;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                       &process) != FALSE) {
        DWORD status = 0;
        if (WaitForSingleObject(process.hProcess, kMilliseconds) != WAIT_OBJECT_0) {
            TerminateProcess(process.hProcess, 1);
        } else if (GetExitCodeProcess(process.hProcess, &status) != FALSE) {
            run.status = static_cast<int>(status);
        }
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    run.output = ReadAll(output);
    CloseHandle(output);
    return run;
}

std::wstring Beside(const wchar_t* name) { return container::BesideProgram(name); }

std::wstring Quoted(const std::wstring& path) { return L'"' + path + L'"'; }

}  // namespace dlv::test
