#include "windows/hwnd/ControlWindow.h"

#include "windows/hwnd/ControlSurface.h"

namespace dlv {

ControlWindow::ControlWindow(WindowHost& host, const Appearance& appearance)
    : surface_(std::make_unique<ControlSurface>(host, appearance)) {}

ControlWindow::~ControlWindow() = default;

void ControlWindow::Create(HWND parent, const RECT& place) { surface_->Create(parent, place); }

void ControlWindow::Move(const RECT& place) {
    SetWindowPos(Handle(), nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlWindow::Show(Shown shown) { ShowWindow(Handle(), shown == Shown::Visible ? SW_SHOWNA : SW_HIDE); }

void ControlWindow::Destroy() { surface_->Destroy(); }

void ControlWindow::Flush() { surface_->Flush(); }

HWND ControlWindow::Handle() const { return surface_->Handle(); }

bool ControlWindow::HasFocus() const {
    const HWND focus = GetFocus();
    return Handle() != nullptr && focus != nullptr && (focus == Handle() || IsChild(Handle(), focus));
}

void ControlWindow::TakeFocus(FocusFrom from) { surface_->TakeFocus(from); }

bool ControlWindow::TranslateKey(const MSG& message) { return surface_->TranslateKey(message); }

bool ControlWindow::PressAccessKey(char letter) { return surface_->PressAccessKey(letter); }

void ControlWindow::ShowProfileMenu() { surface_->ShowProfileMenu(); }

double ControlWindow::SurfaceWidth() const { return surface_->SizeInTwips().width; }

double ControlWindow::SurfaceHeight() const { return surface_->SizeInTwips().height; }

int ControlWindow::Dpi() const { return surface_->Dpi(); }

Zoom ControlWindow::CurrentZoom() const { return surface_->CurrentZoom(); }

void ControlWindow::SetDpi(int dpi) { surface_->SetDpi(dpi); }

void ControlWindow::SetAppearance(const Appearance& appearance) { surface_->SetAppearance(appearance); }

void ControlWindow::SetLive(Live live) {
    const bool had = HasFocus();
    EnableWindow(Handle(), live == Live::Yes);
    // A disabled window that kept the focus would keep the keyboard to itself.
    if (live == Live::No && had) SetFocus(GetParent(Handle()));
}

void ControlWindow::SetName(const std::wstring& name) { SetWindowTextW(Handle(), name.c_str()); }

}  // namespace dlv
