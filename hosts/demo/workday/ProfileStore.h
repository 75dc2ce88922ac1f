// The profiles of the demo's user, in a file or in memory alone, and the host's answers to the control's
// profile requests. Every request looks at the file anew, and a change is made to what is there then: two
// hosts with the same file keep each other's profiles. A file that cannot be read is set aside, never
// replaced.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/demo/workday/ProfileSet.h"
#include "hosts/demo/workday/SharedFile.h"

namespace dlv::demo {

inline constexpr std::string_view kProfilesFile = "profiles.xml";

class ProfileStore {
public:
    /// With the file in `folder`, which need not be there yet; in memory when that is empty.
    explicit ProfileStore(const std::filesystem::path& folder = {});

    /// The ResultXML for a request: `function` is the event's name, `profileName` and `profilesXml` are what
    /// the event's record carries. What cannot be done is answered with an error table and changes nothing.
    std::string Answer(std::string_view function, const std::string& profileName,
                       const std::string& profilesXml);

    std::vector<std::string> Names() const { return profiles_.Names(); }

    /// What a person has to be told since the last call; empty for nothing.
    std::string TakeNotice();

private:
    std::string AnswerRequest(std::string_view function, const std::string& profileName,
                              const std::string& profilesXml);
    std::string Get(const std::string& name) const;
    std::string Put(const std::string& profilesXml);
    std::string SaveAs(const std::string& profilesXml);
    std::string Add(const std::string& name);
    std::string Remove(const std::string& name);

    /// `change` says whether there is anything to store.
    bool Change(const std::function<bool(ProfileSet&)>& change);
    void Look();
    void ReadFile();
    void MakeRoom(const std::string& damage);

    const std::optional<SharedFile> file_;
    ProfileSet profiles_;
    /// Why nothing can be stored; empty when it can.
    std::string blocked_;
    std::string notice_;
    /// What was said last about a file that still cannot be read.
    std::string told_;
};

}  // namespace dlv::demo
