// The system's dialog in which a person chooses a printer.
#pragma once

#include <memory>

#include "widgets/Output.h"
#include "windows/com/WindowHost.h"
#include "windows/gdi/Fonts.h"

namespace dlv {

/// Null when the person cancels or the control ends; error 482 when there is no printer. What is printed is
/// written in the face of `font`.
std::unique_ptr<Printer> ChoosePrinter(WindowHost& host, Printer::Orientation proposed,
                                       const FontChoice& font);

}  // namespace dlv
