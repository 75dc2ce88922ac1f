#include "tests/windows/forms/FormHost.h"

#include "windows/com/Strings.h"

namespace dlv::test {

OuterWindow::OuterWindow(WindowHost& host, SIZE size) : Window(host) {
    Making making;
    making.style = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN;
    making.place = {0, 0, size.cx, size.cy};
    MakeOwn(kControlClass, making);
}

LRESULT OuterWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    return Reflect(message, wParam, lParam, result) ? result : Default(message, wParam, lParam);
}

SampleForm::SampleForm() : Form("sample") {
    Place(frame, {0, 0, Pixels(600), Pixels(400)});
    Place(label, {Pixels(10), Pixels(10), Pixels(100), Pixels(17)}, frame);
    Place(list, {Pixels(10), Pixels(30), Pixels(200), Pixels(80)}, frame);
    Place(option[0], {Pixels(220), Pixels(30), Pixels(100), Pixels(20)}, frame);
    Place(option[1], {Pixels(220), Pixels(60), Pixels(100), Pixels(20)}, frame);
    Place(button, {Pixels(330), Pixels(30), Pixels(80), Pixels(26)}, frame);
    Place(tabs, {Pixels(10), Pixels(120), Pixels(580), Pixels(270)}, frame);
    Place(grid, {Pixels(20), Pixels(150), Pixels(480), Pixels(200)}, frame);
    Place(bar, {Pixels(420), Pixels(30), Pixels(150), Pixels(32)}, frame);
    tabs.SetTabs({{"One", ""}, {"Two", ""}});
    bar.SetItems({{"SaveGrid", Toolbar::Style::Button, "Save", true}});
}

ShownForm::ShownForm(int dpi)
    : outer(host, {MulDiv(600, dpi, kDesignDpi), MulDiv(400, dpi, kDesignDpi)}), windows(host, form, *this) {
    host.owner = outer.Handle();
    host.Window([&] { windows.Make(outer.Handle(), DefaultFont(), Scale(dpi)); });
    host.flush = [this] { windows.Flush(); };
    SetFocus(outer.Handle());
    Paint();
}

RECT ShownForm::PlaceOf(const Control& control) const {
    RECT place{};
    GetWindowRect(Of(control), &place);
    MapWindowPoints(nullptr, GetParent(Of(control)), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

std::string ShownForm::TextOf(const Control& control) const {
    wchar_t text[256];
    return Narrow(std::wstring_view(text, static_cast<std::size_t>(GetWindowTextW(Of(control), text, 256))));
}

void ShownForm::Change(const std::function<void()>& change) { host.Window(change); }

void ShownForm::Paint() const {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    RedrawWindow(outer.Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

GridLayout ShownForm::Layout() const {
    RECT place{};
    GetWindowRect(Of(form.grid), &place);
    return GridLayout(form.grid, Scale(), {place.right - place.left, place.bottom - place.top}, kBar);
}

POINT ShownForm::CellMiddle(int row, int column) const {
    return Middle(Layout().CellArea(form.grid.DisplayedIndex(row), column));
}

void ShownForm::Clicked(Control& control) {
    for (int i = 0; i < 2; ++i) {
        if (&control != &form.option[i]) continue;
        form.option.Select(i);
        done.push_back("option " + std::to_string(i));
        return;
    }
    done.push_back("click " + control.Name());
}

void ShownForm::TabChosen(TabStrip& tabs) { done.push_back("tab " + std::to_string(tabs.SelectedTab())); }

void ShownForm::ToolChosen(Toolbar&, const std::string& key, const std::optional<RECT>& place) {
    done.push_back((place ? "tool without mouse " : "tool ") + key);
}

void ShownForm::GridPressed(OutlineGrid&, int button) { done.push_back("press " + std::to_string(button)); }

void ShownForm::GridDoubleClicked(OutlineGrid&, int row, int column) {
    done.push_back("double " + std::to_string(row) + " " + std::to_string(column));
}

void ShownForm::GridKeyPressed(OutlineGrid&, int key, bool shift) {
    done.push_back("key " + std::to_string(key) + (shift ? " shift" : ""));
}

void Press(HWND window, WPARAM key) {
    SendMessageW(window, WM_KEYDOWN, key, 1);
    SendMessageW(window, WM_KEYUP, key, 1);
}

void Click(HWND window, POINT point, UINT down) {
    SendMessageW(window, down, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
}

POINT Middle(const RECT& area) { return {(area.left + area.right) / 2, (area.top + area.bottom) / 2}; }

void FillGrid(OutlineGrid& grid, int units) {
    grid.Clear();
    grid.SetColumns(6);
    grid.Reserve(units + 3);
    grid.SetRows(units + 3);
    grid.SetFixedRows(2);
    grid.SetHeaderRowHeight(1, 2);
    grid.SetColumnWidth(0, Pixels(150));
    for (int column = 1; column < 6; ++column) {
        grid.SetColumnWidth(column, Pixels(60));
        grid.SetText(0, column, "Work");
        grid.SetText(1, column, "Column");
    }
    grid.SetHeaderColour(0, 1, 5, 0xFAFDC6);
    grid.SetText(2, 0, "Root");
    grid.MakeNode(2, 0);
    grid.SetRowBackColour(2, 0xD0D0D0);
    for (int row = 3; row < grid.Rows(); ++row) {
        grid.SetText(row, 0, "Unit");
        grid.MakeNode(row, 1);
        for (int column = 1; column < 6; ++column) grid.SetWhole(row, column, row);
    }
    grid.SetCurrentCell(2, 0);
}

}  // namespace dlv::test
