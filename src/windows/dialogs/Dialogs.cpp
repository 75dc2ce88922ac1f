#include "windows/dialogs/Dialogs.h"

#include "windows/com/Strings.h"
#include "windows/dialogs/DialogWatch.h"
#include "windows/dialogs/FormDialog.h"
#include "windows/dialogs/ModalScope.h"
#include "windows/hwnd/CommonControls.h"

namespace dlv {

namespace {

constexpr int kMostPendingMessages = 1000;

UINT Style(const MessageBox& box) {
    const UINT buttons = box.buttons == MessageBox::Buttons::YesNo ? MB_YESNO | MB_DEFBUTTON2 : MB_OK;
    const UINT icon = box.icon == MessageBox::Icon::Question      ? MB_ICONQUESTION
                      : box.icon == MessageBox::Icon::Information ? MB_ICONINFORMATION
                                                                  : 0u;
    return buttons | icon;
}

}  // namespace

void ShowModal(WindowHost& host, ModalForm& form, const FontChoice& font) {
    if (host.Ending()) return;
    ModalScope scope(host);
    FormDialog dialog(host, form, font);
    dialog.Open(scope.Owner());
    dialog.Run();
    scope.ReleaseOwner();
}

Answer ShowMessageBox(WindowHost& host, const MessageBox& box) {
    const bool asks = box.buttons == MessageBox::Buttons::YesNo;
    const Answer refused = asks ? Answer::No : Answer::Ok;
    if (host.Ending()) return refused;
    ModalScope scope(host);
    // The system's box disables its owner itself, and refuses one that is disabled.
    scope.ReleaseOwner();
    const DialogWatch watch(host, DialogWatch::Closing::Pressed, asks ? IDNO : IDOK);
    const HostScope inHost;
    const int pressed =
        MessageBoxW(scope.Owner(), Wide(box.text).c_str(), Wide(box.title).c_str(), Style(box));
    return pressed == IDYES ? Answer::Yes : refused;
}

void ProcessPendingMessages() {
    const HostScope inHost;
    MSG message{};
    for (int i = 0; i < kMostPendingMessages && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace dlv
