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
    lastUnit_ = kNoRecord;
}

std::uint32_t BusinessUnits::TypeOf(std::uint32_t unit, std::uint32_t code) {
    BusinessUnit& owner = units_[unit];
    if (owner.lastType != kNoRecord && types_[owner.lastType].code == code) return owner.lastType;
    const std::uint32_t number = Next(types_.size());
    const std::uint32_t type = typesByUnit_.Insert(unit, typeCodes_.Fold(code), number);
    if (type != number) return type;
    types_.push_back({code});
    (owner.lastType == kNoRecord ? owner.firstType : types_[owner.lastType].next) = number;
    owner.lastType = number;
    return number;
}

bool BusinessUnits::HasClass(std::uint32_t type, std::uint32_t code) {
    const std::uint32_t fold = classCodes_.Fold(code);
    if (fold < kFoldBits) return (types_[type].classBits >> fold & 1) != 0;
    return classesByType_.Find(type, fold) != PairTable::kNone;
}

void BusinessUnits::AddClass(std::uint32_t type, std::uint32_t code, const Counters& counters) {
    const std::uint32_t number = Next(classes_.size());
    const std::uint32_t fold = classCodes_.Fold(code);
    JobType& owner = types_[type];
    if (fold < kFoldBits)
        owner.classBits |= std::uint64_t{1} << fold;
    else
        classesByType_.Insert(type, fold, number);
    classes_.push_back({code, kNoRecord, counters});
    (owner.lastClass == kNoRecord ? owner.firstClass : classes_[owner.lastClass].next) = number;
    owner.lastClass = number;
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
        totals_.push_back({jobClass.code});
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
            total.counters[s] = static_cast<std::int32_t>(static_cast<std::uint32_t>(total.counters[s]) + value);
        }
    });
    if (sameSpelling && bits * rows <= INT32_MAX) return true;
    for (std::uint32_t i = 0; i < unit.totalCount; ++i) totals_[unit.firstTotal + i].counters.fill(0);
    return false;
}

void BusinessUnits::SumStepByStep(BusinessUnit& unit) {
    std::vector<Counters> sums(unit.totalCount, Counters{});
    for (std::uint32_t t = unit.firstType; t != kNoRecord; t = types_[t].next) {
        for (std::size_t s = 0; s < kCounterCount; ++s) {
            for (std::uint32_t c = types_[t].firstClass; c != kNoRecord; c = classes_[c].next) {
                const std::uint32_t place = totalOfFold_[classCodes_.Fold(classes_[c].code)];
                // Positions are kept by exact code: a second spelling has none.
                if (totals_[place].code != classes_[c].code) RaiseSubscript();
                std::int32_t& sum = sums[place - unit.firstTotal][s];
                sum = AddChecked(sum, classes_[c].counters[s]);
                unit.GrandTotals[s] = AddChecked(unit.GrandTotals[s], classes_[c].counters[s]);
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
    typesByUnit_.Clear();
    classesByType_.Clear();
    totalOfFold_.clear();
    placesFrom_ = 0;
    lastUnit_ = lastTypeCode_ = kNoRecord;
}

}  // namespace dlv
