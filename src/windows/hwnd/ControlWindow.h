// The control's outer window and everything in it: it mirrors the form's state into windows and turns what a
// person does into calls of the control's handlers. One object serves one activation; it outlives its window,
// and is to be kept until no entry into the control is under way.
#pragma once

#include "windows/com/PlainWindows.h"

#include <memory>

#include "windows/com/WindowHost.h"
#include "windows/gdi/Zoom.h"

namespace dlv {

/// From which side Tab brings the focus into the control.
enum class FocusFrom { Before, Behind, Anywhere };
enum class Shown { Hidden, Visible };
enum class Live { Yes, No };

class ControlSurface;

class ControlWindow {
public:
    explicit ControlWindow(WindowHost& host, const Appearance& appearance = {});
    ~ControlWindow();
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;

    // Called from inside an entry. Each throws ComError when Windows fails it.

    /// Makes the windows, hidden; `place` in the parent's client pixels.
    void Create(HWND parent, const RECT& place);
    /// Moving to another size runs the control's own resize handler.
    void Move(const RECT& place);
    void Show(Shown shown);
    /// Ends the windows. Nothing happens when they are gone already.
    void Destroy();
    /// Brings the windows up to date with the form's state, in one go.
    void Flush();

    /// The outer window; null before Create and after its end.
    HWND Handle() const;
    bool HasFocus() const;
    /// Gives the focus to the control that had it last or to the first or last that takes it.
    void TakeFocus(FocusFrom from);
    /// For IOleInPlaceActiveObject::TranslateAccelerator. True when the control has used the key up; Tab at
    /// either end of the control is left to the container.
    bool TranslateKey(const MSG& message);
    /// Does what the letter's key does in the form; false when the form has none for it.
    bool PressAccessKey(char letter);

    /// Pops up the profile menu, at the mouse or below the button that the keyboard is on, and runs the
    /// handler of the item that a person chooses.
    void ShowProfileMenu();

    /// Inner size in twips; 0 without a window.
    double SurfaceWidth() const;
    double SurfaceHeight() const;
    int Dpi() const;
    Zoom CurrentZoom() const;
    /// Overrides the window's own resolution (tests).
    void SetDpi(int dpi);
    void SetAppearance(const Appearance& appearance);
    /// While the container does not want a person to use the control, its windows take no input.
    void SetLive(Live live);
    /// The name under which readers of windows announce the control.
    void SetName(const std::wstring& name);

private:
    std::unique_ptr<ControlSurface> surface_;
};

}  // namespace dlv
