#include "webdata/RowScanner.h"

#include <algorithm>
#include <cstring>

#include "webdata/Words.h"
#include "webdata/XmlChars.h"

namespace dlv {

namespace {

constexpr std::size_t kWord = sizeof(std::uint64_t);

}  // namespace

RowScanner::Piece::Piece(std::string_view piece)
    : length(static_cast<std::uint32_t>(piece.size())),
      lastAt(length > kWord ? length - static_cast<std::uint32_t>(kWord) : 0),
      text(piece.data()) {
    const std::size_t shown = std::min(piece.size(), kWord);
    mask = ~std::uint64_t{0} >> (8 * (kWord - shown));
    std::memcpy(&first, piece.data(), shown);
    std::memcpy(&last, piece.data() + lastAt, shown);
}

/// Reads a word from `at` on, also where the piece is shorter.
inline bool RowScanner::Piece::Matches(const char* at) const {
    const std::uint64_t different = ((LoadWord(at) ^ first) & mask) | ((LoadWord(at + lastAt) ^ last) & mask);
    if (different != 0) return false;
    return length <= 2 * kWord || std::memcmp(at + kWord, text + kWord, length - 2 * kWord) == 0;
}

void RowScanner::Learn(std::size_t start, std::size_t end, std::span<const XmlReader::Attribute> attributes,
                       TableCells::Shape shape) {
    if (rowsBefore_ == 0) firstRowStart_ = start;
    ++rowsBefore_;
    pieces_.clear();
    if (attributes.empty()) return;
    std::size_t from = start;
    for (const XmlReader::Attribute& attribute : attributes) {
        const std::string_view piece = text_.substr(from, attribute.quote + 1 - from);
        if (piece.back() != '"') {
            pieces_.clear();
            return;
        }
        pieces_.emplace_back(piece);
        from = attribute.quote + 1 + attribute.raw.size();
    }
    while (end < text_.size() && IsXmlBlank(text_[end])) ++end;
    const std::string_view tail = text_.substr(from, end - from);
    pieces_.emplace_back(tail);
    // Quotes behind the last value would be taken for values.
    if (tail.find('"', 1) != std::string_view::npos) pieces_.clear();
    shape_ = shape;
}

std::size_t RowScanner::Scan(std::size_t position) {
    if (pieces_.empty()) return position;
    // The pattern starts with the row and ends behind the blanks that follow it.
    while (position < text_.size() && IsXmlBlank(text_[position])) ++position;
    const std::size_t width = pieces_.size() - 1;
    const std::size_t tail = pieces_.back().length;
    quotes_.Restart(position);
    while (const std::uint32_t* quotes = quotes_.Next(2 * width)) {
        const std::size_t lastQuote = quotes[2 * width - 1];
        // All words that are read start before the last quote or within the tail.
        if (lastQuote + std::max(tail, kWord) > text_.size()) break;
        if (cells_.Buffer().Free() < width) MakeRoom(position);
        if (!ScanRow(position, quotes)) break;
        cells_.TakeRow(shape_, width);
        ++rowsBefore_;
        position = lastQuote + tail;
    }
    return position;
}

/// Writes the row's cells behind the last row's; false when the row is not like the pattern.
bool RowScanner::ScanRow(std::size_t position, const std::uint32_t* quotes) {
    const char* const text = text_.data();
    Cell* cell = cells_.Buffer().End();
    const Piece* piece = pieces_.data();
    const Piece* const tail = piece + pieces_.size() - 1;
    auto from = static_cast<std::uint32_t>(position);
    for (; piece != tail; ++piece, ++cell, quotes += 2) {
        const std::uint32_t open = quotes[0];
        const std::uint32_t close = quotes[1];
        if (open - from + 1 != piece->length || !piece->Matches(text + from)) return false;
        const std::uint32_t length = close - open - 1;
        const std::uint64_t word = LoadWord(text + open + 1);
        const bool leadingZero = length > 1 && (word & 0xFF) == '0';
        if (length - 1 < kWord && !leadingZero && NotDigits(word, length) == 0) {
            *cell = DecimalValue(word, length);
        } else {
            if (!IsPlainText(open + 1, length)) return false;
            *cell = kTextTag | open;
        }
        from = close;
    }
    return tail->Matches(text + from);
}

inline bool RowScanner::IsPlainText(std::size_t position, std::size_t length) const {
    const char* at = text_.data() + position;
    std::uint64_t unusual = 0;
    std::size_t left = length;
    for (; left >= kWord; left -= kWord, at += kWord) unusual |= BytesNotPlain(LoadWord(at));
    if (left > 0) {
        const std::uint64_t mask = ~std::uint64_t{0} >> (8 * (kWord - left));
        unusual |= BytesNotPlain((LoadWord(at) & mask) | (EveryByte(' ') & ~mask));
    }
    return unusual == 0 || IsPlainXmlValue(text_.substr(position, length));
}

/// Expects the rest of the document to hold rows as long as those so far.
void RowScanner::MakeRoom(std::size_t position) {
    const std::size_t width = pieces_.size() - 1;
    const std::size_t average = (position - firstRowStart_) / rowsBefore_ + 1;
    constexpr std::size_t kEnoughToJudge = 64;
    const std::size_t rows = rowsBefore_ < kEnoughToJudge ? kEnoughToJudge : (text_.size() - position) / average;
    cells_.Expect(width, rows);
}

}  // namespace dlv
