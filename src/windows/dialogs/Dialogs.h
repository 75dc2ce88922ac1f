// Modal dialogs before the control's container: forms and message boxes. Each disables its owner, tells the
// container, runs a message loop, and gives the focus back to where it was. When the control ends meanwhile,
// the dialog goes away and the call returns.
#pragma once

#include "windows/com/PlainWindows.h"

#include "widgets/Platform.h"
#include "windows/com/WindowHost.h"
#include "windows/gdi/Fonts.h"

namespace dlv {

/// Returns at once when the control is ending. Throws ComError when the dialog cannot be made.
void ShowModal(WindowHost& host, ModalForm& form, const FontChoice& font = DefaultFont());

/// No (Ok for a box without Yes) when the box cannot be shown or the control ends.
Answer ShowMessageBox(WindowHost& host, const MessageBox& box);

/// Lets the messages that wait for this thread be processed once.
void ProcessPendingMessages();

}  // namespace dlv
