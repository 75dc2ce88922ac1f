// Large refreshes: the work stays within what the rows need, and nothing recurses on depth. What takes more
// than its share of time is ended by the watchdog.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "tests/unit/control/TestViewer.h"

namespace dlv {

namespace {

/// A table that makes its rows up when they are read, and counts how often that is.
class MadeUpTable : public RowTable {
public:
    using Text = std::function<std::string(std::size_t row, std::string_view column)>;

    MadeUpTable(std::size_t rows, Text text) : rows_(rows), text_(std::move(text)) {}

    std::string Name() const override { return "made up"; }
    std::size_t RowCount() const override { return rows_; }
    Column FindColumn(std::string_view name) const override {
        columns_.emplace_back(name);
        return static_cast<Column>(columns_.size() - 1);
    }
    void ReadTexts(std::size_t row, std::span<const Column> columns,
                   std::span<std::string_view> texts) const override {
        reads += columns.size();
        made_.resize(columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i)
            texts[i] = made_[i] = text_(row, columns_[columns[i]]);
    }
    /// Every number is 1.
    void ReadNumbers(std::size_t, std::span<const Column> columns,
                     std::span<std::int32_t> numbers) const override {
        reads += columns.size();
        std::ranges::fill(numbers, 1);
    }

    mutable std::size_t reads = 0;

private:
    std::size_t rows_;
    Text text_;
    mutable std::vector<std::string> columns_;
    mutable std::vector<std::string> made_;
};

struct MadeUpMessage : MessageSource {
    std::string Name() const override { return "DLVData"; }
    std::string Property(std::string_view) const override { return "1"; }
    std::shared_ptr<const RowTable> Table(std::string_view name) const override {
        return tables.find(name)->second;
    }

    std::map<std::string, std::shared_ptr<MadeUpTable>, std::less<>> tables;
};

/// Units 1 to `units` with an id and a parent each, and detail rows of units, types and classes by number.
struct Size {
    std::size_t units;
    std::function<std::string(std::size_t unit)> id = [](std::size_t unit) { return std::to_string(unit); };
    std::function<std::size_t(std::size_t unit)> parent = [](std::size_t) { return std::size_t{0}; };
    std::size_t details = 0;
    std::function<std::size_t(std::size_t row)> type = [](std::size_t) { return std::size_t{0}; };
    std::function<std::size_t(std::size_t row)> jobClass = [](std::size_t) { return std::size_t{0}; };

    std::string IdOf(std::size_t unit) const { return unit == 0 ? "#" : id(unit); }
    std::shared_ptr<MadeUpMessage> Message() const {
        auto message = std::make_shared<MadeUpMessage>();
        const auto ofUnit = [*this](std::size_t row, std::string_view column) {
            return column == "BUID"         ? IdOf(row)
                   : column == "ParentBUID" ? IdOf(parent(row))
                                            : "unit " + IdOf(row);
        };
        const auto ofDetail = [*this](std::size_t row, std::string_view column) {
            return column == "BUID"      ? IdOf(1 + (row - 1) * units / details)
                   : column == "JobType" ? "T" + std::to_string(type(row))
                                         : "C" + std::to_string(jobClass(row));
        };
        const auto nothing = [](std::size_t, std::string_view) { return std::string(); };
        for (const char* name : {"JobTypes", "JobClasses", "RegionalFormats"})
            message->tables[name] = std::make_shared<MadeUpTable>(0, nothing);
        for (const char* name : {"BusinessUnits", "BUGeneralInfo"})
            message->tables[name] = std::make_shared<MadeUpTable>(units, ofUnit);
        message->tables["BUDetailsInfo"] = std::make_shared<MadeUpTable>(details, ofDetail);
        return message;
    }
};

class Sizes : public test::TestViewer, public testing::Test {
protected:
    /// Loads it so often and views all units; no field of the message may be read more than once a load.
    void Load(const Size& size, int unitOption, int loads = 2) {
        std::vector<std::string> session;
        for (std::size_t unit = 1; unit <= size.units; ++unit) session.push_back(size.id(unit));
        Start(session);
        for (int load = 1; load <= loads; ++load) {
            const auto message = size.Message();
            Receive(message);
            if (load == 1) ViewAll(unitOption);
            EXPECT_LE(message->tables["BUDetailsInfo"]->reads, 17 * size.details);
            EXPECT_LE(message->tables["BUGeneralInfo"]->reads, 5 * size.units);
            EXPECT_LE(message->tables["BusinessUnits"]->reads, 4 * size.units)
                << "the ids are read for either look-up";
        }
        EXPECT_EQ(host.Shown(), std::vector<std::string>{});
        EXPECT_EQ(Grid(1).Rows(), static_cast<int>(size.units) + 3);
    }
    std::string Figure(int row) { return Grid(1).CellText(row, 1); }
};

TEST_F(Sizes, TwentyThousandUnitsAndAMillionDetailRows) {
    const Size size{.units = 20'000,
                    .parent = [](std::size_t unit) { return unit / 30; },
                    .details = 1'000'000,
                    .type = [](std::size_t row) { return row / 10 % 5; },
                    .jobClass = [](std::size_t row) { return row % 10; }};
    Load(size, 1);
    EXPECT_EQ(Grid(0).Rows(), 2 + 1 + 10 + 5 * 11);
    EXPECT_EQ(Grid(0).CellText(2, 3), "1000000");
    EXPECT_EQ(viewer.Controls().lblWODone.figure.Caption(), "1000000");
    EXPECT_EQ(Grid(1).CellText(Grid(1).FindRow("1"), 4), std::to_string(50 * (1 + 30 + 900)));
}

TEST_F(Sizes, AChainAHundredThousandDeep) {
    const std::size_t depth = 100'000;
    // From the last unit up, which is the order that makes the longest detours.
    Load({.units = depth, .parent = [](std::size_t unit) { return (unit + 1) % (depth + 1); }}, 1);
    EXPECT_EQ(Grid(1).RowData(3), "100000");
    EXPECT_EQ(Figure(3), "100000");
    const int last = static_cast<int>(depth) + 2;
    EXPECT_EQ(Figure(last), "1");
    EXPECT_EQ(Grid(1).Level(last), static_cast<int>(depth));
    EXPECT_EQ(viewer.Controls().lblTechCount.figure.Caption(), "100000");
    Grid(1).SetCollapsed(3, true);
    EXPECT_EQ(Grid(1).DisplayedIndex(last), 3);
    viewer.vsFlex_MouseDown(1, 1);
    Grid(1).SetCurrentCell(3, 1);
    viewer.vsFlex_DblClick(1, 3, 1);
    EXPECT_EQ(std::ranges::count(host.lastParams.BUID, '|'), 99'999) << "a drill-down names them all";
    host.ways.clear();
}

TEST_F(Sizes, AHundredThousandUnitsInOneCycle) {
    const std::size_t count = 100'000;
    Load({.units = count, .parent = [](std::size_t unit) { return unit % count + 1; }}, 1);
    for (const int row : {3, 1000, static_cast<int>(count) + 2}) EXPECT_EQ(Figure(row), "100000");
    EXPECT_EQ(viewer.Controls().lblTechCount.figure.Caption(), "100000") << "each unit counts once";
}

TEST_F(Sizes, AQuarterOfAMillionJobClassesInOneUnit) {
    Load({.units = 1, .details = 250'000, .jobClass = [](std::size_t row) { return row; }}, 0, 1);
    EXPECT_EQ(Grid(0).Rows(), 2 + 1 + 250'000 + 1 + 250'000);
    EXPECT_EQ(Grid(0).CellText(2, 3), "250000");
}

TEST_F(Sizes, AHundredThousandGroups) {
    Load({.units = 2, .details = 200'000, .type = [](std::size_t row) { return row % 100'000; }}, 0);
    EXPECT_EQ(Grid(0).Rows(), 2 + 1 + 1 + 2 * 100'000);
    const int group = Grid(0).FindRow("T77777");
    ASSERT_NE(group, OutlineGrid::kNoRow);
    EXPECT_EQ(Grid(0).CellText(group, 3), "2");
    Grid(0).SetCollapsed(group, true);
    Grid(0).SetCollapsed(2, true);
    viewer.Controls().optBU.Select(1);
    viewer.cmdView_Click();
    EXPECT_TRUE(Grid(0).IsCollapsed(Grid(0).FindRow("T77777")));
    EXPECT_EQ(Grid(0).DisplayedRows().size(), 2u + 1 + 2 * 100'000 - 1);
}

TEST_F(Sizes, IdsWithCommasInAWideTree) {
    Load({.units = 20'000,
          .id = [](std::size_t unit) { return std::to_string(unit) + ",x" + std::to_string(unit % 7); },
          .parent = [](std::size_t unit) { return unit / 30; }},
         1);
    EXPECT_EQ(Figure(3), "") << "the pieces of such an id are no units";
}

}  // namespace

}  // namespace dlv
