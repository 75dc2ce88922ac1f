#include "windows/output/SafeFile.h"

#include <algorithm>

#include "base/RunTimeError.h"

namespace dlv {

namespace {

constexpr int kMostNames = 100;
constexpr std::size_t kMostAtOnce = std::size_t{1} << 20;

}  // namespace

SafeFile::SafeFile(std::wstring target) : target_(std::move(target)) {
    for (int i = 1; i <= kMostNames && file_ == INVALID_HANDLE_VALUE; ++i) {
        beside_ = target_ + L"." + std::to_wstring(i) + L".part";
        file_ = CreateFileW(beside_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                            nullptr);
        if (file_ == INVALID_HANDLE_VALUE && GetLastError() != ERROR_FILE_EXISTS) break;
    }
    if (file_ == INVALID_HANDLE_VALUE) RaiseDevice();
}

SafeFile::~SafeFile() {
    Close();
    if (!kept_) DeleteFileW(beside_.c_str());
}

void SafeFile::Close() {
    if (file_ != INVALID_HANDLE_VALUE) CloseHandle(file_);
    file_ = INVALID_HANDLE_VALUE;
}

void SafeFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const DWORD count = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
        DWORD written = 0;
        if (!WriteFile(file_, bytes.data(), count, &written, nullptr) || written == 0) RaiseDevice();
        bytes.remove_prefix(written);
    }
}

void SafeFile::Keep() {
    const bool onDisk = FlushFileBuffers(file_) != FALSE;
    Close();
    if (!onDisk ||
        !MoveFileExW(beside_.c_str(), target_.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        RaiseDevice();
    kept_ = true;
}

}  // namespace dlv
