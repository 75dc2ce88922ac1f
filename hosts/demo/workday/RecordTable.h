// Records as a list shows them: texts in named columns, the order in which they stand, and what is copied of
// them. A record keeps its place in `rows`; what is shown is a sequence of such places.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace dlv::demo {

struct RecordTable {
    enum class Align { Left, Right };
    enum class Direction { Up, Down };

    struct Column {
        std::string name;
        Align align;
    };
    struct Cell {
        std::string text;
        /// What cells are sorted by before their texts.
        int rank = 0;
    };
    using Row = std::vector<Cell>;
    using Places = std::vector<std::size_t>;

    /// What the records are and what was asked for.
    std::string title;
    /// How many there are.
    std::string count;
    /// Of what moment.
    std::string moment;
    std::vector<Column> columns;
    /// Each has a cell for every column.
    std::vector<Row> rows;

    Places AllPlaces() const;
    /// Equal cells stay in the order that they have.
    void Sort(Places& places, std::size_t column, Direction direction) const;
    /// The first place at or behind `start`, then from the beginning, whose cell begins with `text` in
    /// whatever case; as an index into `places`.
    std::optional<std::size_t> Find(const Places& places, std::size_t column, const std::string& text,
                                    std::size_t start) const;
    /// Tabs between cells, CR LF behind each row.
    std::string TabSeparated(const Places& places) const;
};

}  // namespace dlv::demo
