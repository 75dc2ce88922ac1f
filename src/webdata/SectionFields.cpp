#include "webdata/SectionFields.h"

#include "base/Text.h"

namespace dlv {

SectionFields::SectionFields(std::string list) : list_(std::move(list)) {
    if (!list_.empty()) names_ = Split(list_, ',');
}

bool SectionFields::Has(std::string_view name) const {
    return places_.Find(name, names_.size(), [this](std::size_t place) -> std::string_view {
        return names_[place];
    }) < names_.size();
}

void SectionFields::Add(std::string_view name) {
    if (Has(name)) return;
    if (!names_.empty()) list_ += ',';
    list_ += name;
    names_.emplace_back(name);
}

}  // namespace dlv
