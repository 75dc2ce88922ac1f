// Where a session's grids go: a file of the name that the session gives, written beside it and moved into its
// place, and a printer whose pages are text in such a file.
#pragma once

#include <memory>
#include <string>

#include "widgets/Output.h"

namespace dlv::player {

std::unique_ptr<OutputFile> MakeScriptedFile(const std::string& name);

/// A sheet of A4 on its side, all of it printable. Pages are their texts with a form feed between.
std::unique_ptr<Printer> MakeScriptedPrinter(const std::string& fileName);

}  // namespace dlv::player
