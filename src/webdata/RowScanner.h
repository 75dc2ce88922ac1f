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

#include "webdata/TableCells.h"
#include "webdata/TextPool.h"
#include "webdata/XmlReader.h"

namespace dlv {

class RowScanner {
public:
    /// The document that `cells` was made for.
    RowScanner(std::string_view text, TableCells& cells) : text_(text), cells_(cells) {}

    /// Takes the row between two offsets, whose attributes are given, as the pattern.
    void Learn(std::size_t start, std::size_t end, std::span<const XmlReader::Attribute> attributes,
               TableCells::Shape shape);

    /// Adds the rows from `position` on that are like the pattern. Returns where the first other
    /// one, or whatever follows, starts.
    std::size_t Scan(std::size_t position);

private:
    /// What a value is taken for at first. Text may turn out to be a number, and a number to be empty.
    enum class Kind { Number, Text };

    /// The text between two values, quotes included: its first and last eight bytes as words.
    struct Piece {
        explicit Piece(std::string_view piece);
        bool EndsMatch(const char* at) const;
        bool MiddleMatches(const char* at) const;
        void SetKind(Kind newKind);

        std::uint64_t first = 0;
        std::uint64_t last = 0;
        std::uint64_t mask = 0;
        std::size_t lastAt = 0;
        std::size_t length = 0;
        const char* text = nullptr;
        /// Eight times the quote that ends the value behind this piece.
        std::uint64_t quotes = 0;
        /// Of that value.
        Kind kind = Kind::Number;
        /// A number behind a piece that is compared by its ends alone.
        bool isSimple = false;
    };

    std::size_t NextRow(std::size_t position) const;
    bool ScanRow(const char* at, const char* end);
    bool Reconsider(Piece* piece);
    static const char* ScanNumber(const char* at, Cell& cell);
    const char* ScanValue(const Piece& piece, const char* at, Cell& cell);
    const char* ScanText(const char* at, std::uint64_t quotes, Cell& cell);
    const char* ScanNewText(const char* at, std::uint64_t quotes, Cell& cell);
    const char* ScanUnusualText(const char* begin, std::uint64_t quotes, Cell& cell) const;
    void MakeRoom(std::size_t position);

    std::string_view text_;
    TableCells& cells_;
    TextPool pool_;
    /// One before each value, and one behind the last.
    std::vector<Piece> pieces_;
    /// The row is to be scanned again, with other kinds of values.
    bool again_ = false;
    std::size_t longestPiece_ = 0;
    /// How many tags a row has, and the length of all pieces.
    std::size_t tagsOfRow_ = 0;
    std::size_t leastLength_ = 0;
    TableCells::Shape shape_ = 0;
    std::size_t firstRowStart_ = 0;
    std::size_t rowsBefore_ = 0;
};

}  // namespace dlv
