#include "hosts/demo/Options.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

namespace dlv::demo {

const char* const kUsage =
    "demo [OPTION VALUE ...]        a working day in the control, in a window\n"
    "demo --pictures FOLDER ...     leaves a picture of each view in the folder and ends\n"
    "demo --smoke                   shows the control in the system's own container and ends\n"
    "  --language EN|PO|SP          language of the control (EN)\n"
    "  --width N, --height N        size of the window (1000, 700)\n"
    "  --profile NAME               profile to start with (Default)\n"
    "  --profiles FOLDER            where the profiles are kept\n"
    "  --answers inside|later|slow|never\n"
    "                               when requests for profiles are answered (later)\n"
    "  --seconds N                  how often figures come (5)\n"
    "  --seed N                     which day it is (1)\n"
    "  --record FILE                records a session for the player\n"
    "  --mask                       with stand-ins for all names, codes and descriptions in it\n"
    "  --record-calls FILE          writes down every call between this host and the control\n";

namespace {

template <class Number>
bool Read(const std::string& text, Number least, Number greatest, Number& number) {
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    return read.ec == std::errc{} && read.ptr == end && number >= least && number <= greatest;
}

bool Read(const std::string& text, Language& language) {
    for (const Language known : {Language::English, Language::Portuguese, Language::Spanish}) {
        if (LanguageCode(known) != text) continue;
        language = known;
        return true;
    }
    return false;
}

bool Read(const std::string& text, Options::Answers& answers) {
    using Answers = Options::Answers;
    constexpr std::pair<const char*, Answers> kKnown[] = {{"inside", Answers::Inside},
                                                          {"later", Answers::Later},
                                                          {"slow", Answers::Slow},
                                                          {"never", Answers::Never}};
    const auto found = std::ranges::find(kKnown, text, [](const auto& known) { return known.first; });
    if (found == std::end(kKnown)) return false;
    answers = found->second;
    return true;
}

/// A text that may not be empty.
bool Read(const std::string& text, std::string& value) {
    value = text;
    return !text.empty();
}

bool Take(Options& options, const std::string& name, const std::string& value) {
    if (name == "--width") return Read(value, 200, 10000, options.width);
    if (name == "--height") return Read(value, 200, 10000, options.height);
    if (name == "--language") return Read(value, options.language);
    if (name == "--seconds") return Read(value, 1, 3600, options.refreshSeconds);
    if (name == "--seed") return Read<std::uint32_t>(value, 0, UINT32_MAX, options.seed);
    if (name == "--profile") {
        options.profile = value;
        return true;
    }
    if (name == "--profiles") return Read(value, options.profilesFolder);
    if (name == "--answers") return Read(value, options.answers);
    if (name == "--record") return Read(value, options.sessionFile);
    if (name == "--record-calls") return Read(value, options.callsFile);
    if (name == "--pictures") {
        options.mode = Options::Mode::Pictures;
        return Read(value, options.picturesFolder);
    }
    return false;
}

}  // namespace

std::optional<Options> ParseOptions(std::span<const std::string> arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--smoke") {
            options.mode = Options::Mode::Smoke;
        } else if (arguments[i] == "--mask") {
            options.masked = true;
        } else if (arguments[i] == "--help") {
            options.mode = Options::Mode::Help;
        } else {
            if (i + 1 == arguments.size() || !Take(options, arguments[i], arguments[i + 1]))
                return std::nullopt;
            ++i;
        }
    }
    return options;
}

}  // namespace dlv::demo
