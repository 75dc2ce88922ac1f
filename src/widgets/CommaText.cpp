#include "widgets/CommaText.h"

#include "base/Text.h"
#include "widgets/GridText.h"

namespace dlv {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kPiece = std::size_t{256} * 1024;

}  // namespace

void WriteCommaText(const OutlineGrid& grid, OutputFile& file) {
    std::string piece(kByteOrderMark);
    piece.reserve(kPiece + kPiece / 4);
    const auto write = [&] {
        ReplaceLoneSurrogates(piece);
        file.Write(piece);
        piece.clear();
    };
    for (int row = 0; row < grid.Rows(); ++row) {
        for (int column = 0; column < grid.Columns(); ++column) {
            if (column > 0) piece += ',';
            const std::size_t begin = piece.size();
            grid.AppendCell(row, column, piece);
            QuoteField(piece, begin, ',');
        }
        piece += "\r\n";
        if (piece.size() >= kPiece) write();
    }
    write();
}

}  // namespace dlv
