#include "hosts/demo/workday/ProfileStore.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "profiles/ProfileIDList.h"
#include "webdata/QZWebData.h"
#include "webdata/QZWebProfiles.h"

namespace dlv::demo {
namespace {

using Names = std::vector<std::string>;

const std::string kEvening =
    R"(<WebProfiles><WebProfile><Name>Evening</Name><Section Name="DLVSelect" Fields="BUList"><row BUList="40"/></Section></WebProfile></WebProfiles>)";

std::string ErrorNumber(const std::string& answer) {
    QZWebData data;
    data.LoadText(answer);
    return data.Table("Error")->Field(1, "ErrorNumber");
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

class ProfileAnswer : public testing::TestWithParam<Request> {};

TEST_P(ProfileAnswer, SaysWhatWasDone) {
    ProfileStore store;
    const Request& request = GetParam();
    const std::string answer = store.Answer(request.function, request.profileName, request.profilesXml);
    EXPECT_EQ(ErrorNumber(answer), request.error);
    EXPECT_EQ(ParseProfileIDs(answer), request.listed);
    EXPECT_EQ(store.Names(), request.stored);
}

const Names kBoth{"Default", "All Units"};

INSTANTIATE_TEST_SUITE_P(
    Requests, ProfileAnswer,
    testing::Values(
        Request{"List", "GetProfileList", "", "", "0", kBoth, kBoth},
        Request{"UnknownProfile", "GetProfiles", "default", "", "1", {}, kBoth},
        Request{"Put", "PutProfiles", "", kEvening, "0", {}, {"Default", "All Units", "Evening"}},
        Request{"PutOfGarbage", "PutProfiles", "", "<WebProfiles>", "3", {}, kBoth},
        Request{
            "SaveAs", "SaveProfileAs", "", kEvening, "0", {"Evening"}, {"Default", "All Units", "Evening"}},
        Request{"Add", "AddProfiles", "Night", "", "0", {"Night"}, {"Default", "All Units", "Night"}},
        Request{"AddOfAnOldName", "AddProfiles", "Default", "", "2", {}, kBoth},
        Request{"Remove", "RemoveProfiles", "Default", "", "0", {"Default"}, {"All Units"}},
        Request{"RemoveOfAnUnknownName", "RemoveProfiles", "Night", "", "1", {}, kBoth}),
    [](const auto& request) { return std::string(request.param.name); });

TEST(ProfileStore, GivesADefaultThatSelectsEveryTopLevelUnit) {
    QZWebProfiles set;
    set.LoadText(ProfileStore().Answer("GetProfiles", "Default", ""));
    ASSERT_EQ(set.Count(), 1u);
    EXPECT_EQ(set.ErrorTable()->Field(1, "ErrorNumber"), "0");
    EXPECT_EQ(set.Item(1)->Section("DLVSelect")->Row(1)->Field("BUList"), "10|20|30|40");
    EXPECT_EQ(set.Item(1)->Section("DLVSelect")->Row(1)->Field("SummaryOption"), "False");
}

TEST(ProfileStore, GivesBackWhatWasPutLast) {
    ProfileStore store;
    store.Answer("PutProfiles", "", kEvening);
    store.Answer("PutProfiles", "", std::string(kEvening).replace(kEvening.find("\"40\""), 4, "\"10\""));
    QZWebProfiles set;
    set.LoadText(store.Answer("GetProfiles", "Evening", ""));
    EXPECT_EQ(set.Item(1)->Section("DLVSelect")->Row(1)->Field("BUList"), "10");
}

}  // namespace
}  // namespace dlv::demo
