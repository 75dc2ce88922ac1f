// The names of the profiles of one set, kept up to date when a profile is renamed. Letter case counts;
// a loaded document may hold a name more than once.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

namespace dlv {

class ProfileNames {
public:
    bool Has(const std::string& name) const { return counts_.contains(name); }
    void Add(const std::string& name) { ++counts_[name]; }
    void Remove(const std::string& name) {
        const auto found = counts_.find(name);
        if (--found->second == 0) counts_.erase(found);
    }

private:
    std::unordered_map<std::string, std::size_t> counts_;
};

}  // namespace dlv
