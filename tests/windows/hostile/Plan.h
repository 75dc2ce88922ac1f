// The sequences of calls of a run, by their numbers. The first ones, one for each member, try every hostile
// value that a slot takes and a good share of those that late-bound callers may give, which the seed chooses,
// and every wrong shape of a call. All after them are made up from the seed. A sequence's steps do not depend
// on each other: any of them can be left out.
#pragma once

#include "tests/windows/hostile/Caller.h"

namespace dlv::hostile {

class Plan {
public:
    /// `only` names the one interface to call; all when it is empty.
    Plan(const std::vector<Interface>& interfaces, std::uint32_t seed, const std::string& only);

    std::string Name(std::size_t sequence) const;
    std::size_t Steps(std::size_t sequence) const;
    /// The first sequence that is made up.
    std::size_t FirstRandom() const { return tours_.size(); }
    /// Whether the sequence has its control in a window.
    static bool InWindow(std::size_t sequence) { return sequence % 24 == 0; }
    void Do(std::size_t sequence, std::size_t step, Scene& scene, Caller& caller) const;

private:
    struct Step {
        Way way;
        /// Counts the member's parameters; beyond them stands the shape of the call.
        std::size_t parameter;
        std::size_t value;
    };
    struct Tour {
        std::size_t index;
        const Member* member;
        std::vector<Step> steps;
    };

    Tour TourOf(std::size_t index, const Member& member) const;

    const std::uint32_t seed_;
    std::vector<Tour> tours_;
    const std::vector<Interface>& interfaces_;
};

}  // namespace dlv::hostile
