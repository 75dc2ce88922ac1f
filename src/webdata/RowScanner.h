// The fast way through a table's rows: a row that the reader has taken apart serves as the pattern
// for those that follow. What stands between the values must repeat letter for letter, and the
// values must be plain; the first row that differs is left to the reader. So the scanner needs to
// know nothing of markup, and can accept nothing that the reader would refuse.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "webdata/QuoteFinder.h"
#include "webdata/TableCells.h"
#include "webdata/XmlReader.h"

namespace dlv {

class RowScanner {
public:
    /// The document that `cells` was made for.
    RowScanner(std::string_view text, TableCells& cells) : text_(text), cells_(cells), quotes_(text) {}

    /// Takes the row between two offsets, whose attributes are given, as the pattern.
    void Learn(std::size_t start, std::size_t end, std::span<const XmlReader::Attribute> attributes,
               TableCells::Shape shape);

    /// Adds the rows from `position` on that are like the pattern. Returns where the first other
    /// one, or whatever follows, starts.
    std::size_t Scan(std::size_t position);

private:
    /// The text between two values, quotes included: its first and last eight bytes as words.
    struct Piece {
        explicit Piece(std::string_view piece);
        bool Matches(const char* at) const;

        std::uint64_t first = 0;
        std::uint64_t last = 0;
        std::uint64_t mask = 0;
        std::uint32_t length = 0;
        std::uint32_t lastAt = 0;
        const char* text = nullptr;
    };

    bool ScanRow(std::size_t position, const std::uint32_t* quotes);
    bool IsPlainText(std::size_t position, std::size_t length) const;
    void MakeRoom(std::size_t position);

    std::string_view text_;
    TableCells& cells_;
    QuoteFinder quotes_;
    /// One before each value, and one behind the last.
    std::vector<Piece> pieces_;
    TableCells::Shape shape_ = 0;
    std::size_t firstRowStart_ = 0;
    std::size_t rowsBefore_ = 0;
};

}  // namespace dlv
