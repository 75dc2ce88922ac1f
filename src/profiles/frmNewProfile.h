// The dialog that asks for one profile name and accepts only a valid one.
#pragma once

#include "ui/CaptionCatalogue.h"
#include "ui/ModalOwner.h"
#include "ui/Outside.h"

namespace dlv {

class frmNewProfile : public ModalForm {
public:
    frmNewProfile(Outside& outside, const CaptionCatalogue& captions);

    /// Whether the user confirmed a valid name; the name goes, without blanks at its ends, into `name`.
    /// `prompt` and `title` are caption keys.
    bool GetNewProfile(std::string& name, CaptionKey prompt, CaptionKey title, ModalOwner& owner);

    void Click(Button& button) override;
    void GotFocus(Control& control) override;
    void Tick() override;

    Label lblIntro{"lblIntro"};
    TextBox txtName{"txtName"};
    Button cmdOK{"cmdOK"};
    Button cmdCancel{"cmdCancel"};
    Timer Timer1{"Timer1"};

private:
    void cmdOK_Click();

    Outside& outside_;
    const CaptionCatalogue& captions_;
    bool accepted_ = false;
};

}  // namespace dlv
