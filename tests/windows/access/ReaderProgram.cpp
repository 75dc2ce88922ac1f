#include "tests/windows/access/ReaderProgram.h"

#include <sstream>

#include "tests/windows/Support.h"

namespace dlv::test {

namespace {

constexpr ULONGLONG kMilliseconds = 60'000;

}  // namespace

ReaderProgram::ReaderProgram(HWND window, const std::string& commands) : window_(window) {
    wchar_t folder[MAX_PATH], path[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"dlv", 0, path);
    path_ = path;
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    output_ = CreateFileW(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                          CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY, nullptr);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = startup.hStdError = output_;
    std::wstring line = L'"' + container::BesideProgram(L"reader.exe") + L"\" " +
                        std::to_wstring(reinterpret_cast<std::uintptr_t>(window)) + L" " +
                        std::wstring(commands.begin(), commands.end());
    EXPECT_NE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                             &process_),
              FALSE);
}

ReaderProgram::~ReaderProgram() {
    TerminateProcess(process_.hProcess, 1);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
    CloseHandle(output_);
    DeleteFileW(path_.c_str());
}

void ReaderProgram::Answer(const std::function<bool()>& enough) const {
    const ULONGLONG end = GetTickCount64() + kMilliseconds;
    while (!Ended() && !enough()) {
        if (GetTickCount64() > end) {
            ADD_FAILURE() << "the program does not end";
            return;
        }
        // The property comes without a message.
        MsgWaitForMultipleObjectsEx(1, &process_.hProcess, 10, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        PumpMessages();
    }
}

void ReaderProgram::Meanwhile(const std::function<void()>& change) {
    Answer([&] { return GetPropW(window_, L"ReaderWaits") != nullptr; });
    ASSERT_FALSE(Ended()) << "the program does not wait";
    RemovePropW(window_, L"ReaderWaits");
    // Under Wine a thread learns from its next message that somebody listens.
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
    PumpMessages();
    change();
    PumpMessages();
    if (IsWindow(window_)) SetPropW(window_, L"ReaderMayGoOn", reinterpret_cast<HANDLE>(1));
}

Lines ReaderProgram::Said() {
    Answer([] { return false; });
    DWORD status = 1;
    GetExitCodeProcess(process_.hProcess, &status);
    std::string text(GetFileSize(output_, nullptr), '\0');
    SetFilePointer(output_, 0, nullptr, FILE_BEGIN);
    DWORD count = 0;
    ReadFile(output_, text.data(), static_cast<DWORD>(text.size()), &count, nullptr);
    text.resize(count);
    std::erase(text, '\r');
    EXPECT_EQ(status, 0u) << text;
    Lines lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

Lines Read(HWND window, const std::string& commands) { return ReaderProgram(window, commands).Said(); }

}  // namespace dlv::test
