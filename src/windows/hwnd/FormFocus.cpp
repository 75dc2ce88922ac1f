// The focus among the windows of a form: the order of its controls, not that of the windows, decides.
#include <algorithm>

#include "windows/hwnd/FormWindows.h"
#include "windows/hwnd/Mirror.h"

namespace dlv {

bool FormWindows::IsInside(HWND window) const {
    return window != nullptr && (window == parent_ || IsChild(parent_, window));
}

// The state is asked, not the windows: those may be about to follow it.
bool FormWindows::CanTakeFocus(const Mirror& mirror) const {
    return mirror.Handle() != nullptr && mirror.TakesFocus() && mirror.Shown().Usable();
}

Mirror* FormWindows::Focused() const {
    const HWND focus = GetFocus();
    if (focus == nullptr) return nullptr;
    for (auto mirror = mirrors_.rbegin(); mirror != mirrors_.rend(); ++mirror) {
        const HWND window = (*mirror)->Handle();
        if (window != nullptr && (window == focus || IsChild(window, focus))) return mirror->get();
    }
    return nullptr;
}

std::ptrdiff_t FormWindows::PlaceOf(const Mirror& mirror) const {
    return std::ranges::find_if(mirrors_, [&](const auto& other) { return other.get() == &mirror; }) -
           mirrors_.begin();
}

bool FormWindows::FocusFrom(std::ptrdiff_t start, Direction direction) {
    const std::ptrdiff_t step = direction == Direction::Forward ? 1 : -1;
    for (std::ptrdiff_t i = start; i >= 0 && i < std::ssize(mirrors_); i += step) {
        const Mirror& mirror = *mirrors_[static_cast<std::size_t>(i)];
        if (!CanTakeFocus(mirror)) continue;
        SetFocus(mirror.Handle());
        return true;
    }
    return false;
}

bool FormWindows::MoveFocus(Direction direction) {
    const Mirror* focused = Focused();
    if (focused == nullptr) return TakeFocus(direction);
    const std::ptrdiff_t start = PlaceOf(*focused);
    return FocusFrom(direction == Direction::Forward ? start + 1 : start - 1, direction);
}

bool FormWindows::TakeFocus(Direction direction) {
    return FocusFrom(direction == Direction::Forward ? 0 : std::ssize(mirrors_) - 1, direction);
}

bool FormWindows::TakeLastFocus() {
    const Mirror* last = lastFocus_ == nullptr ? nullptr : Find(*lastFocus_);
    if (last == nullptr || !CanTakeFocus(*last)) return TakeFocus(Direction::Forward);
    SetFocus(last->Handle());
    return true;
}

bool FormWindows::MoveInGroup(int key) {
    const bool back = key == VK_LEFT || key == VK_UP;
    if (!back && key != VK_RIGHT && key != VK_DOWN) return false;
    Mirror* focused = Focused();
    if (focused == nullptr || dynamic_cast<const OptionButton*>(&focused->Shown()) == nullptr) return false;
    for (const auto& mirror : mirrors_) {
        Control& other = mirror->Shown();
        if (mirror.get() == focused || other.Name() != focused->Shown().Name()) continue;
        if (!mirror->Shown().Visible() || !mirror->Shown().Enabled()) return true;
        listener_.Clicked(other);
        if (mirror->Handle() != nullptr) SetFocus(mirror->Handle());
        return true;
    }
    return true;
}

bool FormWindows::PressFocusedButton() {
    Mirror* focused = Focused();
    if (focused == nullptr || dynamic_cast<const Button*>(&focused->Shown()) == nullptr) return false;
    listener_.Clicked(focused->Shown());
    return true;
}

char AccessLetter(WPARAM character) {
    const bool lower = character >= 'a' && character <= 'z';
    return AccessLetterOfKey(lower ? character - 'a' + 'A' : character);
}

char AccessLetterOfKey(WPARAM key) {
    const bool known = (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
    return known ? static_cast<char>(key) : '\0';
}

bool FormWindows::PressAccessKey(char letter) {
    for (const AccessTarget& target : AccessTargets(form_)) {
        if (target.letter != letter) continue;
        SendMessageW(parent_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
        GoTo(target);
        return true;
    }
    return false;
}

void FormWindows::GoTo(const AccessTarget& target) {
    const Mirror* mirror = Find(*target.control);
    if (mirror == nullptr) return;
    const auto* label = dynamic_cast<const Label*>(target.control);
    if (label != nullptr && !label->Clickable()) {
        FocusFrom(PlaceOf(*mirror) + 1, Direction::Forward);
        return;
    }
    if (label == nullptr) SetFocus(mirror->Handle());
    if (auto* tabs = dynamic_cast<TabStrip*>(target.control)) {
        tabs->SelectTab(target.tab);
        listener_.TabChosen(*tabs);
    } else {
        listener_.Clicked(*target.control);
    }
}

void FormWindows::FocusChanged(Mirror& mirror, HWND other, bool gained) {
    if (gained) {
        lastFocus_ = &mirror.Shown();
        if (!IsInside(other)) listener_.FocusEntered();
        listener_.FocusTaken(mirror.Shown());
    } else if (!IsInside(other)) {
        listener_.FocusLeft();
    }
}

}  // namespace dlv
