#include "widgets/GridKeys.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <tuple>

namespace dlv {
namespace {

TEST(GridKeysTable, NoKeyMeansTwoThings) {
    std::set<std::tuple<int, char, Modifiers>> keys;
    for (const GridKey& key : GridKeys()) {
        EXPECT_TRUE(keys.insert({key.key, key.character, key.with}).second) << key.name;
        EXPECT_NE(key.key == 0, key.character == 0) << key.name;
        if (key.key != 0) {
            EXPECT_EQ(CommandForKey(key.key, key.with), key.command) << key.name;
        } else {
            EXPECT_EQ(CommandForCharacter(static_cast<char32_t>(key.character)), key.command) << key.name;
        }
    }
}

TEST(GridKeysTable, ShiftChangesOnlyWhatItIsPartOf) {
    constexpr int kUp = 0x26;
    constexpr int kMinus = 0x6D;
    EXPECT_EQ(CommandForKey(kUp, Modifiers::Shift), GridCommand::RowUp);
    EXPECT_EQ(CommandForKey(kUp, Modifiers::ControlShift), GridCommand::ScrollUp);
    EXPECT_EQ(CommandForKey(kMinus, Modifiers::Shift), GridCommand::CloseAllBelow);
    EXPECT_EQ(CommandForKey('C', Modifiers::Shift), std::nullopt);
    for (const Modifiers with : {Modifiers::Control, Modifiers::ControlShift})
        EXPECT_EQ(CommandForKey(0x0D, with), std::nullopt) << "Enter";
    EXPECT_EQ(CommandForKey('C', Modifiers::None), std::nullopt);
    EXPECT_EQ(CommandForKey(0, Modifiers::None), std::nullopt);
    EXPECT_EQ(CommandForCharacter('c'), std::nullopt);
}

TEST(GridMenuTable, NamesKeysThatDoWhatItSays) {
    for (const GridMenuItem& item : GridMenu()) {
        if (item.key.empty()) continue;
        bool found = false;
        for (const GridKey& key : GridKeys()) found |= key.name == item.key && key.command == item.command;
        EXPECT_TRUE(found) << item.caption;
    }
}

TEST(KeyboardPage, ListsTheKeysOfTheTable) {
    std::string wanted = "| key | in a grid |\n|---|---|\n";
    for (const GridKey& key : GridKeys())
        wanted.append("| ").append(key.name).append(" | ").append(key.does).append(" |\n");
    std::ifstream file(DLV_KEYBOARD_PAGE);
    std::stringstream page;
    page << file.rdbuf();
    EXPECT_NE(page.str().find(wanted), std::string::npos) << "docs/keyboard.md must hold\n" << wanted;
}

}  // namespace
}  // namespace dlv
