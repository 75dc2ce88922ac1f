#include "windows/output/PrinterChoice.h"

#include "windows/com/PlainWindows.h"

#include <utility>

#include "base/RunTimeError.h"

#include "windows/dialogs/DialogWatch.h"
#include "windows/dialogs/ModalScope.h"
#include "windows/hwnd/CommonControls.h"
#include "windows/output/CommonDialogs.h"
#include "windows/output/PrinterJob.h"

namespace dlv {

namespace {

/// The dialog's question and answer, with the memory that both pass on.
class PrinterQuestion {
public:
    PrinterQuestion() {
        question_.lStructSize = sizeof question_;
        question_.nFromPage = question_.nToPage = question_.nMinPage = 1;
        question_.nMaxPage = 0xFFFF;
    }
    ~PrinterQuestion() {
        if (question_.hDevMode != nullptr) GlobalFree(question_.hDevMode);
        if (question_.hDevNames != nullptr) GlobalFree(question_.hDevNames);
    }
    PrinterQuestion(const PrinterQuestion&) = delete;
    PrinterQuestion& operator=(const PrinterQuestion&) = delete;

    /// Takes the person's own printer, without asking. False when there is none.
    bool TakeDefault() {
        question_.Flags = PD_RETURNDEFAULT;
        return dialogs_.AskForPrinter(question_);
    }

    void Propose(Printer::Orientation orientation) {
        if (question_.hDevMode == nullptr) return;
        auto* mode = static_cast<DEVMODEW*>(GlobalLock(question_.hDevMode));
        if (mode == nullptr) return;
        mode->dmFields |= DM_ORIENTATION;
        mode->dmOrientation =
            orientation == Printer::Orientation::Landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
        GlobalUnlock(question_.hDevMode);
    }

    /// False when the person cancels.
    bool Ask(HWND owner) {
        question_.hwndOwner = owner;
        question_.Flags = PD_RETURNDC | PD_ALLPAGES | PD_NOSELECTION | PD_USEDEVMODECOPIESANDCOLLATE;
        if (dialogs_.AskForPrinter(question_)) return true;
        if (dialogs_.Failed()) RaisePrinter();
        return false;
    }

    HDC TakeDc() { return std::exchange(question_.hDC, nullptr); }
    PageRange Range() const {
        if ((question_.Flags & PD_PAGENUMS) == 0) return {};
        return {question_.nFromPage, question_.nToPage};
    }

private:
    CommonDialogs dialogs_;
    PRINTDLGW question_{};
};

}  // namespace

std::unique_ptr<Printer> ChoosePrinter(WindowHost& host, Printer::Orientation proposed,
                                       const FontChoice& font) {
    if (host.Ending()) return nullptr;
    ModalScope scope(host);
    // The dialog disables its owner itself.
    scope.ReleaseOwner();
    const DialogWatch watch(host, DialogWatch::Closing::Cancelled);
    const HostScope inHost;
    PrinterQuestion question;
    if (!question.TakeDefault()) RaisePrinter();
    question.Propose(proposed);
    if (!question.Ask(scope.Owner())) return nullptr;
    auto job = std::make_unique<PrinterJob>(question.TakeDc(), question.Range(), font);
    return host.Ending() ? nullptr : std::move(job);
}

}  // namespace dlv
