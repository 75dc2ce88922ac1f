#include "model/BusinessUnits.h"

#include <algorithm>

#include "base/Number.h"
#include "base/Text.h"

namespace dlv {

namespace {

constexpr std::uint32_t kFoldBits = 64;

std::uint32_t Next(std::size_t count) { return static_cast<std::uint32_t>(count); }

}  // namespace

// Spellings that were met are remembered, so that only a new one has to be folded.
std::uint32_t BusinessUnits::UnitNumber(std::string_view id) const {
    const std::uint32_t known = unitsBySpelling_.Find(id);
    if (known != TextTable::kNone) return known;
    const std::uint32_t unit = unitsByFold_.Find(FoldCase(id));
    if (unit == TextTable::kNone) return kNoRecord;
    unitsBySpelling_.Insert(id, unit);
    return unit;
}

const BusinessUnit* BusinessUnits::Item(std::string_view id) const {
    const std::uint32_t unit = UnitNumber(id);
    return unit == kNoRecord ? nullptr : &units_[unit];
}

const BusinessUnit* BusinessUnits::BUItem(std::int32_t index) const {
    const auto found = std::ranges::find(units_, index, &BusinessUnit::BUIndex);
    return found == units_.end() ? nullptr : &*found;
}

void BusinessUnits::Add(BusinessUnit unit) {
    const std::uint32_t number = Next(units_.size());
    if (unitsByFold_.Insert(FoldCase(unit.BUID), number) != number) RaiseDuplicateKey();
    unitsBySpelling_.Insert(unit.BUID, number);
    units_.push_back(std::move(unit));
    nearTypes_.emplace_back().fill(kNoRecord);
}

std::uint32_t BusinessUnits::AddJobType(std::uint32_t unit, std::uint32_t code) {
    const std::uint32_t fold = typeCodes_.Fold(code);
    const std::uint32_t next = Next(types_.size());
    std::uint32_t type = next;
    if (fold < kNearTypes) {
        std::uint32_t& near = nearTypes_[unit][fold];
        if (near == kNoRecord) near = next;
        type = near;
    } else {
        type = farTypes_.Insert(unit, fold, next);
    }
    if (type == next) {
        types_.push_back({code, unit});
        classSets_.emplace_back();
    }
    return type;
}

bool BusinessUnits::HasJobClass(std::uint32_t type, std::uint32_t code) const {
    const std::uint32_t fold = classCodes_.Fold(code);
    if (fold < kFoldBits) return (classSets_[type].bits >> fold & 1) != 0;
    return classesByType_.Find(type, fold) != PairTable::kNone;
}

void BusinessUnits::AddJobClass(std::uint32_t type, std::uint32_t code, const Counters& counters) {
    const std::uint32_t fold = classCodes_.Fold(code);
    ClassSet& set = classSets_[type];
    if (fold < kFoldBits)
        set.bits |= std::uint64_t{1} << fold;
    else
        classesByType_.Insert(type, fold, Next(classes_.size()));
    ++set.count;
    classesInOrder_ &= classes_.empty() || classes_.back().type <= type;
    classes_.push_back({code, type, counters});
}

void BusinessUnits::BringIntoOrder() {
    OrderTypes();
    OrderClasses();
}

// Types stand as they were first seen; a stable distribution brings those of each unit together.
void BusinessUnits::OrderTypes() {
    for (std::size_t type = 0; type < types_.size(); ++type) {
        types_[type].classCount = classSets_[type].count;
        ++units_[types_[type].unit].typeCount;
    }
    std::uint32_t first = 0;
    for (BusinessUnit& unit : units_) {
        unit.firstType = first;
        first += unit.typeCount;
    }
    if (std::ranges::is_sorted(types_, {}, &JobType::unit)) return;
    std::vector<std::uint32_t> next(units_.size());
    for (std::size_t unit = 0; unit < units_.size(); ++unit) next[unit] = units_[unit].firstType;
    std::vector<JobType> ordered(types_.size());
    std::vector<std::uint32_t> moved(types_.size());
    for (std::size_t type = 0; type < types_.size(); ++type) {
        moved[type] = next[types_[type].unit]++;
        ordered[moved[type]] = types_[type];
    }
    types_ = std::move(ordered);
    for (JobClass& jobClass : classes_) jobClass.type = moved[jobClass.type];
    classesInOrder_ = std::ranges::is_sorted(classes_, {}, &JobClass::type);
}

void BusinessUnits::OrderClasses() {
    std::uint32_t first = 0;
    for (JobType& type : types_) {
        type.firstClass = first;
        first += type.classCount;
    }
    if (classesInOrder_) return;
    std::vector<std::uint32_t> next(types_.size());
    for (std::size_t type = 0; type < types_.size(); ++type) next[type] = types_[type].firstClass;
    std::vector<JobClass> ordered(classes_.size());
    for (const JobClass& jobClass : classes_) ordered[next[jobClass.type]++] = jobClass;
    classes_ = std::move(ordered);
}

void BusinessUnits::MakeTotalClasses(BusinessUnit& unit) {
    // The places of the unit before are forgotten here, so that it does not matter how its sums ended.
    for (std::size_t i = placesFrom_; i < totals_.size(); ++i)
        totalOfFold_[classCodes_.Fold(totals_[i].code)] = kNoRecord;
    placesFrom_ = totals_.size();
    unit.firstTotal = Next(totals_.size());
    totalOfFold_.resize(classCodes_.Count(), kNoRecord);
    ForEachClass(unit, [&](const JobType&, const JobClass& jobClass) {
        std::uint32_t& place = totalOfFold_[classCodes_.Fold(jobClass.code)];
        if (place != kNoRecord) return;
        place = Next(totals_.size());
        totals_.push_back({jobClass.code, kNoRecord});
    });
    unit.totalCount = Next(totals_.size()) - unit.firstTotal;
}

// All sums in one pass without checks. Gives up, with nothing kept, where a sum could pass the range or
// where a class is spelled differently from its total: those cases go step by step.
bool BusinessUnits::SumQuickly(const BusinessUnit& unit) {
    std::uint32_t bits = 0;
    std::uint64_t rows = 0;
    bool sameSpelling = true;
    ForEachClass(unit, [&](const JobType&, const JobClass& jobClass) {
        JobClass& total = totals_[totalOfFold_[classCodes_.Fold(jobClass.code)]];
        sameSpelling &= total.code == jobClass.code;
        ++rows;
        for (std::size_t s = 0; s < kCounterCount; ++s) {
            const auto value = static_cast<std::uint32_t>(jobClass.counters[s]);
            bits |= value;
            total.counters[s] =
                static_cast<std::int32_t>(static_cast<std::uint32_t>(total.counters[s]) + value);
        }
    });
    if (sameSpelling && bits * rows <= INT32_MAX) return true;
    for (std::uint32_t i = 0; i < unit.totalCount; ++i) totals_[unit.firstTotal + i].counters.fill(0);
    return false;
}

void BusinessUnits::SumStepByStep(BusinessUnit& unit) {
    std::vector<Counters> sums(unit.totalCount, Counters{});
    for (const JobType& type : Types(unit)) {
        for (std::size_t s = 0; s < kCounterCount; ++s) {
            for (const JobClass& jobClass : Classes(type)) {
                const std::uint32_t place = totalOfFold_[classCodes_.Fold(jobClass.code)];
                // Positions are kept by exact code: a second spelling has none.
                if (totals_[place].code != jobClass.code) RaiseSubscript();
                std::int32_t& sum = sums[place - unit.firstTotal][s];
                sum = AddChecked(sum, jobClass.counters[s]);
                unit.GrandTotals[s] = AddChecked(unit.GrandTotals[s], jobClass.counters[s]);
            }
        }
    }
    for (std::uint32_t i = 0; i < unit.totalCount; ++i) totals_[unit.firstTotal + i].counters = sums[i];
}

void BusinessUnits::CalcTotal(std::size_t number, const Trap& trap) {
    trap.Run("BusinessUnit.CalcTotal", [&] {
        BusinessUnit& unit = units_[number];
        MakeTotalClasses(unit);
        if (unit.totalCount == 0) return;
        if (SumQuickly(unit)) {
            for (const JobClass& total : TotalClasses(unit))
                for (std::size_t s = 0; s < kCounterCount; ++s) unit.GrandTotals[s] += total.counters[s];
        } else {
            SumStepByStep(unit);
        }
        unit.WOsPerHour = Rate(unit.GrandTotals[kWOCompleted], unit.HoursWorked);
        unit.WOsPerHrReq = Rate(unit.GrandTotals[kWOOpen], unit.HoursRemaining);
        unit.PtsPerHour = Rate(unit.GrandTotals[kPtsCompleted], unit.HoursWorked);
        unit.PtsPerHrReq = Rate(unit.GrandTotals[kPtsOpen], unit.HoursRemaining);
    });
}

void BusinessUnits::Clear() {
    units_.clear();
    types_.clear();
    classes_.clear();
    totals_.clear();
    typeCodes_.Clear();
    classCodes_.Clear();
    unitsByFold_.Clear();
    unitsBySpelling_.Clear();
    nearTypes_.clear();
    farTypes_.Clear();
    classSets_.clear();
    classesInOrder_ = true;
    classesByType_.Clear();
    totalOfFold_.clear();
    placesFrom_ = 0;
}

}  // namespace dlv
