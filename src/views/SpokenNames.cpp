#include "views/SpokenNames.h"

#include <initializer_list>

namespace dlv {

namespace {

/// A caption without the colon that leads on to what it names.
std::string Plain(const std::string& caption) {
    return caption.substr(0, caption.find_last_not_of(" :") + 1);
}

std::string Joined(std::initializer_list<const std::string*> texts) {
    std::string joined;
    for (const std::string* text : texts) {
        if (text->empty()) continue;
        if (!joined.empty()) joined += ", ";
        joined += *text;
    }
    return joined;
}

std::string FigureName(const ViewerForm& form, const Control& control) {
    for (const FigureLabel* label : {&form.lblTechCount, &form.lblHrsWorked, &form.lblHrsRemaining,
                                     &form.lblWODone, &form.lblWOOpen, &form.lblPtsDone, &form.lblPtsOpen})
        if (&control == &label->figure) return label->heading.Caption();
    const struct {
        const Label* figure;
        const Label* line;
        const Label* column;
    } rates[] = {{&form.lblWOsPerHrToday, &form.lblWOsPerHr, &form.lblToday},
                 {&form.lblWOsPerHrReq, &form.lblWOsPerHr, &form.lblReqProd},
                 {&form.lblPtsPerHrToday, &form.lblPtsPerHr, &form.lblToday},
                 {&form.lblPtsPerHrReq, &form.lblPtsPerHr, &form.lblReqProd}};
    for (const auto& rate : rates)
        if (&control == rate.figure) return Joined({&rate.line->Caption(), &rate.column->Caption()});
    return {};
}

std::string GridName(const ViewerForm& form, const Control& control) {
    for (int i = 0; i < 3; ++i) {
        if (&control != &form.vsFlex[i]) continue;
        const std::string& tab = form.Tabs.Tabs().at(i == 0 ? 0 : 1).caption;
        return i == 0 ? tab : Joined({&tab, &form.optDisplay[i - 1].Caption()});
    }
    return {};
}

}  // namespace

std::string SpokenName(const ViewerForm& form, const Control& control) {
    const struct {
        const Control* named;
        const Label* by;
    } labels[] = {{&form.lvBU, &form.lblBUName},
                  {&form.lblLastRefreshTime, &form.lblLastTime},
                  {&form.lblNextRefreshTime, &form.lblNextTime},
                  {&form.lblCurrentProfile, &form.lblProfile}};
    for (const auto& label : labels)
        if (&control == label.named) return Plain(label.by->Caption());
    const std::string figure = FigureName(form, control);
    return figure.empty() ? GridName(form, control) : figure;
}

}  // namespace dlv
