// A file that replaces another only when it is whole and on the disk.
#pragma once

#include "windows/com/PlainWindows.h"

#include <string>

#include "widgets/Output.h"
#include "windows/output/WaitCursor.h"

namespace dlv {

class SafeFile : public OutputFile {
public:
    /// Makes a new file beside `target`.
    explicit SafeFile(std::wstring target);
    ~SafeFile() override;
    SafeFile(const SafeFile&) = delete;
    SafeFile& operator=(const SafeFile&) = delete;

    void Write(std::string_view bytes) override;
    void Keep() override;

private:
    void Close();

    WaitCursor waiting_;
    std::wstring target_;
    std::wstring beside_;
    HANDLE file_ = INVALID_HANDLE_VALUE;
    bool kept_ = false;
};

}  // namespace dlv
