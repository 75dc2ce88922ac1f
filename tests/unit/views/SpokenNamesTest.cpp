// The names under which the form's controls are announced.
#include <gtest/gtest.h>

#include "views/SpokenNames.h"

namespace dlv {
namespace {

TEST(SpokenNames, ComeFromWhatAPersonSeesBesideTheControl) {
    ViewerForm form;
    form.lblBUName.SetCaption("Units :");
    form.lblNextTime.SetCaption("Next :");
    form.lblProfile.SetCaption("Profile : ");
    form.lblWODone.heading.SetCaption("Done");
    form.lblPtsPerHr.SetCaption("Points per Hour");
    form.lblReqProd.SetCaption("Required");
    form.Tabs.SetTabs({{"Summary", ""}, {"Hierarchy", ""}});
    form.optDisplay[1].SetCaption("Points");
    const struct {
        const Control& control;
        const char* name;
    } names[] = {{form.lvBU, "Units"},
                 {form.lblNextRefreshTime, "Next"},
                 {form.lblCurrentProfile, "Profile"},
                 {form.lblWODone.figure, "Done"},
                 {form.lblPtsPerHrReq, "Points per Hour, Required"},
                 {form.vsFlex[0], "Summary"},
                 {form.vsFlex[1], "Hierarchy"},
                 {form.vsFlex[2], "Hierarchy, Points"},
                 {form.lblWODone.heading, ""},
                 {form.cmdView, ""}};
    for (const auto& row : names) EXPECT_EQ(SpokenName(form, row.control), row.name) << row.control.Name();
}

TEST(SpokenNames, AFieldIsNamedByTheLabelRightBeforeIt) {
    const ViewerForm form;
    EXPECT_EQ(LabelBefore(form, form.lvBU), &form.lblBUName);
    EXPECT_EQ(LabelBefore(form, form.optBU[1]), nullptr) << "another button stands before it";
    EXPECT_EQ(LabelBefore(form, form.Tabs), &form.lblPtsPerHrReq);
}

}  // namespace
}  // namespace dlv
