// A grid as comma-separated text: what spreadsheets and databases read.
#pragma once

#include "widgets/OutlineGrid.h"
#include "widgets/Output.h"

namespace dlv {

/// All cells, those of header rows, hidden columns and rows under collapsed nodes included: one line for each
/// row, ended by CR LF. UTF-8 with a byte-order mark. A text that holds a comma, a quotation mark or a line
/// end stands in quotation marks.
void WriteCommaText(const OutlineGrid& grid, OutputFile& file);

}  // namespace dlv
