// What the about box of the control says, in the language of the session.
#pragma once

#include <string_view>

#include "ui/CaptionCatalogue.h"
#include "ui/ModalOwner.h"
#include "ui/Outside.h"

namespace dlv {

/// Shows the about box and returns when it has closed. Of a language other than "EN", "PO" and "SP" it has
/// neither description nor rights line.
void ShowAboutBox(Outside& outside, Platform& platform, const CaptionCatalogue& captions,
                  std::string_view languageID, ModalOwner& owner);

}  // namespace dlv
