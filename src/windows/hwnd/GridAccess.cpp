#include "windows/hwnd/GridAccess.h"

#include "windows/hwnd/GridWindow.h"

namespace dlv {

namespace {

constexpr int kLeftButton = 1;

}  // namespace

HWND GridAccess::Surface() const { return window_.Handle(); }

OutlineGrid& GridAccess::Grid() const { return window_.Grid(); }

GridLayout GridAccess::Layout() const { return window_.Layout(); }

GridSight GridAccess::Sight() const { return window_.Sight(window_.Layout()); }

std::string GridAccess::Name() const { return window_.Form().NameOf(Grid()); }

std::string GridAccess::Reason(int row, int column) const {
    return window_.Form().Listener().GridExplanation(Grid(), row, column);
}

std::string GridAccess::Caption(CaptionKey key) const { return window_.Form().Listener().CaptionOf(key); }

void GridAccess::RunAsked() {
    const std::optional<Asked> asked = TakeAsked();
    if (!asked || !TakesInput(Surface())) return;
    GoTo(asked->row, asked->column);
    FormListener& listener = window_.Form().Listener();
    listener.GridPressed(Grid(), kLeftButton);
    listener.GridDoubleClicked(Grid(), asked->row, asked->column);
}

}  // namespace dlv
