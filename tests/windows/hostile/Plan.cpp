#include "tests/windows/hostile/Plan.h"

namespace dlv::hostile {

namespace {

constexpr std::size_t kSteps = 400;
/// After so many steps a control that was stopped is replaced.
constexpr std::size_t kRenewal = 10;
/// Of the values for late-bound callers one in so many is given for each parameter.
constexpr std::size_t kShare = 8;

std::uint32_t Mixed(std::uint32_t seed, std::size_t sequence, std::size_t step) {
    std::uint64_t mixed = seed;
    for (const std::uint64_t part : {std::uint64_t{sequence}, std::uint64_t{step}}) {
        mixed = (mixed ^ part) * 0x9E3779B97F4A7C15;
        mixed ^= mixed >> 29;
    }
    return static_cast<std::uint32_t>(mixed ^ (mixed >> 32));
}

}  // namespace

Plan::Plan(const std::vector<Interface>& interfaces, std::uint32_t seed, const std::string& only)
    : seed_(seed), interfaces_(interfaces) {
    for (std::size_t i = 0; i < interfaces.size(); ++i) {
        if (!only.empty() && interfaces[i].name != only) continue;
        for (const Member& member : interfaces[i].members) tours_.push_back(TourOf(i, member));
    }
}

Plan::Tour Plan::TourOf(std::size_t index, const Member& member) const {
    Tour tour{index, &member, {}};
    const std::size_t given = member.Given();
    for (std::size_t shape = 0; shape < LateShapes().size(); ++shape)
        tour.steps.push_back({Way::Late, given, shape});
    for (std::size_t parameter = 0; parameter < given; ++parameter)
        for (const Way way : {Way::Slot, Way::Late}) {
            const std::size_t count = Caller::ValuesFor(member.parameters[parameter], way);
            const std::size_t share = count > Values().size() / 2 ? kShare : 1;
            for (std::size_t value = Mixed(seed_, tours_.size(), parameter) % share; value < count;
                 value += share)
                tour.steps.push_back({way, parameter, value});
        }
    return tour;
}

std::string Plan::Name(std::size_t sequence) const {
    const std::string number = "sequence " + std::to_string(sequence);
    if (sequence >= tours_.size()) return number;
    const Tour& tour = tours_[sequence];
    return number + ": " + interfaces_[tour.index].name + "." + tour.member->name;
}

std::size_t Plan::Steps(std::size_t sequence) const {
    return sequence < tours_.size() ? tours_[sequence].steps.size() : kSteps;
}

void Plan::Do(std::size_t sequence, std::size_t step, Scene& scene, Caller& caller) const {
    Random random(Mixed(seed_, sequence, step));
    const bool touring = sequence < tours_.size();
    if (step % kRenewal == 0 && scene.IsStopped()) scene.RenewControl();
    if (!touring) {
        if (random.OneIn(40))
            scene.MakeMischief(random);
        else
            caller.CallAny(random);
        return;
    }
    const Tour& tour = tours_[sequence];
    const Step& now = tour.steps[step];
    const std::size_t given = tour.member->Given();
    Choice choice(given, random.OneIn(4) ? kAny : kGood);
    const bool spoiled = now.parameter == given;
    if (!spoiled) choice[now.parameter] = now.value;
    caller.Call(tour.index, *tour.member, now.way, choice, random,
                spoiled ? &LateShapes()[now.value] : nullptr);
}

}  // namespace dlv::hostile
