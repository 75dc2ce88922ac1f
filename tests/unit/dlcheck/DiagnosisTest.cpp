// Every sentence of the diagnosis, on a made-up computer.
#include "dlcheck/Diagnosis.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/unit/dlcheck/PeImage.h"

namespace dlv::test {
namespace {

using namespace dlcheck;

const Control kControl{"DashlonViewer", "DashlonViewer.ocx", "{C}"};

std::string Assembly(const std::string& architecture, const std::string& version = "2.1.0.0",
                     const std::string& classId = "{c}") {
    return "<?xml version=\"1.0\"?><v1:assembly xmlns:v1=\"urn\"><v1:assemblyIdentity name=\"DashlonViewer\" "
           "version=\"" +
           version + "\" processorArchitecture=\"" + architecture +
           "\"/><v1:file name=\"DashlonViewer.ocx\">" + "<v1:comClass clsid=\"" + classId +
           "\"/></v1:file></v1:assembly>";
}

std::string Depends(const std::string& version = "2.1.0.0") {
    return "<assembly><assemblyIdentity name=\"host\" version=\"1\"/><dependency><dependentAssembly>"
           "<assemblyIdentity name=\"dashlonviewer\" version=\"" +
           version + "\"/></dependentAssembly></dependency></assembly>";
}

std::string Program(std::uint32_t machine, const std::string& manifest = "", std::uint32_t managedFlags = 0) {
    return PeImage{machine, false, {}, manifest, managedFlags}.Bytes();
}
std::string Library(std::uint32_t machine, std::vector<std::string> imports = {"KERNEL32.dll"}) {
    return PeImage{machine, true, std::move(imports)}.Bytes();
}

/// What a row of the table sets up.
struct Case {
    const char* name;
    /// The program or file asked about; with none the registry, for 64 bit.
    const char* path;
    std::map<std::string, std::string> files;
    std::map<Bitness, Registered> registered;
    bool loads;
    const char* sentence;
    std::string problem;
    bool bits64 = true;
    friend void PrintTo(const Case& test, std::ostream* out) { *out << test.name; }
};

class MadeUpComputer final : public Computer {
public:
    explicit MadeUpComputer(const Case& test) : test_(test) {}

    bool HasBits64() const override { return test_.bits64; }
    FileContent Read(const std::string& path) const override {
        const auto found = test_.files.find(path);
        if (found == test_.files.end()) return {};
        if (found->second == "denied") return {Access::Denied, {}};
        return {Access::Given, found->second};
    }
    std::optional<Registered> Find(Bitness bitness) const override {
        const auto found = test_.registered.find(bitness);
        return found == test_.registered.end() ? std::nullopt : std::optional(found->second);
    }
    bool HasLibrary(const std::string& name, const std::string& folder, Bitness) const override {
        return name == "KERNEL32.dll" || test_.files.contains(folder + name);
    }
    std::optional<std::string> LoadingProblem(const std::string&, Bitness) const override {
        return test_.problem.empty() ? std::nullopt : std::optional(test_.problem);
    }

private:
    const Case& test_;
};

class Diagnoses : public testing::TestWithParam<Case> {};

TEST_P(Diagnoses, SayWhyInOneSentence) {
    const Case& test = GetParam();
    const MadeUpComputer computer(test);
    const Diagnosis diagnosis = *test.path == '\0' ? CheckRegistration(computer, kControl, Bitness::Bits64)
                                                   : CheckFile(computer, kControl, test.path);
    EXPECT_EQ(diagnosis.sentence, test.sentence);
    EXPECT_EQ(diagnosis.loads, test.loads);
}

const Registered kMachine{"D:\\c\\DashlonViewer.ocx", false};
const Registered kUser{"D:\\u\\DashlonViewer.ocx", true};
const auto k64 = Bitness::Bits64;
const auto k32 = Bitness::Bits32;
const char kExe[] = "C:\\a\\h.exe";
const char kOcx[] = "C:\\a\\DashlonViewer.ocx";
const char kManifest[] = "C:\\a\\DashlonViewer.manifest";
const char kRegisteredOcx[] = "D:\\c\\DashlonViewer.ocx";

INSTANTIATE_TEST_SUITE_P(
    OfTheProgram, Diagnoses,
    testing::Values(
        Case{"missing", kExe, {}, {}, false, "There is no file C:\\a\\h.exe."},
        Case{"denied", kExe, {{kExe, "denied"}}, {}, false, "Access to C:\\a\\h.exe is denied."},
        Case{"no program",
             kExe,
             {{kExe, "#!/bin/sh"}},
             {},
             false,
             "C:\\a\\h.exe is damaged, or neither a Windows program nor a library."},
        Case{"another processor",
             kExe,
             {{kExe, Program(kArm64)}},
             {},
             false,
             "C:\\a\\h.exe is for another kind of processor; the control comes for 32- and 64-bit x86."},
        Case{"its manifest is broken",
             kExe,
             {{kExe, Program(kX64, "<assembly>")}},
             {},
             false,
             "The manifest of h.exe is no well-formed document, so Windows does not start it."}));

INSTANTIATE_TEST_SUITE_P(
    ThroughAManifest, Diagnoses,
    testing::Values(
        Case{"works",
             kExe,
             {{kExe, Program(kX64, Depends())}, {kManifest, Assembly("amd64")}, {kOcx, Library(kX64)}},
             {},
             true,
             "The control loads for h.exe (64-bit) from C:\\a\\DashlonViewer.ocx, through "
             "C:\\a\\DashlonViewer.manifest."},
        Case{"in a folder of its own",
             kExe,
             {{kExe, Program(kX86, Depends())},
              {"C:\\a\\DashlonViewer\\DashlonViewer.manifest", Assembly("x86")},
              {"C:\\a\\DashlonViewer\\DashlonViewer.ocx", Library(kX86)}},
             {},
             true,
             "The control loads for h.exe (32-bit) from C:\\a\\DashlonViewer\\DashlonViewer.ocx, through "
             "C:\\a\\DashlonViewer\\DashlonViewer.manifest."},
        Case{"beside the program",
             kExe,
             {{kExe, Program(kX64)}, {"C:\\a\\h.exe.manifest", Assembly("amd64")}, {kOcx, Library(kX64)}},
             {},
             true,
             "The control loads for h.exe (64-bit) from C:\\a\\DashlonViewer.ocx, named in the manifest of "
             "h.exe."},
        Case{"lies beside it but is not named",
             kExe,
             {{kExe, Program(kX64)}, {kManifest, Assembly("amd64")}, {kOcx, Library(kX64)}},
             {},
             false,
             "The control loads for h.exe (64-bit) only if the program activates "
             "C:\\a\\DashlonViewer.manifest itself: "
             "the program's own manifest does not name the assembly DashlonViewer, and the control is not "
             "registered "
             "for 64-bit programs."},
        Case{"lies beside it but is of the other architecture",
             kExe,
             {{kExe, Program(kX64)}, {kManifest, Assembly("x86")}},
             {},
             false,
             "C:\\a\\DashlonViewer.manifest is for architecture x86, but h.exe (64-bit) needs amd64."},
        Case{"lies beside it without the control",
             kExe,
             {{kExe, Program(kX64)}, {kManifest, Assembly("amd64")}},
             {},
             false,
             "C:\\a\\DashlonViewer.ocx does not exist."},
        Case{"missing",
             kExe,
             {{kExe, Program(kX64, Depends())}},
             {{k64, kMachine}},
             false,
             "The manifest of h.exe names the assembly DashlonViewer, but DashlonViewer.manifest is not in "
             "C:\\a\\."},
        Case{"denied",
             kExe,
             {{kExe, Program(kX64, Depends())}, {kManifest, "denied"}},
             {},
             false,
             "Access to C:\\a\\DashlonViewer.manifest is denied."},
        Case{"broken",
             kExe,
             {{kExe, Program(kX64, Depends())}, {kManifest, "<a>"}},
             {},
             false,
             "C:\\a\\DashlonViewer.manifest is no well-formed document."},
        Case{"other architecture",
             kExe,
             {{kExe, Program(kX64, Depends())}, {kManifest, Assembly("x86")}},
             {},
             false,
             "C:\\a\\DashlonViewer.manifest is for architecture x86, but h.exe (64-bit) needs amd64."},
        Case{"other version",
             kExe,
             {{kExe, Program(kX64, Depends("1.0.0.0"))}, {kManifest, Assembly("amd64")}},
             {},
             false,
             "The manifest of h.exe names version 1.0.0.0 of DashlonViewer, but "
             "C:\\a\\DashlonViewer.manifest is of "
             "version 2.1.0.0."},
        Case{"other classes",
             kExe,
             {{kExe, Program(kX64, Depends())}, {kManifest, Assembly("amd64", "2.1.0.0", "{D}")}},
             {},
             false,
             "C:\\a\\DashlonViewer.manifest does not name the control."},
        Case{"file missing",
             kExe,
             {{kExe, Program(kX64, Depends())}, {kManifest, Assembly("amd64")}},
             {},
             false,
             "C:\\a\\DashlonViewer.ocx, through C:\\a\\DashlonViewer.manifest, does not exist."}));

INSTANTIATE_TEST_SUITE_P(
    ByTheRegistry, Diagnoses,
    testing::Values(
        Case{"works",
             kExe,
             {{kExe, Program(kX64)}, {kRegisteredOcx, Library(kX64)}},
             {{k64, kMachine}},
             true,
             "The control loads for h.exe (64-bit) from D:\\c\\DashlonViewer.ocx, registered for the "
             "machine."},
        Case{
            "for this user",
            "",
            {{"D:\\u\\DashlonViewer.ocx", Library(kX64)}},
            {{k64, kUser}},
            true,
            "The control loads for 64-bit programs from D:\\u\\DashlonViewer.ocx, registered for this user."},
        Case{"managed on 64 bit",
             kExe,
             {{kExe, Program(kX86, "", 1)}, {kRegisteredOcx, Library(kX64)}},
             {{k64, kMachine}},
             true,
             "The control loads for h.exe (64-bit) from D:\\c\\DashlonViewer.ocx, registered for the "
             "machine."},
        Case{
            "managed on 32 bit",
            kExe,
            {{kExe, Program(kX86, "", 1)}, {kRegisteredOcx, Library(kX86)}},
            {{k32, kMachine}},
            true,
            "The control loads for h.exe (32-bit) from D:\\c\\DashlonViewer.ocx, registered for the machine.",
            "",
            false},
        Case{"not at all",
             kExe,
             {{kExe, Program(kX86)}},
             {},
             false,
             "The control is not registered for 32-bit programs, and no manifest of h.exe names it."},
        Case{"not at all, for any program",
             "",
             {},
             {},
             false,
             "The control is not registered for 64-bit programs."},
        Case{"for the others",
             kExe,
             {{kExe, Program(kX64)}},
             {{k32, kMachine}},
             false,
             "The control is registered for 32-bit programs only, so h.exe (64-bit) cannot find it: register "
             "the "
             "64-bit DashlonViewer.ocx too."},
        Case{"file missing",
             "",
             {},
             {{k64, kMachine}},
             false,
             "D:\\c\\DashlonViewer.ocx, registered for the machine, does not exist."},
        Case{"file denied",
             "",
             {{kRegisteredOcx, "denied"}},
             {{k64, kMachine}},
             false,
             "Access to D:\\c\\DashlonViewer.ocx, registered for the machine, is denied."},
        Case{"file damaged",
             "",
             {{kRegisteredOcx, Library(kX64).substr(0, 700)}},
             {{k64, kMachine}},
             false,
             "D:\\c\\DashlonViewer.ocx, registered for the machine, is damaged, or no library."},
        Case{"file is a program",
             "",
             {{kRegisteredOcx, Program(kX64)}},
             {{k64, kMachine}},
             false,
             "D:\\c\\DashlonViewer.ocx, registered for the machine, is damaged, or no library."},
        Case{"file of the other kind",
             "",
             {{kRegisteredOcx, Library(kX86)}},
             {{k64, kMachine}},
             false,
             "D:\\c\\DashlonViewer.ocx, registered for the machine, is 32-bit, so 64-bit programs cannot "
             "load it."},
        Case{"file of another processor",
             "",
             {{kRegisteredOcx, Library(kArm64)}},
             {{k64, kMachine}},
             false,
             "D:\\c\\DashlonViewer.ocx, registered for the machine, is for another kind of processor, so "
             "64-bit "
             "programs cannot load it."}));

INSTANTIATE_TEST_SUITE_P(
    OfACopyOfTheControl, Diagnoses,
    testing::Values(
        Case{"not registered",
             kOcx,
             {{kOcx, Library(kX86)}},
             {},
             true,
             "C:\\a\\DashlonViewer.ocx loads in 32-bit programs, but is not registered: they need a manifest "
             "that "
             "names it."},
        Case{"another is registered",
             kOcx,
             {{kOcx, Library(kX86)}},
             {{k32, kMachine}},
             true,
             "C:\\a\\DashlonViewer.ocx loads in 32-bit programs, but D:\\c\\DashlonViewer.ocx is what is "
             "registered "
             "for them."},
        Case{"is registered",
             "d:\\C\\dashlonviewer.OCX",
             {{"d:\\C\\dashlonviewer.OCX", Library(kX64)}},
             {{k64, kMachine}},
             true,
             "d:\\C\\dashlonviewer.OCX loads in 64-bit programs and is registered for the machine."},
        Case{"a library is missing",
             kOcx,
             {{kOcx, Library(kX64, {"KERNEL32.dll", "beside.dll", "nowhere.dll"})},
              {"C:\\a\\beside.dll", "x"}},
             {},
             false,
             "C:\\a\\DashlonViewer.ocx needs nowhere.dll, which is not on this computer."},
        Case{"Windows refuses",
             kOcx,
             {{kOcx, Library(kX64)}},
             {},
             false,
             "Windows does not load C:\\a\\DashlonViewer.ocx: error 193.",
             "error 193."}));

}  // namespace
}  // namespace dlv::test
