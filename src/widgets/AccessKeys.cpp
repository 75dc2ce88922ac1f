#include "widgets/AccessKeys.h"

#include <array>

namespace dlv {

namespace {

constexpr std::size_t kKeys = 36;

/// A to Z as 0 to 25, 0 to 9 behind them; `kKeys` for any other byte.
std::size_t KeyOf(char c) {
    if (c >= 'a' && c <= 'z') return static_cast<std::size_t>(c - 'a');
    if (c >= 'A' && c <= 'Z') return static_cast<std::size_t>(c - 'A');
    return c >= '0' && c <= '9' ? static_cast<std::size_t>(c - '0') + 26 : kKeys;
}

char LetterOf(std::size_t key) { return static_cast<char>(key < 26 ? 'A' + key : '0' + (key - 26)); }

/// The places of a caption that can be its key, the best first.
std::vector<std::size_t> Candidates(const std::string& caption) {
    std::vector<std::size_t> places[2];
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (KeyOf(caption[i]) == kKeys) continue;
        // Bytes beyond ASCII are letters, too, but of no key.
        const bool inside = i > 0 && (KeyOf(caption[i - 1]) != kKeys || (caption[i - 1] & 0x80) != 0);
        places[inside ? 1 : 0].push_back(i);
    }
    places[0].insert(places[0].end(), places[1].begin(), places[1].end());
    return places[0];
}

class Choice {
public:
    explicit Choice(std::span<const std::string> captions) : captions_(captions), places_(captions.size()) {
        owners_.fill(kNobody);
    }

    void GiveTo(std::size_t caption) {
        for (const std::size_t place : Candidates(captions_[caption]))
            if (owners_[KeyAt(caption, place)] == kNobody) return Take(caption, place);
        std::array<bool, kKeys> asked{};
        MakeRoom(caption, asked);
    }
    std::vector<AccessKey> Result() { return std::move(places_); }

private:
    static constexpr std::size_t kNobody = static_cast<std::size_t>(-1);

    std::size_t KeyAt(std::size_t caption, std::size_t place) const {
        return KeyOf(captions_[caption][place]);
    }
    void Take(std::size_t caption, std::size_t place) {
        owners_[KeyAt(caption, place)] = caption;
        places_[caption] = place;
    }
    /// Lets another caption take another key where that frees one.
    bool MakeRoom(std::size_t caption, std::array<bool, kKeys>& asked) {
        for (const std::size_t place : Candidates(captions_[caption])) {
            const std::size_t key = KeyAt(caption, place);
            if (asked[key]) continue;
            asked[key] = true;
            if (owners_[key] != kNobody && !MakeRoom(owners_[key], asked)) continue;
            Take(caption, place);
            return true;
        }
        return false;
    }

    std::span<const std::string> captions_;
    std::vector<AccessKey> places_;
    std::array<std::size_t, kKeys> owners_{};
};

void AddTarget(std::vector<AccessTarget>& targets, Control& control, const std::string& caption,
               AccessKey key, int tab = 0) {
    if (!key || *key >= caption.size() || !control.Usable()) return;
    if (const std::size_t found = KeyOf(caption[*key]); found != kKeys)
        targets.push_back({LetterOf(found), &control, tab});
}

}  // namespace

std::vector<AccessKey> ChooseAccessKeys(std::span<const std::string> captions) {
    Choice choice(captions);
    for (std::size_t i = 0; i < captions.size(); ++i) choice.GiveTo(i);
    return choice.Result();
}

void GiveAccessKeys(std::initializer_list<CaptionControl*> controls) {
    std::vector<std::string> captions;
    for (const CaptionControl* control : controls) captions.push_back(control->Caption());
    std::size_t next = 0;
    const std::vector<AccessKey> keys = ChooseAccessKeys(captions);
    for (CaptionControl* control : controls) control->SetKey(keys[next++]);
}

std::vector<AccessTarget> AccessTargets(const Form& form) {
    std::vector<AccessTarget> targets;
    for (Control* control : form.Controls()) {
        if (const auto* plain = dynamic_cast<const CaptionControl*>(control))
            AddTarget(targets, *control, plain->Caption(), plain->Key());
        const auto* tabs = dynamic_cast<const TabStrip*>(control);
        for (std::size_t i = 0; tabs != nullptr && i < tabs->Tabs().size(); ++i)
            AddTarget(targets, *control, tabs->Tabs()[i].caption, tabs->Tabs()[i].key,
                      static_cast<int>(i) + 1);
    }
    return targets;
}

}  // namespace dlv
