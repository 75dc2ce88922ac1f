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
    if (mirror.Handle() == nullptr || !mirror.TakesFocus()) return false;
    for (const Control* control = &mirror.Shown(); control != nullptr; control = control->Container())
        if (!control->Visible() || !control->Enabled()) return false;
    return true;
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
    const auto place =
        std::ranges::find_if(mirrors_, [focused](const auto& mirror) { return mirror.get() == focused; });
    const std::ptrdiff_t start = place - mirrors_.begin();
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
