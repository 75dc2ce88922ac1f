#include "ui/Outside.h"

#include "base/Trap.h"

namespace dlv {

namespace {

/// Looks, when a call has come back, whether it was the last.
class StopCheck {
public:
    explicit StopCheck(const bool& closed) : closed_(closed) { Look(); }
    void Look() const {
        if (closed_) throw ControlStopped{};
    }

private:
    const bool& closed_;
};

}  // namespace

void Outside::PostRequest(const std::string& request) {
    const StopCheck check(closed_);
    platform_.Flush();
    events_.PostRequest(request);
    check.Look();
}

void Outside::Raise(HostEvent event, const DLVParams& params) {
    const StopCheck check(closed_);
    platform_.Flush();
    events_.Raise(event, params);
    check.Look();
}

void Outside::ShowModal(ModalForm& form) {
    const StopCheck check(closed_);
    platform_.Flush();
    platform_.ShowModal(form);
    check.Look();
}

Answer Outside::ShowMessageBox(const MessageBox& box) {
    const StopCheck check(closed_);
    platform_.Flush();
    const Answer answer = platform_.ShowMessageBox(box);
    check.Look();
    return answer;
}

std::string Outside::ChooseSaveFile(const SaveDialog& dialog) {
    const StopCheck check(closed_);
    platform_.Flush();
    std::string name = platform_.ChooseSaveFile(dialog);
    check.Look();
    return name;
}

std::unique_ptr<Printer> Outside::ChoosePrinter(Printer::Orientation proposed) {
    const StopCheck check(closed_);
    platform_.Flush();
    std::unique_ptr<Printer> printer = platform_.ChoosePrinter(proposed);
    check.Look();
    return printer;
}

void Outside::Begin(Printer& printer, const std::string& documentName) {
    const StopCheck check(closed_);
    platform_.Flush();
    printer.Begin(documentName);
    check.Look();
}

void Outside::ProcessPendingMessages() {
    const StopCheck check(closed_);
    platform_.Flush();
    platform_.ProcessPendingMessages();
    check.Look();
}

}  // namespace dlv
