#include "player/windows/Screen.h"

#include <commctrl.h>

#include <algorithm>

namespace dlv::player {

namespace {

using reader::ComPtr;
using reader::GridReader;
using reader::ToldRow;
using reader::ToldWindow;

constexpr wchar_t kGridClass[] = L"DashlonViewerGrid";
constexpr POINT kNowhere{-1, -1};

/// The headings of the panel's figures, in the order of the transcript.
const char* const kFigures[] = {"TechCount",
                                "HoursWorked",
                                "HoursRemaining",
                                "WODone",
                                "WOOpen",
                                "PointsDone",
                                "PointsOpen",
                                "WOsPerHour, CurrentProductivity",
                                "WOsPerHour, RequiredProductivity",
                                "PtsPerHour, CurrentProductivity",
                                "PtsPerHour, RequiredProductivity"};

/// A piece of the screen, taken at once.
class Picture {
public:
    explicit Picture(HWND window) {
        GetWindowRect(window, &place_);
        BITMAPINFO info{};
        info.bmiHeader = {
            sizeof(BITMAPINFOHEADER), Width(), -(place_.bottom - place_.top), 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        const HDC screen = GetDC(nullptr);
        const HDC memory = CreateCompatibleDC(screen);
        bitmap_ = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
        const HGDIOBJ before = SelectObject(memory, bitmap_);
        BitBlt(memory, 0, 0, Width(), place_.bottom - place_.top, screen, place_.left, place_.top, SRCCOPY);
        GdiFlush();
        SelectObject(memory, before);
        DeleteDC(memory);
        ReleaseDC(nullptr, screen);
    }
    ~Picture() { DeleteObject(bitmap_); }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    const RECT& Place() const { return place_; }
    /// The colour at a point of the screen; white outside.
    COLORREF At(int x, int y) const {
        const POINT point{x, y};
        if (bits_ == nullptr || !PtInRect(&place_, point)) return RGB(255, 255, 255);
        const auto pixel = static_cast<const RGBQUAD*>(bits_)[(y - place_.top) * Width() + x - place_.left];
        return RGB(pixel.rgbRed, pixel.rgbGreen, pixel.rgbBlue);
    }

private:
    LONG Width() const { return place_.right - place_.left; }

    RECT place_{};
    HBITMAP bitmap_ = nullptr;
    void* bits_ = nullptr;
};

/// The window that is read as "HEADING: VALUE"; null when none is.
const ToldWindow* FindNamed(const std::vector<ToldWindow>& windows, const std::string& heading) {
    for (const ToldWindow& window : windows)
        if (window.told.name == heading + ": " + window.told.value) return &window;
    return nullptr;
}

/// Whether the text in a window is rather red or rather blue.
const char* TextColour(HWND window) {
    const Picture picture(window);
    const RECT& place = picture.Place();
    int red = 0;
    int blue = 0;
    for (int y = place.top; y < place.bottom; ++y)
        for (int x = place.left; x < place.right; ++x) {
            const COLORREF colour = picture.At(x, y);
            const int difference = GetRValue(colour) - GetBValue(colour);
            if (difference > 80) ++red;
            if (difference < -80) ++blue;
        }
    return red > blue ? "red" : "blue";
}

Json StatusOf(const std::vector<ToldWindow>& windows) {
    for (const ToldWindow& window : windows)
        if (window.told.role == ROLE_SYSTEM_ALERT)
            return {{"text", window.told.name}, {"colour", TextColour(window.handle)}};
    return nullptr;
}

Json PanelOf(const std::vector<ToldWindow>& windows) {
    Json panel = Json::array();
    for (const char* heading : kFigures) {
        const ToldWindow* window = FindNamed(windows, heading);
        panel.push_back(window == nullptr ? std::string() : window->told.value);
    }
    return panel;
}

Json UnitsOf(HWND list) {
    Json units = Json::array();
    const auto count = SendMessageW(list, LVM_GETITEMCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        wchar_t text[1024] = {};
        LVITEMW item{};
        item.pszText = text;
        item.cchTextMax = 1024;
        SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
        const auto state = SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(i), LVIS_SELECTED);
        units.push_back({Utf8Of(text), state != 0});
    }
    return units;
}

RECT PlaceOf(IAccessible* object) {
    VARIANT self{};
    self.vt = VT_I4;
    long left = 0;
    long top = 0;
    long width = 0;
    long height = 0;
    if (object == nullptr || object->accLocation(&left, &top, &width, &height, self) != S_OK) return {};
    return {left, top, left + width, top + height};
}

POINT MiddleOf(const RECT& place) {
    if (IsRectEmpty(&place)) return kNowhere;
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

/// By the ground beside the texts of its first and last figures, of which one at most is selected.
bool IsGrey(const Picture& picture, const RECT& first, const RECT& last) {
    const auto grey = [&](const RECT& cell) {
        const COLORREF colour = picture.At(cell.left + 2, cell.top + 1);
        return colour == RGB(0xE0, 0xE0, 0xE0) || colour == RGB(0xD0, 0xD0, 0xD0);
    };
    return grey(first) || grey(last);
}

Json RowsOf(HWND window) {
    Json rows = Json::array();
    GridReader grid(window);
    const LONG header = grid.HeaderRows();
    const Picture picture(window);
    int firstLevel = 0;
    for (LONG id = header + 1; id <= grid.RowCount(); ++id) {
        const ToldRow told = grid.Row(id);
        if (id == header + 1) firstLevel = told.level;
        Json cells = Json::array();
        for (const reader::ToldCell& cell : told.cells) cells.push_back(cell.text);
        const ComPtr<IAccessible> row = grid.Child(grid.Object(), id);
        const RECT second = PlaceOf(grid.Child(row.Get(), 2).Get());
        const RECT last = PlaceOf(grid.Child(row.Get(), static_cast<LONG>(told.cells.size())).Get());
        Json entry = {{"cells", std::move(cells)},
                      {"depth", told.level - firstLevel},
                      {"grey", IsGrey(picture, second, last)}};
        if (told.node != ToldRow::Node::None) entry["collapsed"] = told.node == ToldRow::Node::Closed;
        rows.push_back(std::move(entry));
    }
    return rows;
}

/// On the last button to be seen of a bar that has all of these styles.
POINT LastButton(HWND bar, int styles) {
    POINT point = kNowhere;
    const auto count = static_cast<WPARAM>(SendMessageW(bar, TB_BUTTONCOUNT, 0, 0));
    for (WPARAM i = 0; i < count; ++i) {
        TBBUTTON button{};
        RECT place{};
        SendMessageW(bar, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button));
        if ((button.fsStyle & styles) != styles || (button.fsState & TBSTATE_HIDDEN) != 0 ||
            !SendMessageW(bar, TB_GETITEMRECT, i, reinterpret_cast<LPARAM>(&place)))
            continue;
        MapWindowPoints(bar, nullptr, reinterpret_cast<POINT*>(&place), 2);
        point = MiddleOf(place);
    }
    return point;
}

bool IsOption(const ToldWindow& window) {
    if (window.className != "Button") return false;
    const auto kind = GetWindowLongPtrW(window.handle, GWL_STYLE) & BS_TYPEMASK;
    return kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON;
}

int ChosenOf(HWND second) { return SendMessageW(second, BM_GETCHECK, 0, 0) == BST_CHECKED ? 1 : 0; }

}  // namespace

std::string Utf8Of(const wchar_t* text) { return reader::Utf8(text); }

Json Screen::State() const {
    const ToldWindow* const profile = FindNamed(windows_, "CurrentProfile");
    const bool refreshed = FindNamed(windows_, "LastRefreshTime") != nullptr;
    const HWND display = Option(3);
    return {{"status", StatusOf(windows_)},
            {"panel", PanelOf(windows_)},
            {"units", UnitsOf(UnitList())},
            {"tab", Tab()},
            {"mode", ChosenOf(Option(1))},
            {"display", display == nullptr ? Json() : Json(ChosenOf(display))},
            {"grid", RowsOf(Grid())},
            {"viewEnabled", IsWindowEnabled(ViewButton()) != 0},
            {"profile", profile == nullptr ? Json() : Json(profile->told.value)},
            {"refreshShown", refreshed}};
}

HWND Screen::UnitList() const { return reader::WindowOf(control_, WC_LISTVIEWW); }

HWND Screen::ViewButton() const {
    for (const ToldWindow& window : windows_)
        if (window.className == "Button" && !IsOption(window)) return window.handle;
    return nullptr;
}

HWND Screen::Option(int index) const {
    for (const ToldWindow& window : windows_)
        if (IsOption(window) && index-- == 0) return window.handle;
    return nullptr;
}

HWND Screen::Grid() const { return reader::WindowOf(control_, kGridClass); }

POINT Screen::MenuButtonPoint() const {
    return LastButton(reader::WindowOf(control_, TOOLBARCLASSNAMEW), BTNS_WHOLEDROPDOWN);
}

POINT Screen::AboutButtonPoint() const {
    return LastButton(reader::WindowOf(control_, TOOLBARCLASSNAMEW), BTNS_BUTTON);
}

HWND Screen::TechnicianCount() const {
    const ToldWindow* window = FindNamed(windows_, kFigures[0]);
    return window == nullptr ? nullptr : window->handle;
}

int Screen::Tab() const {
    return static_cast<int>(SendMessageW(reader::WindowOf(control_, WC_TABCONTROLW), TCM_GETCURSEL, 0, 0));
}

POINT Screen::TabPoint(int tab) const {
    const HWND tabs = reader::WindowOf(control_, WC_TABCONTROLW);
    RECT place{};
    if (!SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&place)))
        return kNowhere;
    MapWindowPoints(tabs, nullptr, reinterpret_cast<POINT*>(&place), 2);
    return MiddleOf(place);
}

POINT Screen::HeadingPoint() const {
    GridReader grid(Grid());
    const ComPtr<IAccessible> header = grid.Child(grid.Object(), grid.HeaderRows());
    return MiddleOf(PlaceOf(grid.Child(header.Get(), 1).Get()));
}

POINT Screen::CellPoint(int row, int cell) const {
    GridReader grid(Grid());
    const ComPtr<IAccessible> line = grid.Child(grid.Object(), grid.HeaderRows() + 1 + row);
    return MiddleOf(PlaceOf(grid.Child(line.Get(), cell + 1).Get()));
}

std::vector<std::string> Screen::Labels(HWND dialog) {
    std::vector<std::string> labels;
    for (const ToldWindow& window : reader::WindowsIn(dialog))
        if (window.className == "Static") labels.push_back(window.told.name);
    return labels;
}

}  // namespace dlv::player
