#include "control/Captions.h"

#include "widgets/AccessKeys.h"

namespace dlv {

namespace {

/// A key for everything that a person goes to or presses, but for the tool bar, which shows no captions.
void ApplyAccessKeys(ViewerForm& form) {
    CaptionControl* const controls[] = {
        &form.lblBUName,     &form.optBU[0],     &form.optBU[1], &form.cmdView, &form.lblTechCount.heading,
        &form.optDisplay[0], &form.optDisplay[1]};
    std::vector<std::string> captions;
    for (const CaptionControl* control : controls) captions.push_back(control->Caption());
    std::vector<TabStrip::Tab> tabs = form.Tabs.Tabs();
    for (const TabStrip::Tab& tab : tabs) captions.push_back(tab.caption);
    const std::vector<AccessKey> keys = ChooseAccessKeys(captions);
    std::size_t next = 0;
    for (CaptionControl* control : controls) control->SetKey(keys[next++]);
    for (TabStrip::Tab& tab : tabs) tab.key = keys[next++];
    form.Tabs.SetTabs(std::move(tabs));
}

}  // namespace

void ApplyCaptions(ViewerForm& form, const CaptionCatalogue& captions) {
    const auto text = [&](CaptionKey key) { return captions.Caption(key); };
    form.tbMain.SetButtonToolTip("SaveGrid", text("SaveGrid"));
    form.tbMain.SetButtonToolTip("PrintGrid", text("PrintGrid"));
    form.tbMain.SetButtonToolTip("Profiles", text("Profiles"));
    form.tbMain.SetButtonToolTip("Help", text("AboutDLV"));
    form.mnuSaveProfile.caption = text("SaveCurrentProfile");
    form.mnuSaveProfileAs.caption = text("SaveCurrentProfileAs");
    form.mnuManage.caption = text("ManageProfiles");
    form.mnuUse.caption = text("UseProfile");
    const std::string summary = text("BUSummary");
    const std::string hierarchy = text("BUHierarchy");
    form.Tabs.SetTabs({{summary, summary}, {hierarchy, hierarchy}});
    form.lblBUName.SetCaption(text("BusinessUnits") + " :");
    form.lblLastTime.SetCaption(text("LastRefreshTime") + " :");
    form.lblNextTime.SetCaption(text("NextRefreshTime") + " :");
    form.lblProfile.SetCaption(text("CurrentProfile") + " : ");
    form.fraSelection.SetCaption(text("SelectionCriteria"));
    form.cmdView.SetCaption(text("View"));
    form.optBU[0].SetCaption(text("ShowSummary"));
    form.optBU[1].SetCaption(text("ShowAggregateSummary"));
    form.lblTechCount.heading.SetCaption(text("TechCount"));
    const std::string technicians = text("ViewTechCount");
    form.lblTechCount.heading.SetToolTip(technicians);
    form.lblTechCount.figure.SetToolTip(technicians);
    form.lblHrsWorked.heading.SetCaption(text("HoursWorked"));
    form.lblHrsRemaining.heading.SetCaption(text("HoursRemaining"));
    form.lblWODone.heading.SetCaption(text("WODone"));
    form.lblWOOpen.heading.SetCaption(text("WOOpen"));
    form.lblPtsDone.heading.SetCaption(text("PointsDone"));
    form.lblPtsOpen.heading.SetCaption(text("PointsOpen"));
    form.lblProdPerTech.SetCaption(text("ProductivityPerTech"));
    form.lblToday.SetCaption(text("CurrentProductivity"));
    form.lblReqProd.SetCaption(text("RequiredProductivity"));
    form.lblWOsPerHr.SetCaption(text("WOsPerHour"));
    form.lblPtsPerHr.SetCaption(text("PtsPerHour"));
    form.lblDisplayBy.SetCaption(text("DisplayBy"));
    form.optDisplay[0].SetCaption(text("WorkOrders"));
    form.optDisplay[1].SetCaption(text("Points"));
    ApplyAccessKeys(form);
}

}  // namespace dlv
