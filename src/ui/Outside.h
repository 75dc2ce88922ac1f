// The ways out of the control: events to the host, dialogs, message boxes, pending messages. Before
// each the windows are brought up to date; behind each the control may have been stopped, and then
// nothing that was under way goes on.
#pragma once

#include <memory>
#include <string>

#include "webdata/HostEvents.h"
#include "widgets/Platform.h"

namespace dlv {

class Outside {
public:
    Outside(Platform& platform, HostEvents& events) : platform_(platform), events_(events) {}

    // Each throws ControlStopped when the control was stopped before or inside the call.

    void PostRequest(const std::string& request);
    void Raise(HostEvent event, const DLVParams& params);
    void ShowModal(ModalForm& form);
    Answer ShowMessageBox(const MessageBox& box);
    std::string ChooseSaveFile(const SaveDialog& dialog);
    std::unique_ptr<Printer> ChoosePrinter(Printer::Orientation proposed);
    /// The printer may ask the person for something more.
    void Begin(Printer& printer, const std::string& documentName);
    void ProcessPendingMessages();

    /// From now on no way leads out.
    void Close() { closed_ = true; }
    bool Closed() const { return closed_; }

private:
    Platform& platform_;
    HostEvents& events_;
    bool closed_ = false;
};

}  // namespace dlv
