// Text for other programs to paste.
#pragma once

#include "windows/com/PlainWindows.h"

#include <string>

namespace dlv {

/// Puts the text on the clipboard in place of all that is there; `owner` is a window of this thread. False
/// when another program holds the clipboard: then it is as it was.
bool CopyToClipboard(HWND owner, const std::string& text);

}  // namespace dlv
