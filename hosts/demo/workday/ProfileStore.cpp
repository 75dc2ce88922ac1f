#include "hosts/demo/workday/ProfileStore.h"

#include <utility>

#include "base/RunTimeError.h"
#include "base/Trap.h"
#include "hosts/demo/workday/ReadyProfiles.h"
#include "webdata/QZWebTable.h"

namespace dlv::demo {

namespace {

constexpr int kUnknownProfile = 1;
constexpr int kProfileExists = 2;
constexpr int kUnreadableDocument = 3;
constexpr int kNotStored = 4;

std::string ErrorTable(int number, const std::string& description) {
    QZWebTable table("Error");
    table.Fill(std::vector<std::string>{"ErrorNumber", "ErrorDescription"},
               std::vector<std::string>{std::to_string(number), description});
    return table.Text();
}

std::string Data(const std::string& content) { return "<WebData>" + content + "</WebData>"; }
std::string Done() { return Data(ErrorTable(0, "")); }
std::string Failed(int number, const std::string& description) {
    return Data(ErrorTable(number, description));
}

// Names stand in the list as they are: the control looks for the tags alone.
std::string NameList(const std::vector<std::string>& names) {
    std::string list = "<ProfileIDs>";
    for (const std::string& name : names) list += "<ProfileID>" + name + "</ProfileID>";
    return Data(ErrorTable(0, "") + list + "</ProfileIDs>");
}

/// What the body fails with; empty when it does not.
std::string FailureOf(BodyRef body) {
    std::string failure;
    Trap([&](const RunTimeError& error, std::string_view) { failure = error.Description(); }).Run("", body);
    return failure;
}

/// Some editors put a mark before UTF-8 that is no part of the document.
std::string_view WithoutMark(std::string_view text) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
    return text;
}

}  // namespace

ProfileStore::ProfileStore(const std::filesystem::path& folder)
    : file_(folder.empty() ? std::nullopt : std::optional<SharedFile>(folder / kProfilesFile)),
      profiles_(ReadyProfiles()) {
    Look();
}

std::string ProfileStore::Answer(std::string_view function, const std::string& profileName,
                                 const std::string& profilesXml) {
    std::string answer;
    const Trap trap([&](const RunTimeError& error, std::string_view) {
        if (error.Number() == kErrorDocument)
            answer = Failed(kUnreadableDocument, "The profiles cannot be read.");
        else
            answer = Failed(kNotStored, error.Description());
    });
    trap.Run("ProfileStore.Answer", [&] { answer = AnswerRequest(function, profileName, profilesXml); });
    return answer;
}

std::string ProfileStore::AnswerRequest(std::string_view function, const std::string& profileName,
                                        const std::string& profilesXml) {
    if (function == "PutProfiles") return Put(profilesXml);
    if (function == "SaveProfileAs") return SaveAs(profilesXml);
    if (function == "AddProfiles") return Add(profileName);
    if (function == "RemoveProfiles") return Remove(profileName);
    Look();
    return function == "GetProfiles" ? Get(profileName) : NameList(Names());
}

std::string ProfileStore::Get(const std::string& name) const {
    const std::string* const element = profiles_.Find(name);
    if (element == nullptr) return Failed(kUnknownProfile, "There is no profile " + name + ".");
    return "<WebProfiles>" + ErrorTable(0, "") + *element + "</WebProfiles>";
}

std::string ProfileStore::Put(const std::string& profilesXml) {
    const ProfileSet given = ProfileSet::Parse(profilesXml);
    Change([&](ProfileSet& profiles) {
        profiles.PutAll(given);
        return true;
    });
    return Done();
}

std::string ProfileStore::SaveAs(const std::string& profilesXml) {
    Put(profilesXml);
    return NameList(ProfileSet::Parse(profilesXml).Names());
}

std::string ProfileStore::Add(const std::string& name) {
    const std::string element = NewProfile(name);
    const bool added = Change([&](ProfileSet& profiles) {
        if (profiles.Has(name)) return false;
        profiles.Put(name, element);
        return true;
    });
    return added ? NameList({name}) : Failed(kProfileExists, "There is a profile " + name + " already.");
}

std::string ProfileStore::Remove(const std::string& name) {
    const bool removed = Change([&](ProfileSet& profiles) {
        if (!profiles.Has(name)) return false;
        profiles.Remove(name);
        return true;
    });
    return removed ? NameList({name}) : Failed(kUnknownProfile, "There is no profile " + name + ".");
}

bool ProfileStore::Change(const std::function<bool(ProfileSet&)>& change) {
    if (!file_) return change(profiles_);
    bool done = false;
    const std::string failure = FailureOf([&] {
        const SharedFile::Lock lock = file_->Acquire();
        ReadFile();
        if (!blocked_.empty()) throw RunTimeError(kErrorFile, blocked_);
        ProfileSet changed = profiles_;
        done = change(changed);
        if (!done) return;
        file_->Replace(changed.Text());
        profiles_ = std::move(changed);
    });
    if (!failure.empty())
        throw RunTimeError(kErrorFile, "The profiles could not be stored in " + TextOf(file_->Path()) + ": " +
                                           failure + ". What was stored before is still there.");
    return done;
}

void ProfileStore::Look() {
    if (!file_) return;
    // A file that may only be read can be read all the same.
    std::optional<SharedFile::Lock> lock;
    IgnoreErrors([&] { lock.emplace(file_->Acquire()); });
    ReadFile();
}

void ProfileStore::ReadFile() {
    blocked_.clear();
    const std::string damage = FailureOf([&] {
        if (const auto text = file_->Read()) profiles_ = ProfileSet::Parse(WithoutMark(*text));
    });
    if (damage.empty())
        told_.clear();
    else
        MakeRoom(damage);
}

void ProfileStore::MakeRoom(const std::string& damage) {
    const std::string path = TextOf(file_->Path());
    std::filesystem::path aside;
    const std::string failure = FailureOf([&] { aside = file_->SetAside(); });
    const std::string what = "Your profiles could not be read from\n" + path + "\n(" + damage + ").\n\n";
    std::string notice;
    if (failure.empty()) {
        notice =
            what + "Nothing was deleted: what stood there is now\n" + TextOf(aside) +
            "\nYou can go on working; profiles are stored in a new file. To get the old ones back, close "
            "this program, mend that file and give it its old name.";
    } else {
        blocked_ = "what stands there cannot be read (" + damage + ")";
        notice = what + "It could not be moved out of the way either (" + failure +
                 "). You can go on working, but no profile is stored before the file can be read again: "
                 "close what else uses it, or ask who may change that folder.";
    }
    if (notice != told_) notice_ = told_ = notice;
}

std::string ProfileStore::TakeNotice() { return std::exchange(notice_, {}); }

}  // namespace dlv::demo
