// A grid as its accessible objects find it on the screen: its state, where its cells stand, and the texts
// that its form has for it. Rows are numbered for readers by their place among the displayed rows, from 1;
// cells have ids of their own below 0, so that an event can name one.
#pragma once

#include "windows/com/PlainWindows.h"

#include <optional>
#include <string>
#include <string_view>

#include "ui/CaptionKey.h"
#include "widgets/GridReading.h"
#include "widgets/GridText.h"
#include "widgets/GridWalk.h"
#include "windows/access/AccessAnchor.h"
#include "windows/gdi/GridLayout.h"

namespace dlv {

class GridScreen {
public:
    virtual ~GridScreen() = default;

    virtual HWND Surface() const = 0;
    virtual OutlineGrid& Grid() const = 0;
    virtual GridLayout Layout() const = 0;
    virtual GridSight Sight() const = 0;
    virtual std::string Name() const = 0;
    /// Why the cell shows what it shows; empty when there is nothing to tell.
    virtual std::string Reason(int row, int column) const = 0;
    /// The text for a key in the user's language.
    virtual std::string Caption(CaptionKey key) const = 0;

    OutlinePlaces::Place PlaceOf(int row) { return places_.Of(Grid(), row); }
    bool IsData(int row) const { return row >= Grid().FixedRows(); }
    bool IsDisplayed(int row) const;
    bool HasFocus() const { return GetFocus() == Surface(); }
    /// The displayed row that the current cell stands in, or the node that hides it; `kNoRow` when it is in
    /// the header.
    int CurrentRow() const;
    /// Where the current cell is among the columns that are read.
    int CurrentColumn() const;

    /// Whether the row, or that column of it, is selected.
    bool IsSelected(int row, std::optional<int> column = {}) const;

    LONG IdOfRow(int row) const { return Grid().DisplayedIndex(row) + 1; }
    LONG IdOfCell(int row, int column) const;
    struct Place {
        int row;
        /// Nothing for the row as a whole.
        std::optional<int> column;
    };
    /// What an id stands for now; nothing for one that stands for nothing.
    std::optional<Place> PlaceOfId(LONG id) const;

    /// Makes a cell the current one and brings it into sight.
    void GoTo(int row, int column);

    /// What a reader asked for is done once its call has returned: it may open a dialog. The window gets
    /// `kAccessAction` and asks for the cell, which may have gone meanwhile.
    void AskForRecords(int row, int column);
    struct Asked {
        int row;
        int column;
    };
    std::optional<Asked> TakeAsked();

private:
    struct Pending {
        RowReference row;
        int column;
    };

    OutlinePlaces places_;
    std::optional<Pending> pending_;
};

}  // namespace dlv
