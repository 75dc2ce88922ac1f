#include "dlcheck/PeFile.h"

#include <gtest/gtest.h>

#include "tests/support/Random.h"
#include "tests/unit/dlcheck/PeImage.h"

namespace dlv::test {
namespace {

using dlcheck::PeFile;
using dlcheck::Processor;
using dlcheck::ReadPeFile;

TEST(PeFile, SaysWhatTheHeadersSay) {
    for (const std::uint32_t machine : {kX86, kX64}) {
        const auto file = ReadPeFile(PeImage{machine, true, {"KERNEL32.dll", "ole32.dll"}, "<a/>"}.Bytes());
        ASSERT_TRUE(file);
        EXPECT_EQ(file->processor, machine == kX86 ? Processor::X86 : Processor::X64);
        EXPECT_TRUE(file->isLibrary);
        EXPECT_FALSE(file->followsWindows);
        EXPECT_EQ(file->imports, (std::vector<std::string>{"KERNEL32.dll", "ole32.dll"}));
        EXPECT_EQ(file->manifest, "<a/>");
    }
    const auto bare = ReadPeFile(PeImage{kArm64, false}.Bytes());
    ASSERT_TRUE(bare);
    EXPECT_EQ(bare->processor, Processor::Other);
    EXPECT_FALSE(bare->isLibrary);
    EXPECT_TRUE(bare->imports.empty() && bare->manifest.empty());
}

TEST(PeFile, KnowsManagedProgramsThatFollowWindows) {
    const struct {
        std::uint32_t machine, flags;
        bool follows;
    } cases[] = {{kX86, 0x1, true},
                 {kX86, 0x3, false},
                 {kX86, 0x20003, false},
                 {kX86, 0x8, false},
                 {kX64, 0x1, false}};
    for (const auto& test : cases) {
        const auto file = ReadPeFile(PeImage{test.machine, false, {}, "", test.flags}.Bytes());
        ASSERT_TRUE(file);
        EXPECT_EQ(file->followsWindows, test.follows) << test.machine << ' ' << test.flags;
    }
}

TEST(PeFile, FindsEveryFileThatWasCutOff) {
    const std::string whole = PeImage{kX64, true, {"a.dll"}, "<manifest/>", 1}.Bytes();
    ASSERT_TRUE(ReadPeFile(whole));
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(ReadPeFile(whole.substr(0, length))) << length;
}

TEST(PeFile, ComesToAnEndWithWhateverItReads) {
    const std::string whole = PeImage{kX86, true, {"a.dll", "b.dll"}, "<manifest/>", 1}.Bytes();
    Random random(7);
    int read = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string bytes = whole;
        for (std::uint32_t changes = 1 + random.Below(6); changes > 0; --changes)
            bytes[random.Below(static_cast<std::uint32_t>(bytes.size()))] = static_cast<char>(random.Bits());
        read += ReadPeFile(bytes).has_value();
    }
    EXPECT_GT(read, 1000);
    EXPECT_LT(read, 19999);
}

}  // namespace
}  // namespace dlv::test
