// The model of one data refresh: business units in the order of their first appearance, each with its
// job types and their job classes in order of appearance, and with its totals. Keys are compared
// without regard to letter case; the first row of a unit, type or class wins. All records of all
// units lie in flat arrays that keep their memory from one refresh to the next.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/Trap.h"
#include "model/CodeTable.h"
#include "model/JobClass.h"
#include "webdata/RowTable.h"

namespace dlv {

struct BusinessUnit {
    std::string BUID;
    std::string BUDesc;
    std::int32_t TechCount = 0;
    std::int32_t HoursWorked = 0;
    std::int32_t HoursRemaining = 0;
    float WOsPerHour = 0;
    float WOsPerHrReq = 0;
    float PtsPerHour = 0;
    float PtsPerHrReq = 0;
    /// 1-based position of its first row in the general table.
    std::int32_t BUIndex = 0;
    Counters GrandTotals{};

    std::uint32_t firstType = 0;
    std::uint32_t typeCount = 0;
    std::uint32_t firstTotal = 0;
    std::uint32_t totalCount = 0;

    std::int32_t GetGrandTotal(int index) const { return CounterAt(GrandTotals, index); }
};

class BusinessUnits {
public:
    std::size_t Count() const { return units_.size(); }
    auto begin() const { return units_.begin(); }
    auto end() const { return units_.end(); }
    /// The unit of that id, or nothing. Holds until the collection changes.
    const BusinessUnit* Item(std::string_view id) const;
    /// The unit whose first general row stood at that position, or nothing.
    const BusinessUnit* BUItem(std::int32_t index) const;

    /// Adds a unit; error 457 when its id is there already.
    void Add(BusinessUnit unit);
    /// The number of the unit of that id; `kNoRecord` when there is none.
    std::uint32_t UnitNumber(std::string_view id) const;
    /// The number of a code, made on first sight.
    std::uint32_t JobTypeCode(std::string_view text) { return typeCodes_.NumberOf(text); }
    std::uint32_t JobClassCode(std::string_view text) { return classCodes_.NumberOf(text); }
    /// The number of a unit's job type, which is made on first sight.
    std::uint32_t AddJobType(std::uint32_t unit, std::uint32_t code);
    bool HasJobClass(std::uint32_t type, std::uint32_t code) const;
    /// Adds a job class to a type that does not have it.
    void AddJobClass(std::uint32_t type, std::uint32_t code, const Counters& counters);

    /// Brings types and classes, which were taken in row by row, into the order of their units. To be
    /// called when the last row was taken in, however the loading ended.
    void BringIntoOrder();

    /// Totals and rates of one unit, once after loading. A failure is reported by the trap.
    void CalcTotal(std::size_t unit, const Trap& trap);

    const std::string& JobTypeText(std::uint32_t code) const { return typeCodes_.Text(code); }
    const std::string& JobClassText(std::uint32_t code) const { return classCodes_.Text(code); }
    std::size_t JobClassCodes() const { return classCodes_.Count(); }

    /// Calls `visit(JobType, JobClass)` for every class of every real type, in order.
    template <class Visitor>
    void ForEachClass(const BusinessUnit& unit, Visitor&& visit) const {
        for (const JobType& type : Types(unit))
            for (const JobClass& jobClass : Classes(type)) visit(type, jobClass);
    }
    /// The real job types of a unit, in order. Rows must have been brought into order.
    std::span<const JobType> Types(const BusinessUnit& unit) const {
        return {types_.data() + unit.firstType, unit.typeCount};
    }
    std::span<const JobClass> Classes(const JobType& type) const {
        return {classes_.data() + type.firstClass, type.classCount};
    }
    /// The job classes of the synthetic job type "TOTAL".
    std::span<const JobClass> TotalClasses(const BusinessUnit& unit) const {
        return {totals_.data() + unit.firstTotal, unit.totalCount};
    }

    /// Empties the collection and keeps its memory.
    void Clear();

private:
    /// Type folds below this are found without a look-up.
    static constexpr std::size_t kNearTypes = 8;

    /// Which classes a type has: those of the first 64 folds by a bit each.
    struct ClassSet {
        std::uint64_t bits = 0;
        std::uint32_t count = 0;
    };

    void OrderTypes();
    void OrderClasses();
    void MakeTotalClasses(BusinessUnit& unit);
    bool SumQuickly(const BusinessUnit& unit);
    void SumStepByStep(BusinessUnit& unit);

    std::vector<BusinessUnit> units_;
    std::vector<JobType> types_;
    std::vector<JobClass> classes_;
    bool classesInOrder_ = true;
    std::vector<JobClass> totals_;
    CodeTable typeCodes_;
    CodeTable classCodes_;
    TextTable unitsByFold_;
    mutable TextTable unitsBySpelling_;
    std::vector<std::array<std::uint32_t, kNearTypes>> nearTypes_;  // by unit and type fold
    PairTable farTypes_;
    std::vector<ClassSet> classSets_;  // by type, while rows are taken in
    PairTable classesByType_;
    std::vector<std::uint32_t> totalOfFold_;  // the total class of each class fold, for one unit
    std::size_t placesFrom_ = 0;              // the first total class that has its place there
};

}  // namespace dlv
