// views [ROUNDS] : what a person waits for in the built control, shown in a window: painting a frame of the
// hierarchy, opening all of its nodes, and a refresh, at several numbers of units. A native list view filled
// with the same texts stands beside the refresh. All take turns; the best run of each counts, the first being
// cold.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>

#include "bench/windows/Calls.h"
#include "hosts/container/Container.h"
#include "hosts/container/Library.h"
#include "hosts/container/WindowList.h"

namespace {

using namespace dlv::bench;
using dlv::container::Container;
using dlv::container::Library;
using Microsoft::WRL::ComPtr;

constexpr int kColumns = 12;
constexpr int kRowsInSight = 40;
constexpr int kHeaderRows = 3;  // of the height of a row each
constexpr int kFanOut = 10;
constexpr RECT kPlace{0, 0, 1200, 228 + 63 + 25 + (kRowsInSight + kHeaderRows) * 17};
constexpr wchar_t kGrid[] = L"DashlonViewerGrid";

std::wstring Id(int unit) { return L"U" + std::to_wstring(unit); }

void AddTable(std::wstring& text, const wchar_t* name, const std::wstring& rows) {
    text.append(L"<WebTable Name=\"").append(name).append(L"\">").append(rows).append(L"</WebTable>");
}

/// Each unit stands below the one with a tenth of its number; all have figures, others in each `round`.
std::wstring MessageText(int units, int round) {
    std::wstring tree;
    std::wstring general;
    std::wstring details;
    for (int unit = 1; unit <= units; ++unit) {
        const std::wstring id = L"<row BUID=\"" + Id(unit) + L"\"";
        tree += id + L" BUDesc=\"Unit " + std::to_wstring(unit) + L"\" ParentBUID=\"" +
                (unit < kFanOut ? L"#" : Id(unit / kFanOut)) + L"\"/>";
        general += id + L" BUDesc=\"\" TechCount=\"" + std::to_wstring(unit % 9 + round) +
                   L"\" HoursWorked=\"7\" HoursRemaining=\"5\"/>";
        details += id + L" JobType=\"T\" JobClass=\"C\"";
        for (const wchar_t* status :
             {L"Open", L"Warning", L"Jeopardy", L"Late", L"Completed", L"Canceled", L"NotDone"})
            for (const wchar_t* measure : {L" WO", L" Pts"})
                details +=
                    std::wstring(measure) + status + L"=\"" + std::to_wstring(unit % 50 + round) + L"\"";
        details += L"/>";
    }
    std::wstring text = L"<WebMessage Name=\"DLVData\"><WebData>";
    AddTable(text, L"BusinessUnits", tree);
    AddTable(text, L"JobTypes", {});
    AddTable(text, L"JobClasses", {});
    AddTable(text, L"RegionalFormats", L"<row languageCode=\"EN\" timeformat=\"hh:mm\"/>");
    AddTable(text, L"BUGeneralInfo", general);
    AddTable(text, L"BUDetailsInfo", details);
    return text + L"</WebData></WebMessage>";
}

void PumpMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

void PaintNow(HWND window) { RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN); }

/// The first visible window of the class inside `parent`.
HWND FindInside(HWND parent, const wchar_t* className) {
    const std::vector<HWND> found = dlv::container::VisibleInside(parent, className);
    if (found.empty()) Need(E_FAIL, "finding a window");
    return found.front();
}

class HostWindow {
public:
    HostWindow()
        : window_(CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0,
                                  kPlace.right, kPlace.bottom, nullptr, nullptr, nullptr, nullptr)) {}
    ~HostWindow() { DestroyWindow(window_); }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    HWND Handle() const { return window_; }

private:
    HWND window_;
};

/// Milliseconds that something takes until it is on the screen.
template <class Action>
double Timed(HWND window, Action action) {
    PumpMessages();
    PaintNow(window);
    const double start = Now();
    action();
    PaintNow(window);
    return Now() - start;
}

struct Times {
    double frame = 1e9;
    double open = 1e9;
    double refresh = 1e9;
    double list = 1e9;
};

/// A control that shows the hierarchy of so many units, all chosen.
class ShownHierarchy {
public:
    ShownHierarchy(const Library& library, int units)
        : container_(window_.Handle(), window_.Handle(), kPlace, {}) {
        Need(library.Create(L"DashlonViewer.DLViewer").As(&viewer_), "control");
        Need(container_.Insert(viewer_.Get()), "Insert");
        Need(container_.Activate(), "Activate");
        std::vector<std::wstring> ids;
        for (int unit = 1; unit <= units; ++unit) ids.push_back(Id(unit));
        StartUp(*viewer_.Get(), ids);
        for (int round = 0; round < 2; ++round) {
            Need(library.Create(L"DashlonViewer.QZWebMessage").As(&messages_[round]), "QZWebMessage");
            Need(messages_[round]->LoadText(_bstr_t(MessageText(units, round).c_str())), "LoadText");
        }
        Push(*viewer_.Get(), *messages_[0].Get());
        const HWND control = container_.ControlWindow();
        LVITEMW all{};
        all.state = all.stateMask = LVIS_SELECTED;
        SendMessageW(FindInside(control, WC_LISTVIEWW), LVM_SETITEMSTATE, static_cast<WPARAM>(-1),
                     reinterpret_cast<LPARAM>(&all));
        SendMessageW(FindInside(control, WC_TABCONTROLW), TCM_SETCURFOCUS, 1, 0);
        Push(*viewer_.Get(), *messages_[1].Get());
        grid_ = FindInside(control, kGrid);
        SendMessageW(grid_, WM_KEYDOWN, VK_DOWN, 1);
        SCROLLINFO bar{sizeof bar, SIF_RANGE, 0, 0, 0, 0, 0};
        if (!GetScrollInfo(grid_, SB_VERT, &bar) || bar.nMax != units) Need(E_FAIL, "showing all units");
    }
    ~ShownHierarchy() {
        viewer_->StopControl();
        container_.Remove();
    }
    ShownHierarchy(const ShownHierarchy&) = delete;
    ShownHierarchy& operator=(const ShownHierarchy&) = delete;

    double Frame() const {
        return Timed(grid_, [&] { InvalidateRect(grid_, nullptr, FALSE); });
    }
    double OpenAll() const {
        BYTE keys[256] = {};
        keys[VK_SHIFT] = 0x80;
        SetKeyboardState(keys);
        SendMessageW(grid_, WM_KEYDOWN, VK_SUBTRACT, 1);
        keys[VK_SHIFT] = 0;
        SetKeyboardState(keys);
        return Timed(grid_, [&] { SendMessageW(grid_, WM_KEYDOWN, VK_MULTIPLY, 1); });
    }
    double Refresh() {
        round_ = 1 - round_;
        return Timed(window_.Handle(), [&] { Push(*viewer_.Get(), *messages_[round_].Get()); });
    }

private:
    HostWindow window_;
    Container container_;
    ComPtr<_DLViewer> viewer_;
    ComPtr<_QZWebMessage> messages_[2];
    HWND grid_ = nullptr;
    int round_ = 1;
};

/// The system's list view, filled with as many rows of the same kind of texts.
class NativeList {
public:
    explicit NativeList(int units) : units_(units) {
        list_ = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0, kPlace.right,
                                kPlace.bottom, window_.Handle(), nullptr, nullptr, nullptr);
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH;
        column.cx = kPlace.right / kColumns;
        for (int i = 0; i < kColumns; ++i)
            SendMessageW(list_, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }

    double Refill() {
        ++round_;
        return Timed(window_.Handle(), [&] {
            SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
            SendMessageW(list_, LVM_DELETEALLITEMS, 0, 0);
            for (int unit = 1; unit <= units_; ++unit) AddRow(unit);
            SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
            InvalidateRect(list_, nullptr, FALSE);
        });
    }

private:
    void AddRow(int unit) const {
        std::wstring text = L"Unit " + std::to_wstring(unit);
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = unit - 1;
        item.pszText = text.data();
        SendMessageW(list_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        for (item.iSubItem = 1; item.iSubItem < kColumns; ++item.iSubItem) {
            text = std::to_wstring(unit % 50 + round_);
            item.pszText = text.data();
            SendMessageW(list_, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        }
    }

    HostWindow window_;
    HWND list_;
    int units_;
    int round_ = 0;
};

Times Measure(const Library& library, int units, int rounds) {
    Times best;
    ShownHierarchy hierarchy(library, units);
    const auto list = std::make_unique<NativeList>(units);
    for (int round = 0; round <= rounds; ++round) {
        const Times now{hierarchy.Frame(), hierarchy.OpenAll(), hierarchy.Refresh(), list->Refill()};
        if (round == 0) continue;
        best = {std::min(best.frame, now.frame), std::min(best.open, now.open),
                std::min(best.refresh, now.refresh), std::min(best.list, now.list)};
    }
    return best;
}

void PrintGrowth(const char* what, double few, double many, const char* unit) {
    std::printf("%-46s x %.2f%s\n", what, many / few, unit);
}

void MeasureAll(int rounds) {
    const Library library(dlv::container::BesideProgram(L"DashlonViewer.manifest"));
    std::map<int, Times> times;
    std::printf(
        "The hierarchy on the screen, %d rows of %d cells in sight; best of %d warm runs each, in turns\n",
        kRowsInSight, kColumns, rounds);
    for (const int units : {1000, 10000, 100000}) {
        times[units] = Measure(library, units, rounds);
        const Times& t = times[units];
        std::printf(
            "%6d units: frame %7.2f ms, opening all %8.2f ms, refresh %8.2f ms, native list %8.2f ms\n",
            units, t.frame, t.open, t.refresh, t.list);
    }
    PrintGrowth("frame, 1,000 to 100,000 units", times[1000].frame, times[100000].frame, "");
    PrintGrowth("opening all, 10,000 to 100,000 units", times[10000].open, times[100000].open,
                " (10 is linear)");
    PrintGrowth("refresh, 1,000 to 10,000 units", times[1000].refresh, times[10000].refresh,
                " (10 is linear)");
    PrintGrowth("refresh, 10,000 to 100,000 units", times[10000].refresh, times[100000].refresh,
                " (10 is linear)");
    std::printf("refresh of 10,000 units, in native list views filled: %.2f\n",
                times[10000].refresh / times[10000].list);
}

}  // namespace

int main(int argc, char** argv) {
    Need(OleInitialize(nullptr), "OleInitialize");
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    MeasureAll(argc > 1 ? std::max(1, std::atoi(argv[1])) : 10);
    OleUninitialize();
    return 0;
}
