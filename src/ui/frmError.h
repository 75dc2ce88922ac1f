// The error dialog: number, description and location of a failure, and one button to go on.
#pragma once

#include "ui/CaptionCatalogue.h"
#include "ui/ModalOwner.h"
#include "ui/Outside.h"

namespace dlv {

class frmError : public ModalForm {
public:
    explicit frmError(Outside& outside);

    /// Returns when the user has closed the dialog. Without a catalogue its own texts are English;
    /// the owner may be nothing.
    void ShowError(std::int32_t number, const std::string& description, const std::string& location,
                   const CaptionCatalogue* captions, ModalOwner* owner);

    void Click(Button& button) override;

    Label Label1{"Label1"};
    Label Label2{"Label2"};
    Label Label3{"Label3"};
    Label Label4{"Label4"};
    Label Label5{"Label5"};
    Label lblErrNum{"lblErrNum"};
    Label lblErrStr{"lblErrStr"};
    Label lblErrLoc{"lblErrLoc"};
    Button cmdCont{"cmdCont"};

private:
    Outside& outside_;
};

/// The routine that every error handler ends in: shows the dialog, then lets pending window messages
/// be processed once.
void ReportError(Outside& outside, std::int32_t number, const std::string& description,
                 const std::string& location, const CaptionCatalogue* captions, ModalOwner* owner);

}  // namespace dlv
