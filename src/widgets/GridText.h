// What an outline grid says in words: the text that a cell shows, the heading of a column, and cells as text
// for the clipboard.
#pragma once

#include <string>

#include "widgets/OutlineGrid.h"

namespace dlv {

/// The text that a cell shows: a row whose tree column is empty shows there the text of the hidden columns
/// before it.
std::string ShownText(const OutlineGrid& grid, int row, int column);

/// The captions above a column in one text, like "Work Orders: Open"; a caption that stands twice is said
/// once.
std::string ColumnHeading(const OutlineGrid& grid, int column);

enum class Headings { Without, With };
/// The selected cells that are displayed, as tab-separated text with a CR LF behind each row: what
/// spreadsheets take with its columns. A text with a tab, a line end or a quotation mark stands in quotation
/// marks. Empty when nothing is selected.
std::string CopyText(const OutlineGrid& grid, Headings headings);

}  // namespace dlv
