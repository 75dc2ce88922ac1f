// The small sample host as its user sees it: a program of its own, looked at and clicked on from outside.
#include <map>

#include "hosts/container/WindowList.h"
#include "tests/windows/Support.h"

namespace dlv::test {
namespace {

std::wstring TextOfWindow(HWND window) {
    wchar_t text[256] = L"";
    SendMessageW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
    return text;
}

/// The texts of all windows inside that are to be seen.
std::multimap<std::wstring, HWND> TextsInside(HWND window) {
    std::multimap<std::wstring, HWND> texts;
    for (const HWND child : container::WindowsInside(window))
        if (IsWindowVisible(child)) texts.emplace(TextOfWindow(child), child);
    return texts;
}

class RunningProgram {
public:
    explicit RunningProgram(std::wstring path) {
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        EXPECT_NE(CreateProcessW(path.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                 &startup, &process_),
                  FALSE);
    }
    ~RunningProgram() {
        TerminateProcess(process_.hProcess, 1);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    /// Its exit status once it has ended.
    DWORD End() const {
        DWORD status = STILL_ACTIVE;
        WaitForSingleObject(process_.hProcess, 10000);
        GetExitCodeProcess(process_.hProcess, &status);
        return status;
    }

private:
    PROCESS_INFORMATION process_{};
};

TEST(SampleHost, ShowsItsFiguresAnswersTheControlAndEndsWell) {
    const RunningProgram program(container::BesideProgram(L"figures.exe"));
    HWND window = nullptr;
    ASSERT_TRUE(PumpUntil([&] { return (window = FindWindowW(L"FiguresHost", nullptr)) != nullptr; }));
    // Four technicians; nine orders done in twelve hours, seven open for eight.
    const auto shown = [&](const wchar_t* text) { return TextsInside(window).count(text) > 0; };
    ASSERT_TRUE(PumpUntil([&] { return shown(L"4") && shown(L"0.75") && shown(L"0.88"); }));
    EXPECT_TRUE(shown(L"Default")) << "the current profile";

    const auto technicians = TextsInside(window).find(L"4")->second;
    PostMessageW(technicians, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
    PostMessageW(technicians, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
    EXPECT_TRUE(PumpUntil([&] { return TextOfWindow(window) == L"Asked for the USER records of 11"; }));

    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(program.End(), 0u);
}

}  // namespace
}  // namespace dlv::test
