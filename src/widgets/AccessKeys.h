// The letters that lead, with Alt, to the controls of a form. They are chosen from the captions themselves,
// so that every language has them and each stands in the text that it belongs to: no two alike, first letters
// of words before others, and only letters and digits that every keyboard has. A caption without any has no
// key.
#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <vector>

#include "widgets/Form.h"

namespace dlv {

/// A key for each caption, as many as possible.
std::vector<AccessKey> ChooseAccessKeys(std::span<const std::string> captions);

/// Gives the controls of a dialog their keys.
void GiveAccessKeys(std::initializer_list<CaptionControl*> controls);

/// What a key leads to: a control, or a tab (from 1) of a tab strip.
struct AccessTarget {
    char letter = 0;  // A to Z, 0 to 9
    Control* control = nullptr;
    int tab = 0;
};

/// What keys lead to now, among the form's controls that are visible and enabled.
std::vector<AccessTarget> AccessTargets(const Form& form);

}  // namespace dlv
