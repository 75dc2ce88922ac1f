// dlcheck says in one sentence why the control does not load, or that it does and from where: see kUsage.
#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

#include "ClassTable.h"
#include "dlcheck/Diagnosis.h"
#include "dlcheck/ThisComputer.h"

namespace {

using namespace dlv::dlcheck;

constexpr int kLoads = 0, kDoesNotLoad = 1, kMisused = 2;
constexpr wchar_t kUsage[] =
    L"dlcheck PROGRAM.exe   why the control does not load for this program, or from where it does\n"
    L"dlcheck FILE.ocx      whether this copy of the control loads\n"
    L"dlcheck               what is registered for programs of dlcheck's own kind, 32- or 64-bit\n"
    L"Exit status: 0 it loads, 1 it does not, 2 for wrong use.\n";

std::vector<std::wstring> Arguments() {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> arguments(words + (count > 0 ? 1 : 0), words + count);
    LocalFree(words);
    return arguments;
}

/// As it is to a console, as UTF-8 to anything else.
void Write(DWORD stream, const std::wstring& text) {
    const HANDLE output = GetStdHandle(stream);
    DWORD mode = 0, written = 0;
    if (GetConsoleMode(output, &mode) != FALSE) {
        WriteConsoleW(output, text.c_str(), static_cast<DWORD>(text.size()), &written, nullptr);
        return;
    }
    const std::string bytes = Narrow(text);
    WriteFile(output, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

std::string FullPath(const std::wstring& path) {
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return Narrow(full);
}

}  // namespace

int main() {
    const std::vector<std::wstring> arguments = Arguments();
    const bool help = !arguments.empty() && (arguments[0] == L"--help" || arguments[0] == L"/?");
    if (help || arguments.size() > 1) {
        Write(help ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE, kUsage);
        return help ? kLoads : kMisused;
    }
    const ThisComputer computer(dlv::kControlClassId);
    const Control control{Narrow(dlv::kAssemblyName), Narrow(dlv::kControlFileName),
                          Narrow(dlv::kControlClassId)};
    const Diagnosis diagnosis = arguments.empty() ? CheckRegistration(computer, control, kOwnBitness)
                                                  : CheckFile(computer, control, FullPath(arguments[0]));
    Write(STD_OUTPUT_HANDLE, Wide(diagnosis.sentence) + L"\n");
    return diagnosis.loads ? kLoads : kDoesNotLoad;
}
