// What the command line asks the demo host to do.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "hosts/demo/workday/ReadyProfiles.h"
#include "hosts/demo/workday/SampleCompany.h"

namespace dlv::demo {

struct Options {
    enum class Mode {
        /// A window to work in.
        Interactive,
        /// One picture of each view, then the end.
        Pictures,
        /// The control in the system's own container, for a moment.
        Smoke,
        Help
    };

    /// When the control's requests for profiles are answered.
    enum class Answers {
        /// Before the request's event returns.
        Inside,
        /// As soon as it has.
        Later,
        /// After a while, as over a slow line.
        Slow,
        Never
    };

    Mode mode = Mode::Interactive;
    std::string picturesFolder;
    /// Of the whole window, in pixels of a screen with 96 dots per inch.
    int width = 1000;
    int height = 700;
    Language language = Language::English;
    /// The profile that the control starts with.
    std::string profile{kDefaultProfile};
    std::uint32_t seed = 1;
    /// Where the calls between host and control are written down; empty for nowhere.
    std::string callsFile;
    /// Where the session is recorded, with what is private in it or without; empty for nowhere.
    std::string sessionFile;
    bool masked = false;
    int refreshSeconds = 5;
    /// Where the user's profiles are kept; empty for the place of this mode.
    std::string profilesFolder;
    Answers answers = Answers::Later;
};

/// Nothing when there is something that is not understood.
std::optional<Options> ParseOptions(std::span<const std::string> arguments);

/// How to call the program.
extern const char* const kUsage;

}  // namespace dlv::demo
