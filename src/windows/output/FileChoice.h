// The system's dialog in which a person says where a file is to be saved.
#pragma once

#include <string>

#include "widgets/Output.h"
#include "windows/com/WindowHost.h"

namespace dlv {

/// The file's full name; empty when the person cancels or the control ends. The dialog has asked before it
/// names a file that there is. Error 57 when there is no dialog.
std::string ChooseSaveFile(WindowHost& host, const SaveDialog& dialog);

}  // namespace dlv
