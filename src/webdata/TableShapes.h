// The columns of a table and the shapes of its rows. A shape is the ordered list of the columns that
// a row has; rows alike share one. So the memory for a table's structure follows the text that it
// came from, never rows times columns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace dlv {

class TableShapes {
public:
    using Column = std::uint32_t;
    using Shape = std::uint32_t;

    static constexpr std::uint32_t kNowhere = std::numeric_limits<std::uint32_t>::max();

    TableShapes() = default;
    TableShapes(TableShapes&&) = default;
    TableShapes& operator=(TableShapes&&) = default;

    /// The number of a name, given to it now if it has none yet.
    Column ColumnOf(std::string_view name);
    std::string_view ColumnName(Column column) const { return *names_[column]; }
    std::size_t ColumnCount() const { return names_.size(); }
    /// Whether some row has, or had, the column.
    bool IsUsed(Column column) const { return used_[column] != 0; }

    /// The shape of rows with these columns, each at most once. Marks the columns as used.
    Shape ShapeOf(std::span<const Column> columns);
    std::span<const Column> Columns(Shape shape) const {
        return {pool_.data() + starts_[shape], pool_.data() + starts_[shape + 1]};
    }
    /// The place of a column in a shape; kNowhere when the shape lacks it.
    std::uint32_t Place(Shape shape, Column column) const;

private:
    struct NameHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };
    using Sorted = std::vector<std::pair<Column, std::uint32_t>>;

    const Sorted& SortedPlaces(Shape shape) const;

    // The map's nodes stay where they are when the object moves.
    std::unordered_map<std::string, Column, NameHash, std::equal_to<>> columns_;
    std::vector<const std::string*> names_;
    std::vector<char> used_;

    std::vector<Column> pool_;
    std::vector<std::size_t> starts_{0};
    std::unordered_multimap<std::uint64_t, Shape> shapes_;
    Shape last_ = kNowhere;

    // Of the wide shape that was asked last.
    mutable Shape sortedShape_ = kNowhere;
    mutable Sorted sorted_;
};

}  // namespace dlv
