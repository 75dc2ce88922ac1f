// The profiles of the demo's user, kept in memory, and the host's answers to the control's profile requests.
// At first there is a "Default" that selects every top-level unit and shows their aggregate, and one that
// shows every unit by itself.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dlv::demo {

class ProfileStore {
public:
    ProfileStore();

    /// The ResultXML for a request: `function` is the event's name, `profileName` and `profilesXml` are what
    /// the event's record carries. What cannot be done is answered with an error table.
    std::string Answer(std::string_view function, const std::string& profileName,
                       const std::string& profilesXml);

    std::vector<std::string> Names() const;
    /// The stored document of a profile.
    std::optional<std::string> Find(std::string_view name) const;

private:
    struct Stored {
        std::string name;
        /// A <WebProfile> document.
        std::string text;
    };

    std::string Get(const std::string& name) const;
    std::string Put(const std::string& profilesXml);
    std::string SaveAs(const std::string& profilesXml);
    std::string Add(const std::string& name);
    std::string Remove(const std::string& name);
    void Keep(const std::string& name, const std::string& text);
    std::vector<std::string> KeepAll(const std::string& profilesXml);

    std::vector<Stored> profiles_;
};

inline constexpr std::string_view kDefaultProfile = "Default";
inline constexpr std::string_view kAllUnitsProfile = "All Units";

}  // namespace dlv::demo
