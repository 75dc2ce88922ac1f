#include "hosts/demo/workday/RecordTable.h"

#include <algorithm>
#include <numeric>
#include <tuple>

#include "base/Text.h"

namespace dlv::demo {

RecordTable::Places RecordTable::AllPlaces() const {
    Places places(rows.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    return places;
}

void RecordTable::Sort(Places& places, std::size_t column, Direction direction) const {
    std::ranges::stable_sort(places, [&](std::size_t left, std::size_t right) {
        const Cell& a = rows[left][column];
        const Cell& b = rows[right][column];
        return direction == Direction::Up ? std::tie(a.rank, a.text) < std::tie(b.rank, b.text)
                                          : std::tie(b.rank, b.text) < std::tie(a.rank, a.text);
    });
}

std::optional<std::size_t> RecordTable::Find(const Places& places, std::size_t column,
                                             const std::string& text, std::size_t start) const {
    const std::string wanted = FoldCase(text);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const std::size_t at = (start + i) % places.size();
        if (FoldCase(rows[places[at]][column].text).starts_with(wanted)) return at;
    }
    return std::nullopt;
}

std::string RecordTable::TabSeparated(const Places& places) const {
    std::string text;
    for (const std::size_t place : places) {
        std::vector<std::string> cells;
        for (const Cell& cell : rows[place]) cells.push_back(cell.text);
        text += Join(cells, '\t') + "\r\n";
    }
    return text;
}

}  // namespace dlv::demo
