// The windows of a form: one for each of its controls, made once and from then on brought up to date with the
// state. Control by control the difference is applied, all moves together, and nothing is painted twice.
#pragma once

#include "windows/com/PlainWindows.h"

#include <memory>
#include <vector>

#include "widgets/AccessKeys.h"
#include "widgets/Form.h"
#include "windows/com/WindowHost.h"
#include "windows/gdi/ControlPainter.h"
#include "windows/hwnd/FormListener.h"

namespace dlv {

class Mirror;
class ToolTips;

enum class Direction { Forward, Backward };

/// The letter, in upper case, or digit that a character or a virtual key stands for; 0 for any other.
char AccessLetter(WPARAM character);
char AccessLetterOfKey(WPARAM key);

class FormWindows {
public:
    FormWindows(WindowHost& host, Form& form, FormListener& listener);
    ~FormWindows();
    FormWindows(const FormWindows&) = delete;
    FormWindows& operator=(const FormWindows&) = delete;

    /// Makes the windows inside `parent`. Controls without a container stand on `parent` itself.
    void Make(HWND parent, const Appearance& appearance, Scale scale);
    /// Ends the windows; the objects stay, since one of them may be under way.
    void Destroy();
    void Flush();
    /// Fonts and measures for another resolution or font, and the system's colours as they are now.
    void SetLook(const Appearance& appearance, Scale scale);

    /// The control's window; null for one that shows none.
    Mirror* Find(const Control& control) const;
    /// The mirror whose window has the focus, or holds the window that has it.
    Mirror* Focused() const;
    /// To the next control that takes the focus; false when there is none in that direction.
    bool MoveFocus(Direction direction);
    /// To the first or last control that takes the focus.
    bool TakeFocus(Direction direction);
    /// To the control that had the focus last; before any had it, to the one named for that.
    bool TakeLastFocus();
    void SetFirstFocus(const Control& control) { lastFocus_ = &control; }
    /// Arrow keys between option buttons of one group. True when the key was one.
    bool MoveInGroup(int key);
    /// Enter on a button presses it. True when the focus is on one.
    bool PressFocusedButton();
    /// Goes to what the letter's key leads to, and presses or chooses it: a label leads to the control behind
    /// it. False when no key of the form has that letter.
    bool PressAccessKey(char letter);

    // For the mirrors.

    WindowHost& Host() const { return host_; }
    FormListener& Listener() const { return listener_; }
    const Look& Kept() const { return *look_; }
    /// While state is written into windows, what they report is an echo.
    bool Applying() const { return applying_; }
    HWND Parent() const { return parent_; }
    HWND TipWindow() const;
    /// To be called before the windows that the tips belong to are destroyed: they hold something of each.
    void EndToolTips();
    /// The ground that a control stands on.
    COLORREF Ground(const Control& control) const;
    HBRUSH GroundBrush(const Control& control) const;
    /// Declares a frame to lie on a tab strip's page.
    void SetPage(const Frame& frame) { pages_.push_back(&frame); }
    /// Declares labels to be shown in one size.
    void SetGroups(std::vector<LabelGroup> groups) { groups_ = std::move(groups); }
    /// The labels that are shown in one size with it, itself among them; none for one by itself.
    const LabelGroup& GroupOf(const Label& label) const;
    /// A number for a window that no other of the form has.
    int NextId() { return nextId_++; }
    /// The name under which readers of the screen announce a control that has no text of its own.
    std::string NameOf(const Control& control) const;
    void FocusChanged(Mirror& mirror, HWND other, bool gained);

private:
    class ApplyScope;
    HWND ParentWindow(const Control& control) const;
    bool CanTakeFocus(const Mirror& mirror) const;
    bool IsInside(HWND window) const;
    bool OnPage(const Control& control) const;
    void Apply(std::vector<Mirror*>& changed);
    void PlaceAll(const std::vector<Mirror*>& changed);
    void ReleaseFocusOf(const Mirror& mirror);
    std::ptrdiff_t PlaceOf(const Mirror& mirror) const;
    bool FocusFrom(std::ptrdiff_t start, Direction direction);
    void GoTo(const AccessTarget& target);
    void MakeGround();

    WindowHost& host_;
    Form& form_;
    FormListener& listener_;
    HWND parent_ = nullptr;
    std::unique_ptr<Look> look_;
    std::unique_ptr<ToolTips> tips_;
    std::vector<std::unique_ptr<Mirror>> mirrors_;
    std::vector<const Frame*> pages_;
    std::vector<LabelGroup> groups_;
    Brush groundBrush_;
    Brush pageBrush_;
    COLORREF page_ = 0;
    const Control* lastFocus_ = nullptr;
    int nextId_ = 1000;
    bool applying_ = false;
};

}  // namespace dlv
