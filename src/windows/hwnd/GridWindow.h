// The window of an outline grid. The grid's state stays in the grid: the window paints it from a buffer, only
// the rows that changed, and turns keys, mouse, wheel and scroll bars into changes of that state.
#pragma once

#include <optional>
#include <vector>

#include "widgets/GridFit.h"
#include "widgets/GridText.h"
#include "widgets/GridWalk.h"
#include "widgets/TypeAhead.h"
#include "windows/gdi/GridPainter.h"
#include "windows/gdi/PaintBuffer.h"
#include "windows/hwnd/GridAccess.h"
#include "windows/hwnd/GridMouse.h"
#include "windows/hwnd/Mirror.h"

namespace dlv {

class GridWindow : public Mirror {
public:
    GridWindow(FormWindows& form, OutlineGrid& grid) : Mirror(form, grid), grid_(grid), mouse_(*this, grid) {}
    void Make(HWND parent) override;
    void Apply() override;
    void LookChanged() override;
    bool TakesFocus() const override { return true; }
    std::string ToolTip() const override { return {}; }
    void ApplyName() override { ApplyText(Owner().NameOf(grid_)); }

    // For the mouse and for readers of the screen.

    FormWindows& Form() const { return Owner(); }
    OutlineGrid& Grid() const { return grid_; }
    GridLayout Layout() const;
    GridSight Sight(const GridLayout& layout) const;
    Scale Measure() const { return Kept().scale; }
    const Fonts& Faces() const { return Kept().fonts; }
    /// Makes the cell the current one and brings it into sight.
    void GoTo(int row, int column, Selecting selecting);
    /// Makes the column as wide as what it shows.
    void FitColumn(int column);

protected:
    ComPtr<AccessibleObject> Accessible() override { return MakeObject<AccessibleGrid>(Anchor(), access_); }
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    /// What was on the screen when it was last compared with the state.
    struct Snapshot {
        SIZE inner{};
        int scrolled = -1;
        int treeColumn = -1;
        std::vector<int> edges;
        std::vector<bool> bold;
        std::size_t header = 0;
        std::vector<std::size_t> rows;
    };

    GridFocus FocusNow() const;

    void UpdateBars(const GridLayout& layout);
    void InvalidateChanges(const GridLayout& layout);
    void InvalidateSelection();
    void Paint();
    void PaintInto(HDC dc, const RECT& clip) const;

    std::optional<LRESULT> OnInput(UINT message, WPARAM wParam, LPARAM lParam);
    void Normalise(const GridLayout& layout);
    bool OnKey(int key);
    bool OnEscape();
    bool OnCharacter(wchar_t unit);
    void Run(GridCommand command, Selecting selecting);
    void Copy(Headings headings);
    TextMeasure Measuring() const;
    void OnMenu(POINT place);
    POINT MenuPlace(LPARAM lParam);
    LRESULT OnDialogCode(const MSG* message) const;
    void OnVerticalBar(int request);
    void OnHorizontalBar(int request);
    bool OnWheel(UINT message, int delta);

    OutlineGrid& grid_;
    GridMouse mouse_;
    TypeAhead typed_;
    wchar_t highSurrogate_ = 0;
    /// The key just pressed was a command; the character that comes with it is not meant.
    bool skipCharacter_ = false;
    GridAccess access_{*this};
    Snapshot snapshot_;
    Bitmap picture_;
    SIZE pictureSize_{};
    int wheelRest_ = 0;
    int sideWheelRest_ = 0;
    bool updatingBars_ = false;
};

}  // namespace dlv
