#include "windows/output/FileChoice.h"

#include "windows/com/PlainWindows.h"

#include <algorithm>
#include <vector>

#include "base/RunTimeError.h"
#include "windows/com/Strings.h"
#include "windows/dialogs/DialogWatch.h"
#include "windows/dialogs/ModalScope.h"
#include "windows/hwnd/CommonControls.h"
#include "windows/output/CommonDialogs.h"

namespace dlv {

namespace {

constexpr DWORD kLongestName = 32768;

}  // namespace

std::string ChooseSaveFile(WindowHost& host, const SaveDialog& dialog) {
    if (host.Ending()) return {};
    ModalScope scope(host);
    // The dialog disables its owner itself.
    scope.ReleaseOwner();
    const DialogWatch watch(host, DialogWatch::Closing::Cancelled);
    const HostScope inHost;

    const CommonDialogs dialogs;
    std::wstring filter = Wide(dialog.filter) + L'|';
    std::ranges::replace(filter, L'|', L'\0');
    const std::wstring folder = Wide(dialog.folder);
    const std::wstring extension = Wide(dialog.extension);
    std::vector<wchar_t> name(kLongestName);
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = scope.Owner();
    question.lpstrFilter = filter.c_str();
    question.lpstrFile = name.data();
    question.nMaxFile = kLongestName;
    question.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    question.lpstrDefExt = extension.c_str();
    question.Flags = OFN_EXPLORER | OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST |
                     OFN_NOREADONLYRETURN | OFN_NOCHANGEDIR | OFN_ENABLESIZING;
    if (dialogs.AskForFile(question))
        return host.Ending() ? std::string() : Narrow(std::wstring_view(name.data()));
    if (dialogs.Failed()) RaiseDevice();
    return {};
}

}  // namespace dlv
