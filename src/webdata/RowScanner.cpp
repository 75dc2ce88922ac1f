#include "webdata/RowScanner.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <utility>

#include "webdata/BlockMask.h"
#include "webdata/Words.h"
#include "webdata/XmlChars.h"

namespace dlv {

namespace {

constexpr std::size_t kWord = sizeof(std::uint64_t);
constexpr std::uint64_t kNoStop = std::uint64_t{1} << 63;

/// The least number that is written with so many digits; none is with 0 digits.
constexpr std::array<std::uint32_t, 8> kLeastOfLength{0xFFFFFFFF, 0, 10, 100, 1000, 10000, 100000, 1000000};

}  // namespace

RowScanner::Piece::Piece(std::string_view piece)
    : lastAt(piece.size() > kWord ? piece.size() - kWord : 0),
      length(piece.size()),
      text(piece.data()),
      quotes(EveryByte(static_cast<unsigned char>(piece.back()))) {
    const std::size_t shown = std::min(length, kWord);
    mask = ~std::uint64_t{0} >> (8 * (kWord - shown));
    std::memcpy(&first, piece.data(), shown);
    std::memcpy(&last, piece.data() + lastAt, shown);
}

void RowScanner::Piece::SetKind(Kind newKind) {
    kind = newKind;
    isSimple = kind == Kind::Number && length <= 2 * kWord;
}

/// Compares the ends of the piece, which is all of it up to 16 bytes. Reads a word from `at` on, also
/// where the piece is shorter.
inline bool RowScanner::Piece::EndsMatch(const char* at) const {
    return (((LoadWord(at) ^ first) | (LoadWord(at + lastAt) ^ last)) & mask) == 0;
}

inline bool RowScanner::Piece::MiddleMatches(const char* at) const {
    return length <= 2 * kWord || std::memcmp(at + kWord, text + kWord, length - 2 * kWord) == 0;
}

void RowScanner::Learn(std::size_t start, std::size_t end, std::span<const XmlReader::Attribute> attributes,
                       TableCells::Shape shape) {
    if (rowsBefore_ == 0) firstRowStart_ = start;
    ++rowsBefore_;
    shape_ = shape;
    pieces_.clear();
    longestPiece_ = 0;
    tagsOfRow_ = 0;
    leastLength_ = 0;
    std::size_t from = start;
    const auto add = [&](std::size_t to) {
        const std::string_view piece = text_.substr(from, to - from);
        pieces_.emplace_back(piece);
        longestPiece_ = std::max(longestPiece_, piece.size());
        leastLength_ += piece.size();
        tagsOfRow_ += static_cast<std::size_t>(std::count(piece.begin(), piece.end(), '<'));
    };
    for (const XmlReader::Attribute& attribute : attributes) {
        add(attribute.quote + 1);
        std::uint32_t number;
        pieces_.back().SetKind(IsPlainNumber(attribute.raw, number) ? Kind::Number : Kind::Text);
        from = attribute.quote + 1 + attribute.raw.size();
    }
    while (end < text_.size() && IsXmlBlank(text_[end])) ++end;
    add(end);
}

std::size_t RowScanner::Scan(std::size_t position) {
    // The pattern starts with the row and ends behind the blanks that follow it.
    while (position < text_.size() && IsXmlBlank(text_[position])) ++position;
    const std::size_t width = pieces_.size() - 1;
    // A scan that goes wrong stops before the next tag, and looks no farther than this from there.
    const std::size_t reach = longestPiece_ + 2 * kWord;
    for (;;) {
        const std::size_t next = NextRow(position);
        if (next == std::string_view::npos || next + reach > text_.size()) break;
        if (cells_.Buffer().Free() < width) MakeRoom(position);
        if (ScanRow(text_.data() + position, text_.data() + next)) {
            cells_.TakeRow(shape_, width);
            ++rowsBefore_;
            position = next;
        } else if (!std::exchange(again_, false)) {
            break;
        }
    }
    return position;
}

/// Where the next row starts if this one is like the pattern. Rows do not wait for the end of the one
/// before to be found: that lets the processor work on several at a time.
inline std::size_t RowScanner::NextRow(std::size_t position) const {
    const std::size_t step = tagsOfRow_ == 1 ? leastLength_ : 1;
    for (std::size_t i = 0; i < tagsOfRow_ && position != std::string_view::npos; ++i) {
        position = FindInBlocks(text_, position + step, '<');
    }
    return position;
}

/// Writes the cells of the row at `at` behind those of the last row. False when the row is not like
/// the pattern or does not end at `end`.
[[gnu::noinline]] bool RowScanner::ScanRow(const char* at, const char* end) {
    Cell* cell = cells_.Buffer().End();
    Piece* piece = pieces_.data();
    for (Piece* const tail = piece + pieces_.size() - 1; piece != tail; ++piece, ++cell) {
        if (!piece->EndsMatch(at)) return Reconsider(piece);
        if (piece->isSimple) {
            if (const char* const after = ScanNumber(at + piece->length, *cell)) {
                at = after;
                continue;
            }
        }
        at = ScanValue(*piece, at, *cell);
        if (!at) return false;
    }
    if (!piece->EndsMatch(at) || !piece->MiddleMatches(at)) return Reconsider(piece);
    return at + piece->length == end;
}

/// After `piece` was not found: perhaps the value before it only starts like a number.
bool RowScanner::Reconsider(Piece* piece) {
    if (piece != pieces_.data() && piece[-1].kind == Kind::Number) {
        piece[-1].SetKind(Kind::Text);
        again_ = true;
    }
    return false;
}

/// Reads a number of up to 7 digits and returns where they end; null when they are not a number's plain
/// form. Whether the value ends there shows in the piece that follows.
inline const char* RowScanner::ScanNumber(const char* at, Cell& cell) {
    const std::uint64_t word = LoadWord(at);
    const auto stop = static_cast<unsigned>(std::countr_zero(NotDigits(word) | kNoStop));
    const std::uint32_t number = DecimalValue(word, stop);
    cell = number;
    return number >= kLeastOfLength[stop / 8] ? at + stop / 8 : nullptr;
}

/// Reads the piece, whose ends have been compared, and the value behind it. Returns where the value's
/// quote stands, or null.
[[gnu::noinline]] const char* RowScanner::ScanValue(const Piece& piece, const char* at, Cell& cell) {
    if (!piece.MiddleMatches(at)) return nullptr;
    at += piece.length;
    if (piece.kind == Kind::Number) {
        if (const char* const after = ScanNumber(at, cell)) return after;
    }
    return ScanText(at, piece.quotes, cell);
}

/// Reads a value up to its quote. Returns the place of the quote, or null when the value is not plain.
inline const char* RowScanner::ScanText(const char* at, std::uint64_t quotes, Cell& cell) {
    std::uint64_t first = LoadWord(at);
    std::uint64_t second = 0;
    std::uint64_t quote = BytesZero(first ^ quotes);
    const char* end = at;
    if (quote != 0) {
        first &= BytesBelow(quote);
    } else {
        end += kWord;
        second = LoadWord(end);
        quote = BytesZero(second ^ quotes);
        if (quote == 0) return ScanNewText(at, quotes, cell);
        second &= BytesBelow(quote);
    }
    // A text that was met before needs no second look.
    if (!pool_.Find(first, second, cell)) return ScanNewText(at, quotes, cell);
    return end + std::countr_zero(quote) / 8;
}

/// The same for a value that was not met before, or is long.
const char* RowScanner::ScanNewText(const char* at, std::uint64_t quotes, Cell& cell) {
    const char* const begin = at;
    std::array<std::uint64_t, 2> words{};
    for (std::size_t i = 0;; ++i, at += kWord) {
        const std::uint64_t word = LoadWord(at);
        const std::uint64_t quote = BytesZero(word ^ quotes);
        const std::uint64_t mask = quote == 0 ? ~std::uint64_t{0} : BytesBelow(quote);
        if (BytesNotPlain((word & mask) | (EveryByte(' ') & ~mask)) != 0)
            return ScanUnusualText(begin, quotes, cell);
        if (i < words.size()) words[i] = word & mask;
        if (quote == 0) continue;
        at += std::countr_zero(quote) / 8;
        break;
    }
    cell = TableCells::MakeSourceCell({begin, at}, static_cast<std::size_t>(begin - 1 - text_.data()));
    if ((cell & kTextTag) && static_cast<std::size_t>(at - begin) < TextPool::kLimit)
        pool_.Add(words[0], words[1], cell);
    return at;
}

/// The same for a value with characters beyond ASCII.
const char* RowScanner::ScanUnusualText(const char* begin, std::uint64_t quotes, Cell& cell) const {
    const char quote = static_cast<char>(quotes & 0xFF);
    const char* end = begin;
    while (*end != quote && *end != '<') ++end;
    if (*end == '<' || !IsPlainXmlValue({begin, end})) return nullptr;
    cell = kTextTag | static_cast<Cell>(begin - 1 - text_.data());
    return end;
}

/// Expects the rest of the document to hold rows as long as those so far.
void RowScanner::MakeRoom(std::size_t position) {
    const std::size_t width = pieces_.size() - 1;
    const std::size_t average = (position - firstRowStart_) / rowsBefore_ + 1;
    constexpr std::size_t kEnoughToJudge = 64;
    const std::size_t rows =
        rowsBefore_ < kEnoughToJudge ? kEnoughToJudge : (text_.size() - position) / average;
    cells_.Expect(width, rows);
}

}  // namespace dlv
