// Running other programs from a test, and the files that lie beside the test.
#pragma once

#include <windows.h>

#include <string>

namespace dlv::test {

struct Ran {
    /// -1 when it could not be started or had to be ended.
    int status = -1;
    /// What it wrote to its standard output and error output.
    std::string output;
};

/// Runs a command line to its end, for at most a minute.
Ran RunProgram(std::wstring commandLine);

/// The full path of a file in the folder of the running test.
std::wstring Beside(const wchar_t* name);
std::wstring Quoted(const std::wstring& path);

}  // namespace dlv::test
