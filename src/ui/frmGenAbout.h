// The about box: product name, description, comments, rights line and version. It has no texts of its own, so
// that it serves every language; its size follows the texts.
#pragma once

#include <functional>
#include <string>

#include "ui/ModalOwner.h"
#include "ui/Outside.h"

namespace dlv {

class frmGenAbout : public ModalForm {
public:
    /// Width of one line of text in twips, in the font that the box is shown in.
    using TextWidth = std::function<double(std::string_view text, bool bold)>;

    frmGenAbout(Outside& outside, TextWidth textWidth);

    /// Returns when the box has been closed. The word for "version" and the button's caption are to be set
    /// before; the owner may be nothing.
    void ShowAbout(const std::string& title, const std::string& product, const std::string& description,
                   const std::string& comments, const std::string& rights, const std::string& version,
                   ModalOwner* owner);

    void Click(Button& button) override;

    Image imgLogo{"imgLogo"};
    Label lblTitle{"lblTitle"};
    Label lblDescription{"lblDescription"};
    Label lblComments{"lblComments"};
    Label lblRights{"lblRights"};
    Line linSeparator[2]{Line{"linSeparator(0)"}, Line{"linSeparator(1)"}};
    Image imgName{"imgName"};
    Label lblVerText{"lblVerText"};
    Label lblVersion{"lblVersion"};
    Button cmdOK{"cmdOK"};

private:
    void LayOut();
    void SizeToText(Label& label, double least) const;
    double TextHeight(const Label& label, double width) const;

    Outside& outside_;
    const TextWidth textWidth_;
};

}  // namespace dlv
