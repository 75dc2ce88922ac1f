// The hand of a person: keys and clicks as they come from keyboard and mouse, through the system's own queue
// of input. After each the program answers its messages until none is left.
#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <string>

namespace dlv::player {

class Hand {
public:
    /// `translate` gets every message before it is dispatched, and says whether it was used up.
    explicit Hand(std::function<bool(MSG&)> translate) : translate_(std::move(translate)) {}

    /// The left button at a point of the screen; a little beside it when it was just there, so that two
    /// clicks of their own are no double-click.
    void Click(POINT point, int times = 1);
    /// In the middle of a window.
    void Click(HWND window);
    /// A virtual key, `times` times, while others are held down.
    void Press(WORD key, std::initializer_list<WORD> held = {}, int times = 1);
    static POINT MiddleOf(HWND window);

    // For whoever answers the messages that are to come.

    static void PressForNext(WORD key, std::initializer_list<WORD> held = {});
    static void TypeForNext(const std::string& text);
    void ClickForNext(POINT point);

    /// Answers messages until none waits.
    void Settle();

private:
    void Aim(POINT point);

    std::function<bool(MSG&)> translate_;
    POINT last_{};
};

}  // namespace dlv::player
