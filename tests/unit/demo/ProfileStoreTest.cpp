// Built natively and for Windows, whose files are moved and locked by other rules.
#include "hosts/demo/workday/ProfileStore.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "profiles/ProfileIDList.h"
#include "webdata/QZWebData.h"
#include "webdata/QZWebProfiles.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <share.h>
#endif

namespace dlv::demo {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

std::string Evening(const std::string& units) {
    return R"(<WebProfiles><WebProfile><Name>Evening</Name><Section Name="DLVSelect" Fields="BUList"><row BUList=")" +
           units + R"("/></Section></WebProfile></WebProfiles>)";
}

std::string ErrorNumber(const std::string& answer) {
    if (answer.starts_with("<WebProfiles>")) {
        QZWebProfiles set;
        set.LoadText(answer);
        return set.ErrorTable()->Field(1, "ErrorNumber");
    }
    QZWebData data;
    data.LoadText(answer);
    return data.Table("Error")->Field(1, "ErrorNumber");
}

/// The chosen units of a profile, as a host is given it.
std::string UnitsOf(ProfileStore& store, const std::string& name) {
    const std::string answer = store.Answer("GetProfiles", name, "");
    if (ErrorNumber(answer) != "0") return "none";
    QZWebProfiles set;
    set.LoadText(answer);
    return set.Item(1)->Section("DLVSelect")->Row(1)->Field("BUList");
}

std::string ReadAll(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteAll(const fs::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

/// A folder of a test's own.
class ProfileFolder : public testing::Test {
public:
    ProfileFolder() {
        const auto moment = std::chrono::steady_clock::now().time_since_epoch().count();
        folder_ = fs::temp_directory_path() / ("profiles-" + std::to_string(moment));
        fs::create_directories(folder_);
    }
    ~ProfileFolder() override { fs::remove_all(folder_); }

    fs::path File() const { return folder_ / kProfilesFile; }
    fs::path Aside(const std::string& words) const { return folder_ / ("profiles (" + words + ").xml"); }

    fs::path folder_;
};

Names Ready(const Names& more = {}) {
    Names names{"Default", "All Units", "River Valley"};
    names.insert(names.end(), more.begin(), more.end());
    return names;
}

struct Request {
    const char* name;
    std::string function;
    std::string profileName;
    std::string profilesXml;
    std::string error;
    /// The names that the answer lists, and those that are stored afterwards.
    Names listed;
    Names stored;
};

class ProfileAnswer : public ProfileFolder, public testing::WithParamInterface<Request> {};

TEST_P(ProfileAnswer, SaysWhatWasDoneInMemoryAndOnDisk) {
    const Request& request = GetParam();
    for (const fs::path& folder : {fs::path(), folder_ / "new" / "folder"}) {
        ProfileStore store(folder);
        const std::string answer = store.Answer(request.function, request.profileName, request.profilesXml);
        EXPECT_EQ(ErrorNumber(answer), request.error);
        EXPECT_EQ(ParseProfileIDs(answer), request.listed);
        EXPECT_EQ(store.Names(), request.stored);
        const Names next = ProfileStore(folder).Names();
        EXPECT_EQ(next, folder.empty() ? Ready() : request.stored) << "after a new start";
        EXPECT_EQ(store.TakeNotice(), "");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Requests, ProfileAnswer,
    testing::Values(
        Request{"List", "GetProfileList", "", "", "0", Ready(), Ready()},
        Request{"UnknownProfile", "GetProfiles", "default", "", "1", {}, Ready()},
        Request{"Put", "PutProfiles", "", Evening("40"), "0", {}, Ready({"Evening"})},
        Request{"PutOfGarbage", "PutProfiles", "", "<WebProfiles>", "3", {}, Ready()},
        Request{"SaveAs", "SaveProfileAs", "", Evening("40"), "0", {"Evening"}, Ready({"Evening"})},
        Request{"Add", "AddProfiles", "Night", "", "0", {"Night"}, Ready({"Night"})},
        Request{"AddOfAnOldName", "AddProfiles", "Default", "", "2", {}, Ready()},
        Request{"AddInOtherLetters", "AddProfiles", "dEFAULT", "", "0", {"dEFAULT"}, Ready({"dEFAULT"})},
        Request{"AddOfWhatNoDocumentHolds", "AddProfiles", "\x01", "", "3", {}, Ready()},
        Request{"Remove", "RemoveProfiles", "Default", "", "0", {"Default"}, {"All Units", "River Valley"}},
        Request{"RemoveOfAnUnknownName", "RemoveProfiles", "Night", "", "1", {}, Ready()}),
    [](const auto& request) { return std::string(request.param.name); });

TEST_F(ProfileFolder, GivesBackWhatWasPutLastAlsoAfterANewStart) {
    EXPECT_EQ(UnitsOf(*std::make_unique<ProfileStore>(folder_), "Default"), "10|20|30|40");
    ProfileStore store(folder_);
    store.Answer("PutProfiles", "", Evening("40"));
    store.Answer("PutProfiles", "", Evening("é|20"));
    ProfileStore next(folder_);
    EXPECT_EQ(UnitsOf(next, "Evening"), "é|20");
    next.Answer("AddProfiles", "EVENING", "");
    next.Answer("PutProfiles", "", Evening("30"));
    EXPECT_EQ(UnitsOf(store, "Evening"), "30");
    EXPECT_EQ(UnitsOf(store, "EVENING"), "10|20|30|40") << "letter case makes another name";
    next.Answer("RemoveProfiles", "Evening", "");
    EXPECT_EQ(UnitsOf(store, "Evening"), "none");
    EXPECT_EQ(ProfileStore(folder_).Names(), Ready({"EVENING"}));
}

TEST_F(ProfileFolder, KeepsWhatAnotherVersionWrote) {
    const std::string foreign =
        R"(<WebProfile Owner="x"><Name Kind="y">Evening</Name><Colours><Red/></Colours>)"
        R"(<Section Name="Charts" Fields="A,B"><row A="1" B="2" C="3"/></Section></WebProfile>)";
    WriteAll(File(), "\xEF\xBB\xBF<WebProfiles Version=\"9\"><Groups>one</Groups>" + foreign +
                         "<WebProfile><Other/></WebProfile></WebProfiles>");
    ProfileStore store(folder_);
    EXPECT_EQ(store.TakeNotice(), "");
    EXPECT_EQ(store.Names(), Names{"Evening"});
    EXPECT_NE(store.Answer("GetProfiles", "Evening", "").find(foreign), std::string::npos);
    // As the control sends it back, with what it was given and its own settings.
    QZWebProfiles set;
    set.LoadText(store.Answer("GetProfiles", "Evening", ""));
    set.Item(1)->AddSection("DLVSelect", "BUList")->AddRow()->SetField("BUList", "30");
    store.Answer("PutProfiles", "", set.Text());
    store.Answer("AddProfiles", "Night", "");
    const std::string file = ReadAll(File());
    for (const char* piece :
         {"<WebProfiles Version=\"9\">", "<Groups>one</Groups>", "<Colours><Red/></Colours>", "Owner=\"x\"",
          "Kind=\"y\"", "<WebProfile><Other/></WebProfile>", "BUList=\"30\"", R"(<row A="1" B="2" C="3"/>)"})
        EXPECT_NE(file.find(piece), std::string::npos) << piece << "\n" << file;
    EXPECT_EQ(ProfileStore(folder_).Names(), (Names{"Evening", "Night"}));
}

struct Damage {
    const char* name;
    /// What is in the file; nothing for a folder in its place.
    std::optional<std::string> content;
    /// What the person reads about it.
    const char* told;
};

class DamagedFile : public ProfileFolder, public testing::WithParamInterface<Damage> {};

TEST_P(DamagedFile, IsSetAsideAndThePersonIsTold) {
    const auto& content = GetParam().content;
    WriteAll(Aside("damaged"), "of an earlier time");
    const auto damage = [&] {
        if (content) return WriteAll(File(), *content);
        fs::create_directories(File());
        WriteAll(File() / "inside", "");
    };
    const auto isKeptAt = [&](const fs::path& path) {
        return content ? ReadAll(path) == *content : fs::exists(path / "inside");
    };
    damage();
    ProfileStore store(folder_);
    EXPECT_EQ(store.Names(), Ready());
    EXPECT_TRUE(isKeptAt(Aside("damaged 2")));
    const std::string notice = store.TakeNotice();
    for (const std::string& words :
         {TextOf(File()), TextOf(Aside("damaged 2")), std::string(GetParam().told)})
        EXPECT_NE(notice.find(words), std::string::npos) << words << " in:\n" << notice;
    EXPECT_EQ(ErrorNumber(store.Answer("AddProfiles", "Night", "")), "0");

    // What happens to the file later costs nothing that is known.
    fs::remove(File());
    damage();
    EXPECT_EQ(ErrorNumber(store.Answer("AddProfiles", "Evening", "")), "0");
    EXPECT_TRUE(isKeptAt(Aside("damaged 3")));
    EXPECT_NE(store.TakeNotice(), "");
    EXPECT_EQ(store.TakeNotice(), "");
    EXPECT_EQ(ProfileStore(folder_).Names(), Ready({"Night", "Evening"}));
    EXPECT_EQ(ReadAll(Aside("damaged")), "of an earlier time");
}

INSTANTIATE_TEST_SUITE_P(
    Damages, DamagedFile,
    testing::Values(Damage{"Empty", "", "it is empty"}, Damage{"Folder", std::nullopt, "a folder stands"},
                    Damage{"NoDocument", "profiles", "line 1, column 1"},
                    Damage{"HalfADocument", Evening("40").substr(0, 80), "line 1"},
                    Damage{"AnotherDocument", "<WebData></WebData>", "WebProfiles is expected"},
                    Damage{"NotUtf8", "<WebProfiles>\xE9</WebProfiles>", "line 1, column 14"},
                    Damage{"OtherEncoding", std::string("\xFF\xFE<\0W\0", 6), "line 1, column 1"},
                    Damage{"MoreBehindTheEnd", Evening("40") + "<", "line 1"}),
    [](const auto& damage) { return std::string(damage.param.name); });

/// Stores a profile where that is not possible, and says what the answer tells.
std::string TextOfRefusal(ProfileStore& store, const Names& stored) {
    QZWebData answer;
    answer.LoadText(store.Answer("PutProfiles", "", Evening("40")));
    EXPECT_EQ(answer.Table("Error")->Field(1, "ErrorNumber"), "4");
    EXPECT_EQ(store.Names(), stored);
    return answer.Table("Error")->Field(1, "ErrorDescription");
}

TEST_F(ProfileFolder, SaysThatAPlaceIsNoneToStoreAnythingIn) {
    WriteAll(folder_ / "file", "");
    ProfileStore store(folder_ / "file");
    EXPECT_NE(TextOfRefusal(store, Ready()).find("there is no such folder"), std::string::npos);
    EXPECT_EQ(store.TakeNotice(), "");
}

TEST_F(ProfileFolder, LeavesAProtectedFileAsItIs) {
    WriteAll(File(), "<WebProfiles></WebProfiles>");
    fs::permissions(File(), fs::perms::owner_read);
    ProfileStore store(folder_);
    EXPECT_NE(TextOfRefusal(store, {}).find("it is protected"), std::string::npos);
    fs::permissions(File(), fs::perms::owner_all);
    EXPECT_EQ(ReadAll(File()), "<WebProfiles></WebProfiles>");
    EXPECT_EQ(ErrorNumber(store.Answer("PutProfiles", "", Evening("40"))), "0");
}

#ifdef _WIN32
TEST_F(ProfileFolder, WaitsForTheProgramThatUsesTheFile) {
    ProfileStore store(folder_);
    WriteAll(File(), "<WebProfiles></WebProfiles>");
    const int other = _wsopen(File().c_str(), _O_RDWR, _SH_DENYRW);
    EXPECT_NE(TextOfRefusal(store, Ready()).find("another program is using it"), std::string::npos);
    const std::string notice = store.TakeNotice();
    EXPECT_NE(notice.find("could not be moved"), std::string::npos) << notice;
    store.Answer("GetProfileList", "", "");
    EXPECT_EQ(store.TakeNotice(), "") << "said once";
    _close(other);
    EXPECT_EQ(ErrorNumber(store.Answer("PutProfiles", "", Evening("40"))), "0");
    EXPECT_EQ(store.Names(), Names{"Evening"});
}
#else
TEST_F(ProfileFolder, SaysThatTheDiskIsFullAndLosesNothing) {
    ProfileStore store(folder_);
    store.Answer("AddProfiles", "Night", "");
    store.Answer("RemoveProfiles", "Night", "");
    const std::string before = ReadAll(File());
    fs::create_symlink("/dev/full", File() += ".new");
    EXPECT_NE(TextOfRefusal(store, Ready()).find("the disk is full"), std::string::npos);
    EXPECT_EQ(ReadAll(File()), before);
    EXPECT_EQ(ErrorNumber(store.Answer("PutProfiles", "", Evening("40"))), "0") << "there is room again";
}
#endif

TEST_F(ProfileFolder, KeepsTheProfilesOfTwoHostsAtOnce) {
    const auto work = [this](const char* name) {
        ProfileStore store(folder_);
        for (int i = 0; i < 30; ++i) store.Answer("AddProfiles", name + std::to_string(i), "");
    };
    std::thread other(work, "a");
    work("b");
    other.join();
    EXPECT_EQ(ProfileStore(folder_).Names().size(), Ready().size() + 60);
}

TEST_F(ProfileFolder, TakesTenThousandProfilesAtOnce) {
    std::string document = "<WebProfiles>";
    for (int i = 0; i < 10000; ++i)
        document += "<WebProfile><Name>" + std::to_string(i) + "</Name></WebProfile>";
    document += "</WebProfiles>";
    const auto seconds = [](auto&& body) {
        const auto start = std::chrono::steady_clock::now();
        body();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    ProfileStore store(folder_);
    // A step that looks through all for each would take a hundred million comparisons.
    EXPECT_LT(seconds([&] {
                  store.Answer("PutProfiles", "", document);
                  store.Answer("PutProfiles", "", document);
                  store.Answer("RemoveProfiles", "5000", "");
              }),
              5);
    EXPECT_EQ(ProfileStore(folder_).Names().size(), Ready().size() + 9999);
}

}  // namespace
}  // namespace dlv::demo
