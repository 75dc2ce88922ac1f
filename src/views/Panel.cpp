#include "views/Panel.h"

#include <algorithm>

#include "base/Trap.h"

namespace dlv {

namespace {

constexpr double kLeastWidth = Pixels(856);

void SetColumnWidths(OutlineGrid& grid, int first, double width) {
    for (int column = first; column < grid.Columns(); ++column) grid.SetColumnWidth(column, width);
}

}  // namespace

void LayoutPanel(ViewerForm& form, double available) {
    const double width = std::max(available, kLeastWidth);
    IgnoreAndGoOn(
        [&] { form.lblStatus.SetLeft((width - form.lblStatus.Width()) / 2); },
        [&] { form.optBU[0].SetLeft(width * 0.45); }, [&] { form.optBU[1].SetLeft(form.optBU[0].Left()); },
        [&] { form.lblProdPerTech.SetLeft(width * 0.625); }, [&] { form.cmdView.SetLeft(width * 0.67); },
        [&] { form.lblWOsPerHrToday.SetLeft(width * 0.76); }, [&] { form.lblToday.SetLeft(width * 0.8); },
        [&] { form.lblWOsPerHrReq.SetLeft(width * 0.87); }, [&] { form.lblReqProd.SetLeft(width * 0.9); },
        [&] { form.lblWOsPerHr.SetLeft(form.lblProdPerTech.Left()); },
        [&] { form.lblPtsPerHr.SetLeft(form.lblProdPerTech.Left()); },
        [&] { form.lblPtsPerHrToday.SetLeft(form.lblWOsPerHrToday.Left()); },
        [&] { form.lblPtsPerHrReq.SetLeft(form.lblWOsPerHrReq.Left()); });
    OutlineGrid& summary = form.vsFlex[0];
    IgnoreAndGoOn([&] { summary.SetColumnWidth(0, width / 57); },
                  [&] { summary.SetColumnWidth(2, width / 7.71); },
                  [&] { SetColumnWidths(summary, 3, width / 16.46); });
    for (OutlineGrid* grid : {&form.vsFlex[1], &form.vsFlex[2]})
        IgnoreAndGoOn([&] { SetColumnWidths(*grid, 1, width / 13.59); },
                      [&] { grid->SetColumnWidth(0, width / 5.71); });
}

void ShowSelectedTab(ViewerForm& form) {
    const int selected = form.Tabs.SelectedTab() - 1;
    for (int i = 0; i < 2; ++i) {
        Frame& frame = form.fraBU[i];
        if (i != selected) {
            IgnoreAndGoOn([&] { frame.SetVisible(false); });
            continue;
        }
        IgnoreAndGoOn([&] { frame.SetVisible(true); }, [&] { frame.SetTop(form.Tabs.ClientArea().top); },
                      [&] { frame.SetLeft(form.Tabs.ClientArea().left); });
    }
}

void ShowDisplay(ViewerForm& form, int index) {
    if (index != 0 && index != 1) return;
    form.vsFlex[1].SetVisible(index == 0);
    form.vsFlex[2].SetVisible(index == 1);
}

}  // namespace dlv
