#include "ui/frmError.h"

#include <optional>

#include "base/Number.h"
#include "base/Trap.h"

namespace dlv {

frmError::frmError(Outside& outside) : ModalForm("frmError"), outside_(outside) {
    SetSize(Pixels(440), Pixels(248));
    Place(Label1, {Pixels(16), Pixels(14), Pixels(408), Pixels(18)});
    Place(Label2, {Pixels(16), Pixels(44), Pixels(88), Pixels(18)});
    Place(lblErrNum, {Pixels(108), Pixels(44), Pixels(316), Pixels(18)});
    Place(Label3, {Pixels(16), Pixels(68), Pixels(88), Pixels(18)});
    Place(lblErrStr, {Pixels(108), Pixels(68), Pixels(316), Pixels(50)});
    Place(Label4, {Pixels(16), Pixels(124), Pixels(88), Pixels(18)});
    Place(lblErrLoc, {Pixels(108), Pixels(124), Pixels(316), Pixels(18)});
    Place(Label5, {Pixels(16), Pixels(152), Pixels(408), Pixels(50)});
    Place(cmdCont, {Pixels(336), Pixels(210), Pixels(88), Pixels(26)});
    for (Label* title : {&Label2, &Label3, &Label4}) title->SetBold(true);
    cmdCont.MakeDefault();
    cmdCont.MakeCancel();
}

void frmError::ShowError(std::int32_t number, const std::string& description, const std::string& location,
                         const CaptionCatalogue* captions, ModalOwner* owner) {
    // A host whose captions fail still gets its error shown.
    const auto text = [&](CaptionKey key) {
        std::string caption(FindCaption(key.Text())->english);
        if (captions) IgnoreErrors([&] { caption = captions->Caption(key); });
        return caption;
    };
    SetCaption(text("frmError-Caption"));
    Label1.SetCaption(text("fraError-Label1"));
    Label2.SetCaption(text("fraError-Label2"));
    Label3.SetCaption(text("fraError-Label3"));
    Label4.SetCaption(text("fraError-Label4"));
    Label5.SetCaption(text("fraError-Label5"));
    cmdCont.SetCaption(text("fraError-cmdCont"));
    lblErrNum.SetCaption(WholeText(number));
    lblErrStr.SetCaption(description);
    lblErrLoc.SetCaption(location);
    std::optional<ModalOwner::Scope> scope;
    if (owner) scope.emplace(*owner);
    outside_.ShowModal(*this);
}

void frmError::Click(Button&) { Unload(); }

void ReportError(Outside& outside, std::int32_t number, const std::string& description,
                 const std::string& location, const CaptionCatalogue* captions, ModalOwner* owner) {
    {
        frmError form(outside);
        form.ShowError(number, description, location, captions, owner);
    }
    outside.ProcessPendingMessages();
}

}  // namespace dlv
