// refresh FILE [RUNS] : the control's whole refresh, from a message's text to all three grids, without
// any window. All units are chosen, so every row of both hierarchies has figures. One line a run, the
// first of them cold; then what the control keeps.

#include <malloc.h>

#include "base/Dictionary.h"
#include "base/RunTimeError.h"
#include "base/Trap.h"
#include "bench/common.h"
#include "control/ControlState.h"
#include "webdata/QZWebMessage.h"

namespace {

class QuietHost : public dlv::Platform, public dlv::HostEvents {
public:
    void PostRequest(const std::string&) override {}
    void Raise(dlv::HostEvent, const dlv::DLVParams&) override {}
    dlv::TimeOfDay Now() override { return 9 * 3600; }
    dlv::LocaleTime TimeSettings() override { return {}; }
    std::string DateAndTime() override { return {}; }
    std::string InterfaceLanguage() override { return "EN"; }
    double SurfaceWidth() override { return dlv::Pixels(1000); }
    double SurfaceHeight() override { return dlv::Pixels(700); }
    double TextWidth(std::string_view text, bool) override { return 90.0 * static_cast<double>(text.size()); }
    void Flush() override {}
    void ShowModal(dlv::ModalForm& form) override {
        const auto& error = dynamic_cast<const dlv::frmError&>(form);
        std::fprintf(stderr, "refresh: %s: %s\n", error.lblErrLoc.Caption().c_str(),
                     error.lblErrStr.Caption().c_str());
        std::exit(3);
    }
    dlv::Answer ShowMessageBox(const dlv::MessageBox&) override { return dlv::Answer::No; }
    std::string ChooseSaveFile(const dlv::SaveDialog&) override { return {}; }
    std::unique_ptr<dlv::OutputFile> MakeFile(const std::string&) override { return nullptr; }
    std::unique_ptr<dlv::Printer> ChoosePrinter(dlv::Printer::Orientation) override { return nullptr; }
    void ShowProfileMenu() override {}
    void ProcessPendingMessages() override {}
};

std::size_t HeapBytes() {
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

/// The ids of all units of the message, from its general table.
std::vector<std::string> UnitIds(const dlv::MessageSource& message) {
    const auto table = message.Table("BUGeneralInfo");
    std::vector<std::string> ids;
    for (std::size_t row = 1; row <= table->RowCount(); ++row) ids.push_back(table->Field(row, "BUID"));
    return ids;
}

struct Laps {
    double load = 0;
    double show = 0;
};

Laps Refresh(dlv::DLViewer& viewer, std::string text) {
    Laps laps;
    auto message = std::make_shared<dlv::QZWebMessage>();
    Clock clock;
    message->LoadText(std::move(text));
    laps.load = clock.lap();
    viewer.ReceiveMessage({"QZWebMessage", message}, 0, "");
    laps.show = clock.lap();
    return laps;
}

/// Every cell that the grids show, as text: what was measured is really there.
std::uint64_t ReadAllCells(dlv::ViewerForm& form) {
    Sum sum;
    for (const dlv::OutlineGrid& grid : form.vsFlex)
        for (int row = 0; row < grid.Rows(); ++row)
            for (int column = 0; column < grid.Columns(); ++column) sum.cell(grid.CellText(row, column));
    return sum.h;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: refresh FILE [RUNS]\n", stderr);
        return 2;
    }
    const std::string text = read_document(argv[1]);
    const int runs = argc > 2 ? std::atoi(argv[2]) : 3;
    const std::size_t before = HeapBytes();
    QuietHost host;
    dlv::DLViewer viewer(host, host);
    viewer.Initialize(nullptr);
    viewer.SetRegionalFormatInfo("EN");
    std::size_t rows = 0;
    {
        dlv::QZWebMessage message;
        message.LoadText(text);
        viewer.SetSessionBUIDList(UnitIds(message));
        rows = message.Table("BUDetailsInfo")->RowCount();
    }
    viewer.ReceiveProfileResponse("<WebProfiles><WebProfile><Name>Default</Name></WebProfile></WebProfiles>",
                                  "GetProfiles");
    Refresh(viewer, text);
    dlv::ViewerForm& form = viewer.Controls();
    for (std::size_t i = 0; i < form.lvBU.Items().size(); ++i) form.lvBU.SetSelected(i, true);
    viewer.cmdView_Click();
    for (int run = 0; run < runs; ++run) {
        const Laps laps = Refresh(viewer, text);
        std::printf("refresh rep=%d load=%.6f show=%.6f total=%.6f\n", run, laps.load, laps.show,
                    laps.load + laps.show);
    }
    std::printf("kept rows=%zu bytes=%zu cells=%016llx\n", rows, HeapBytes() - before,
                static_cast<unsigned long long>(ReadAllCells(form)));
    return 0;
}
