// What an outline grid says in words: the text that a cell shows, the heading of a column, and cells as text
// for the clipboard.
#pragma once

#include <string>
#include <string_view>

#include "widgets/OutlineGrid.h"

namespace dlv {

/// The text that a cell shows: a row whose tree column is empty shows there the text of the hidden columns
/// before it.
std::string ShownText(const OutlineGrid& grid, int row, int column);

/// The captions above a column in one text, like "Work Orders: Open"; a caption that stands twice is said
/// once.
std::string ColumnHeading(const OutlineGrid& grid, int column);

/// The last column that shares the caption of this one: captions of the first header row that are equal and
/// of one colour are shown as one, over all of their columns.
int LastOfCaption(const OutlineGrid& grid, int row, int column);

/// Appends one field of separated text: in quotation marks when it holds the separator, a quotation mark or a
/// line end.
void AppendField(std::string& text, std::string_view field, char separator);
/// The same for a field that was appended at `begin` already.
void QuoteField(std::string& text, std::size_t begin, char separator);

enum class Headings { Without, With };
/// The selected cells that are displayed, as tab-separated text with a CR LF behind each row: what
/// spreadsheets take with its columns. A text with a tab, a line end or a quotation mark stands in quotation
/// marks. Empty when nothing is selected.
std::string CopyText(const OutlineGrid& grid, Headings headings);

}  // namespace dlv
