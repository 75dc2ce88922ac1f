#include "ui/frmGenAbout.h"

#include <algorithm>
#include <optional>

#include "base/Text.h"

namespace dlv {

namespace {

constexpr double kLine = Pixels(18);
constexpr double kMargin = Pixels(3);
constexpr double kLeastTitleWidth = Pixels(250);
/// Between the content and the right and lower edges.
constexpr double kRightMargin = Pixels(5);
constexpr double kLowerMargin = Pixels(7);
/// Of the column on the right, from the edge.
constexpr double kColumnMargin = Pixels(7);
constexpr double kNameMargin = Pixels(8);
constexpr double kGap = Pixels(4);

double Right(const Control& control) { return control.Left() + control.Width(); }
double Bottom(const Control& control) { return control.Top() + control.Height(); }

}  // namespace

frmGenAbout::frmGenAbout(Outside& outside, TextWidth textWidth)
    : ModalForm("frmGenAbout"), outside_(outside), textWidth_(std::move(textWidth)) {
    Place(imgLogo, {0, 0, Pixels(72), Pixels(72)});
    for (Label* label : {&lblTitle, &lblDescription, &lblComments, &lblRights}) Place(*label, {});
    for (Line& line : linSeparator) Place(line, {0, 0, 0, Pixels(1)});
    Place(imgName, {0, 0, Pixels(200), Pixels(40)});
    for (Label* label : {&lblVerText, &lblVersion}) Place(*label, {});
    Place(cmdOK, {0, 0, Pixels(82), Pixels(26)});
    imgLogo.SetPicture("AboutLogo");
    imgName.SetPicture("AboutName");
    linSeparator[1].SetShade(Line::Tone::Light);
    lblTitle.SetBold(true);
    lblTitle.SetTextAlignment(Alignment::Right);
    lblDescription.SetTextAlignment(Alignment::Right);
    cmdOK.MakeDefault();
    cmdOK.MakeCancel();
}

void frmGenAbout::ShowAbout(const std::string& title, const std::string& product,
                            const std::string& description, const std::string& comments,
                            const std::string& rights, const std::string& version, ModalOwner* owner) {
    SetCaption(title);
    lblTitle.SetCaption(product);
    lblDescription.SetCaption(description);
    lblComments.SetCaption(comments);
    lblRights.SetCaption(rights);
    lblVersion.SetCaption(version);
    LayOut();
    std::optional<ModalOwner::Scope> scope;
    if (owner) scope.emplace(*owner);
    outside_.ShowModal(*this);
}

void frmGenAbout::Click(Button&) { Unload(); }

void frmGenAbout::SizeToText(Label& label, double least) const {
    const double width = textWidth_(label.Caption(), label.Bold()) + Pixels(2);
    label.SetPlace({0, 0, std::max(least, width), kLine});
}

/// Of the text, broken into lines between its words.
double frmGenAbout::TextHeight(const Label& label, double width) const {
    const std::string& text = label.Caption();
    if (text.empty()) return 0;
    int lines = 1;
    std::string line;
    for (const std::string& word : Split(text, ' ')) {
        const bool first = line.empty();
        if (!first) line += ' ';
        line += word;
        if (first || textWidth_(line, label.Bold()) <= width) continue;
        ++lines;
        line = word;
    }
    return lines * kLine;
}

void frmGenAbout::LayOut() {
    SizeToText(lblTitle, kLeastTitleWidth);
    SizeToText(lblVerText, cmdOK.Width());
    SizeToText(lblVersion, cmdOK.Width());
    const double content =
        std::max(imgLogo.Width() + lblTitle.Width(), imgName.Width() + cmdOK.Width() + Pixels(7));
    const double right = kMargin + content;
    imgLogo.SetLeft(kMargin);
    imgLogo.SetTop(kMargin);
    lblTitle.SetLeft(right - lblTitle.Width());
    lblTitle.SetTop(kMargin);
    const double room = right - lblTitle.Left();
    lblDescription.SetPlace(
        {lblTitle.Left(), Bottom(lblTitle), room, std::max(kLine, TextHeight(lblDescription, room))});
    const double below = std::max(Bottom(imgLogo), Bottom(lblDescription));
    lblComments.SetPlace({kMargin, below, content, TextHeight(lblComments, content)});
    lblRights.SetPlace({kMargin, Bottom(lblComments), content, TextHeight(lblRights, content)});
    double line = Bottom(lblRights) + Pixels(1);
    for (Line& part : linSeparator) {
        part.SetPlace({kMargin, line, lblRights.Width() - kMargin, Pixels(1)});
        line += Pixels(1);
    }
    imgName.SetLeft(kNameMargin);
    imgName.SetTop(linSeparator[0].Top() + kGap);
    const double width = right + kRightMargin;
    const double column = width - kColumnMargin - std::max(lblVerText.Width(), lblVersion.Width());
    lblVerText.SetLeft(column);
    lblVerText.SetTop(imgName.Top());
    lblVersion.SetLeft(column);
    lblVersion.SetTop(Bottom(lblVerText) + kGap);
    cmdOK.SetLeft(column);
    cmdOK.SetTop(Bottom(lblVersion) + kGap);
    SetSize(std::max(width, Right(cmdOK) + kColumnMargin),
            std::max(Bottom(imgName), Bottom(cmdOK)) + kLowerMargin);
}

}  // namespace dlv
