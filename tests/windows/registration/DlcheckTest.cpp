// dlcheck itself in situations that are made up for it: what it says and with which status it ends.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "tests/unit/dlcheck/PeImage.h"
#include "tests/windows/registration/Programs.h"
#include "tests/windows/registration/Registry.h"

namespace dlv::test {
namespace {

namespace fs = std::filesystem;

const wchar_t kOcx[] = L"DashlonViewer.ocx";
const wchar_t kManifest[] = L"DashlonViewer.manifest";

/// A folder, and registrations, that are gone with it.
class Situation {
public:
    Situation() : folder_(fs::temp_directory_path() / L"dlcheck") { fs::create_directories(folder_); }
    ~Situation() {
        for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER})
            for (const wchar_t* view : {L"", L"Wow6432Node\\"}) RemoveTree(root, ClassKey(view));
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    Situation(const Situation&) = delete;
    Situation& operator=(const Situation&) = delete;

    void Write(const wchar_t* name, const std::string& bytes) const {
        std::ofstream(folder_ / name, std::ios::binary) << bytes;
    }
    void Write(const wchar_t* name, const PeImage& image) const { Write(name, image.Bytes()); }
    void CopyControl() const { fs::copy_file(Beside(kOcx), folder_ / kOcx); }
    void CopyManifest() const { fs::copy_file(Beside(kManifest), folder_ / kManifest); }
    void MakeFolder(const wchar_t* name) const { fs::create_directory(folder_ / name); }
    std::string BytesOfControl() const {
        std::ifstream file(fs::path(Beside(kOcx)), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// Registers the folder's file; `view` is empty for 64-bit programs.
    void Register(HKEY root = HKEY_LOCAL_MACHINE, const wchar_t* view = L"") const {
        SetText(root, ClassKey(view) + L"\\InprocServer32", nullptr, folder_ / kOcx);
    }

    std::wstring Path(const std::wstring& name) const { return folder_ / name; }
    /// What dlcheck says, with the folder's path as "DIR\".
    Ran Ask(const std::wstring& file) const {
        Ran run =
            RunProgram(Quoted(Beside(L"dlcheck.exe")) + (file.empty() ? L"" : L" " + Quoted(Path(file))));
        const std::string folder = folder_.string();
        for (std::size_t at = 0; (at = run.output.find(folder, at)) != std::string::npos;)
            run.output.replace(at, folder.size(), "DIR");
        return run;
    }

private:
    static std::wstring ClassKey(const std::wstring& view) {
        return L"Software\\Classes\\" + view + L"CLSID\\{621A354F-A89F-431D-B76F-710D3C631CBE}";
    }
    const fs::path folder_;
};

std::string Dependency(const char* version) {
    return std::string(
               "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\"><dependency>"
               "<dependentAssembly><assemblyIdentity type=\"win32\" name=\"DashlonViewer\" version=\"") +
           version + "\"/></dependentAssembly></dependency></assembly>";
}

const PeImage kProgram{kX64, false};
const PeImage k32BitProgram{kX86, false};
const PeImage k32BitLibrary{kX86, true};

struct Case {
    const char* name;
    std::function<void(const Situation&)> prepare;
    const wchar_t* asked;
    int status;
    const char* sentence;
    friend void PrintTo(const Case& test, std::ostream* out) { *out << test.name; }
};

class Dlcheck : public testing::TestWithParam<Case> {};

TEST_P(Dlcheck, SaysWhy) {
    const Situation situation;
    GetParam().prepare(situation);
    const Ran run = situation.Ask(GetParam().asked);
    EXPECT_EQ(run.output, GetParam().sentence + std::string("\n"));
    EXPECT_EQ(run.status, GetParam().status);
}

INSTANTIATE_TEST_SUITE_P(
    Situations, Dlcheck,
    testing::Values(
        Case{"nothing registered", [](const Situation&) {}, L"", 1,
             "The control is not registered for 64-bit programs."},
        Case{
            "registered for the machine",
            [](const Situation& s) {
                s.CopyControl();
                s.Register();
            },
            L"", 0,
            "The control loads for 64-bit programs from DIR\\DashlonViewer.ocx, registered for the machine."},
        Case{
            "registered for the user",
            [](const Situation& s) {
                s.CopyControl();
                s.Register(HKEY_CURRENT_USER);
                s.Write(L"host.exe", kProgram);
            },
            L"host.exe", 0,
            "The control loads for host.exe (64-bit) from DIR\\DashlonViewer.ocx, registered for this user."},
        Case{"registered for 32 bit only",
             [](const Situation& s) {
                 s.Write(kOcx, k32BitLibrary);
                 s.Register(HKEY_LOCAL_MACHINE, L"Wow6432Node\\");
                 s.Write(L"host.exe", kProgram);
             },
             L"host.exe", 1,
             "The control is registered for 32-bit programs only, so host.exe (64-bit) cannot find it: "
             "register the "
             "64-bit DashlonViewer.ocx too."},
        Case{"registered for 64 bit only",
             [](const Situation& s) {
                 s.CopyControl();
                 s.Register();
                 s.Write(L"host.exe", k32BitProgram);
             },
             L"host.exe", 1,
             "The control is registered for 64-bit programs only, so host.exe (32-bit) cannot find it: "
             "register the "
             "32-bit DashlonViewer.ocx too."},
        Case{"the 32-bit file registered for 64 bit",
             [](const Situation& s) {
                 s.Write(kOcx, k32BitLibrary);
                 s.Register();
             },
             L"", 1,
             "DIR\\DashlonViewer.ocx, registered for the machine, is 32-bit, so 64-bit programs cannot load "
             "it."},
        Case{"the registered file is gone", [](const Situation& s) { s.Register(); }, L"", 1,
             "DIR\\DashlonViewer.ocx, registered for the machine, does not exist."},
        Case{"the registered file may not be read",
             [](const Situation& s) {
                 s.MakeFolder(kOcx);
                 s.Register();
             },
             L"", 1, "Access to DIR\\DashlonViewer.ocx, registered for the machine, is denied."},
        Case{"the file was cut off",
             [](const Situation& s) { s.Write(kOcx, s.BytesOfControl().substr(0, 100000)); }, kOcx, 1,
             "DIR\\DashlonViewer.ocx is damaged, or neither a Windows program nor a library."},
        Case{"a library is missing",
             [](const Situation& s) {
                 s.Write(kOcx, PeImage{kX64, true, {"nowhere.dll"}});
             },
             kOcx, 1, "DIR\\DashlonViewer.ocx needs nowhere.dll, which is not on this computer."},
        Case{"a copy of the control", [](const Situation& s) { s.CopyControl(); }, kOcx, 0,
             "DIR\\DashlonViewer.ocx loads in 64-bit programs, but is not registered: they need a manifest "
             "that names "
             "it."},
        Case{"through a manifest",
             [](const Situation& s) {
                 s.CopyControl();
                 s.CopyManifest();
                 s.Write(L"host.exe", PeImage{kX64, false, {}, Dependency(DLV_VERSION)});
             },
             L"host.exe", 0,
             "The control loads for host.exe (64-bit) from DIR\\DashlonViewer.ocx, through "
             "DIR\\DashlonViewer.manifest."},
        Case{"the manifest is missing",
             [](const Situation& s) {
                 s.CopyControl();
                 s.Write(L"host.exe", PeImage{kX64, false, {}, Dependency(DLV_VERSION)});
             },
             L"host.exe", 1,
             "The manifest of host.exe names the assembly DashlonViewer, but DashlonViewer.manifest is not "
             "in DIR\\."},
        Case{"the manifest is of the other architecture",
             [](const Situation& s) {
                 s.CopyManifest();
                 s.Write(L"host.exe", PeImage{kX86, false, {}, Dependency(DLV_VERSION)});
             },
             L"host.exe", 1,
             "DIR\\DashlonViewer.manifest is for architecture amd64, but host.exe (32-bit) needs x86."},
        Case{"the manifest is not named",
             [](const Situation& s) {
                 s.CopyControl();
                 s.CopyManifest();
                 s.Write(L"host.exe", kProgram);
             },
             L"host.exe", 1,
             "The control loads for host.exe (64-bit) only if the program activates "
             "DIR\\DashlonViewer.manifest "
             "itself: the program's own manifest does not name the assembly DashlonViewer, and the control "
             "is not "
             "registered for 64-bit programs."},
        Case{"no such program", [](const Situation&) {}, L"nobody.exe", 1,
             "There is no file DIR\\nobody.exe."}));

TEST(DlcheckProgram, LeavesTheLastWordToWindows) {
    const Situation situation;
    // Sound headers, but a library without anything in it: Windows refuses it, or it has no classes.
    situation.Write(kOcx, PeImage{kX64, true});
    const Ran run = situation.Ask(kOcx);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output.substr(0, 50), "Windows does not load DIR\\DashlonViewer.ocx: error");
}

TEST(DlcheckProgram, TellsItsUse) {
    const Ran help = RunProgram(Quoted(Beside(L"dlcheck.exe")) + L" --help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.output.find("dlcheck PROGRAM.exe"), std::string::npos);
    EXPECT_EQ(RunProgram(Quoted(Beside(L"dlcheck.exe")) + L" a b").status, 2);
}

}  // namespace
}  // namespace dlv::test
