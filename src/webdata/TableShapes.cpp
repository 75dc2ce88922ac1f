#include "webdata/TableShapes.h"

#include <algorithm>

namespace dlv {

namespace {

std::uint64_t HashOf(std::span<const TableShapes::Column> columns) {
    std::uint64_t hash = columns.size();
    for (const TableShapes::Column column : columns) {
        hash = (hash ^ column) * 0x9E3779B97F4A7C15ull;
        hash ^= hash >> 29;
    }
    return hash;
}

}  // namespace

TableShapes::Column TableShapes::ColumnOf(std::string_view name) {
    if (const auto found = columns_.find(name); found != columns_.end()) return found->second;
    const auto column = static_cast<Column>(names_.size());
    const auto added = columns_.emplace(std::string(name), column).first;
    names_.push_back(&added->first);
    used_.push_back(0);
    return column;
}

TableShapes::Shape TableShapes::ShapeOf(std::span<const Column> columns) {
    if (last_ != kNowhere && std::ranges::equal(columns, Columns(last_))) return last_;
    const std::uint64_t hash = HashOf(columns);
    const auto [begin, end] = shapes_.equal_range(hash);
    for (auto known = begin; known != end; ++known) {
        if (std::ranges::equal(columns, Columns(known->second))) return last_ = known->second;
    }
    last_ = static_cast<Shape>(starts_.size() - 1);
    shapes_.emplace(hash, last_);
    pool_.insert(pool_.end(), columns.begin(), columns.end());
    starts_.push_back(pool_.size());
    for (const Column column : columns) used_[column] = 1;
    return last_;
}

std::uint32_t TableShapes::Place(Shape shape, Column column) const {
    constexpr std::size_t kWide = 64;
    const std::span<const Column> columns = Columns(shape);
    if (columns.size() < kWide) {
        const auto found = std::find(columns.begin(), columns.end(), column);
        return found == columns.end() ? kNowhere : static_cast<std::uint32_t>(found - columns.begin());
    }
    const Sorted& sorted = SortedPlaces(shape);
    const auto found = std::lower_bound(sorted.begin(), sorted.end(), std::pair{column, std::uint32_t{0}});
    return found == sorted.end() || found->first != column ? kNowhere : found->second;
}

const TableShapes::Sorted& TableShapes::SortedPlaces(Shape shape) const {
    if (sortedShape_ == shape) return sorted_;
    sortedShape_ = kNowhere;
    sorted_.clear();
    for (const Column column : Columns(shape)) {
        sorted_.emplace_back(column, static_cast<std::uint32_t>(sorted_.size()));
    }
    std::sort(sorted_.begin(), sorted_.end());
    sortedShape_ = shape;
    return sorted_;
}

}  // namespace dlv
