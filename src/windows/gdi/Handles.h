// Owners of what GDI hands out, and scopes for what is selected or saved in a device context.
#pragma once

#include "windows/com/PlainWindows.h"

#include <utility>

#include "windows/com/ComError.h"

namespace dlv {

/// Owns one GDI object.
template <class Handle>
class GdiObject {
public:
    GdiObject() = default;
    /// Throws ComError for a null handle: GDI's way to say that it has no more.
    explicit GdiObject(Handle handle) : handle_(handle) {
        if (handle_ == nullptr) throw ComError(E_OUTOFMEMORY);
    }
    ~GdiObject() {
        if (handle_ != nullptr) DeleteObject(handle_);
    }
    GdiObject(GdiObject&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    GdiObject& operator=(GdiObject&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }

    Handle Get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }

private:
    Handle handle_ = nullptr;
};

using Font = GdiObject<HFONT>;
using Brush = GdiObject<HBRUSH>;
using Pen = GdiObject<HPEN>;
using Bitmap = GdiObject<HBITMAP>;
using Region = GdiObject<HRGN>;

/// Owns a device context in memory.
class MemoryDc {
public:
    explicit MemoryDc(HDC like = nullptr) : dc_(CreateCompatibleDC(like)) {
        if (dc_ == nullptr) throw ComError(E_OUTOFMEMORY);
    }
    ~MemoryDc() { DeleteDC(dc_); }
    MemoryDc(const MemoryDc&) = delete;
    MemoryDc& operator=(const MemoryDc&) = delete;
    HDC Get() const { return dc_; }

private:
    HDC dc_;
};

/// Selects an object while it lives.
class SelectScope {
public:
    SelectScope(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
    ~SelectScope() { SelectObject(dc_, before_); }
    SelectScope(const SelectScope&) = delete;
    SelectScope& operator=(const SelectScope&) = delete;

private:
    HDC dc_;
    HGDIOBJ before_;
};

/// Puts everything selected and set in a device context back at its end.
class SaveScope {
public:
    explicit SaveScope(HDC dc) : dc_(dc), saved_(SaveDC(dc)) {}
    ~SaveScope() { RestoreDC(dc_, saved_); }
    SaveScope(const SaveScope&) = delete;
    SaveScope& operator=(const SaveScope&) = delete;

private:
    HDC dc_;
    int saved_;
};

}  // namespace dlv
