// Stand-ins for texts that nobody else may read. The same text has the same stand-in throughout. Stand-ins
// are as long as the texts or a little longer, sort like them, are alike but for letter case exactly when the
// texts are, and begin with the same kind of character. Blanks around a text and bars within it stay; so do
// numbers and the few texts that mean something to the control.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace dlv::recorder {

class TextMask {
public:
    /// Gives stand-ins to texts that will be masked: they stay shorter the more are learnt at once.
    void Learn(const std::vector<std::string>& texts);

    /// A text that was learnt, or whose parts between bars were.
    std::string operator()(std::string_view text) const;

private:
    void LearnPart(const std::string& part);
    void LearnSorted(const std::vector<std::string>& folded, std::size_t first, std::size_t end);

    /// By the folded text, in the same order: a word without an "a" at its end.
    std::map<std::string, std::string> words_;
    std::unordered_map<std::string, std::string> standIns_;
    /// How many texts differ only in letters behind the first.
    std::unordered_map<std::string, unsigned> variants_;
};

}  // namespace dlv::recorder
