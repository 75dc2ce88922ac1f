#include "windows/hwnd/Clipboard.h"

#include <cstring>

#include "windows/com/ComError.h"
#include "windows/com/Strings.h"

namespace dlv {

namespace {

constexpr int kAttempts = 5;
constexpr DWORD kPause = 10;  // milliseconds

/// The clipboard, open while it lives. Other programs look at each new content for a moment.
class ClipboardScope {
public:
    explicit ClipboardScope(HWND owner) {
        for (int attempt = 0; attempt < kAttempts && !open_; ++attempt) {
            if (attempt > 0) Sleep(kPause);
            open_ = OpenClipboard(owner) != 0;
        }
    }
    ~ClipboardScope() {
        if (open_) CloseClipboard();
    }
    ClipboardScope(const ClipboardScope&) = delete;
    ClipboardScope& operator=(const ClipboardScope&) = delete;
    bool IsOpen() const { return open_; }

private:
    bool open_ = false;
};

/// Memory as the clipboard takes it.
class SharedText {
public:
    explicit SharedText(const std::wstring& text) {
        const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
        memory_ = GlobalAlloc(GMEM_MOVEABLE, bytes);
        void* const place = memory_ == nullptr ? nullptr : GlobalLock(memory_);
        if (place == nullptr) RaiseLastError();
        std::memcpy(place, text.c_str(), bytes);
        GlobalUnlock(memory_);
    }
    ~SharedText() {
        if (memory_ != nullptr) GlobalFree(memory_);
    }
    SharedText(const SharedText&) = delete;
    SharedText& operator=(const SharedText&) = delete;
    /// The open clipboard owns the memory from then on.
    bool Give() {
        if (SetClipboardData(CF_UNICODETEXT, memory_) == nullptr) return false;
        memory_ = nullptr;
        return true;
    }

private:
    HGLOBAL memory_ = nullptr;
};

}  // namespace

bool CopyToClipboard(HWND owner, const std::string& text) {
    SharedText shared(Wide(text));
    const ClipboardScope clipboard(owner);
    return clipboard.IsOpen() && EmptyClipboard() && shared.Give();
}

}  // namespace dlv
