// The reading program while this one goes on: it reads windows that belong to this thread, which must handle
// its calls meanwhile.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace dlv::test {

using Lines = std::vector<std::string>;

class ReaderProgram {
public:
    /// Starts it on `window` with those commands.
    ReaderProgram(HWND window, const std::string& commands);
    ~ReaderProgram();
    ReaderProgram(const ReaderProgram&) = delete;
    ReaderProgram& operator=(const ReaderProgram&) = delete;

    /// Waits until the program does, makes the change, and lets it go on.
    void Meanwhile(const std::function<void()>& change);
    /// What it said, once it has ended.
    Lines Said();

private:
    /// Handles the program's calls until it ends or that is enough.
    void Answer(const std::function<bool()>& enough) const;
    bool Ended() const { return WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0; }

    HWND window_;
    std::wstring path_;
    HANDLE output_;
    PROCESS_INFORMATION process_{};
};

/// The lines that those commands lead to.
Lines Read(HWND window, const std::string& commands);

}  // namespace dlv::test
