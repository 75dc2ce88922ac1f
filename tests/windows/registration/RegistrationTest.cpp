// Registration as the system's own tool does it, seen as what it changes in the whole registry.
#include <gtest/gtest.h>
#include <ole2.h>
#include <wrl/client.h>

#include <atomic>
#include <fstream>
#include <thread>

#include "DashlonViewer.h"
#include "Version.h"
#include "tests/windows/registration/Programs.h"
#include "tests/windows/registration/Registry.h"

namespace dlv::test {
namespace {

using Microsoft::WRL::ComPtr;

const std::wstring kClasses = L"Software\\Classes\\";
const std::wstring kControlKey = kClasses + L"CLSID\\{621A354F-A89F-431D-B76F-710D3C631CBE}";
const std::wstring kLibraryKey = kClasses + L"TypeLib\\{98B7B94D-64BE-46E0-8264-E6FFBAB7B37D}";
const std::wstring kEventsKey = kClasses + L"Interface\\{15F642B2-26BF-4C93-BD71-BA1ABCE340DE}";

struct Way {
    const char* name;
    HKEY root;
    const wchar_t* rootName;
    const wchar_t* options;
    friend void PrintTo(const Way& way, std::ostream* out) { *out << way.name; }
};
const Way kMachine{"Machine", HKEY_LOCAL_MACHINE, L"HKLM\\", L"/s "};
const Way kUser{"User", HKEY_CURRENT_USER, L"HKCU\\", L"/s /n /i:user "};

int Regsvr32(const std::wstring& options) {
    return RunProgram(L"regsvr32.exe " + options + Quoted(Beside(L"DashlonViewer.ocx"))).status;
}
int Register(const Way& way) { return Regsvr32(way.options); }
int Unregister(const Way& way) { return Regsvr32(std::wstring(L"/u ") + way.options); }

/// The control's entry points, called by themselves for their results.
class Server {
public:
    Server() : library_(LoadLibraryW(Beside(L"DashlonViewer.ocx").c_str())) {}
    ~Server() { FreeLibrary(library_); }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    HRESULT Register() const { return Entry<HRESULT(WINAPI*)()>("DllRegisterServer")(); }
    HRESULT Install(BOOL install, const wchar_t* commandLine) const {
        return Entry<HRESULT(WINAPI*)(BOOL, LPCWSTR)>("DllInstall")(install, commandLine);
    }

private:
    template <class Function>
    Function Entry(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
    }
    const HMODULE library_;
};

void Replace(std::string& text, const std::string& old, const std::string& with) {
    for (std::size_t at = 0; (at = text.find(old, at)) != std::string::npos; at += with.size())
        text.replace(at, old.size(), with);
}

std::string Narrow(const std::wstring& text) { return {text.begin(), text.end()}; }

/// What came below the classes of one root, without what depends on the place and the version. Anything else
/// that changed stands as it is.
std::string Approvable(const std::vector<std::string>& difference, const Way& way) {
    const std::string file = Narrow(Beside(L"DashlonViewer.ocx"));
    const std::string major = std::to_string(DLV_VERSION_MAJOR);
    const std::string version = major + "." + std::to_string(DLV_VERSION_MINOR);
    const std::string root = "+ " + Narrow(way.rootName + kClasses);
    std::string text;
    for (std::string line : difference) {
        if (line.starts_with(root)) line.erase(0, root.size());
        // As Windows spells the key where it has it already.
        if (line.starts_with("Typelib\\")) line.replace(0, 7, "TypeLib");
        Replace(line, file, "<file>");
        Replace(line, file.substr(0, file.find_last_of('\\')), "<folder>");
        Replace(line, "}\\" + version, "}\\<version>");
        if (line.find("ersion : ") != std::string::npos) Replace(line, "= " + version, "= <version>");
        if (line.find(" : Version = ") != std::string::npos) Replace(line, "= " + version, "= <version>");
        for (const char* end : {"\\CLSID", " : ", "\n"})
            for (const char* name : {"DLViewer", "DLVParams", "QZWebMessage", "QZWebData", "QZWebTable",
                                     "QZWebProfiles", "QZWebProfile"}) {
                line += '\n';
                Replace(line, "DashlonViewer." + std::string(name) + "." + major + end,
                        "DashlonViewer." + std::string(name) + ".<major>" + end);
                line.pop_back();
            }
        text += line + '\n';
    }
    return text;
}

std::string Approved() {
    std::ifstream file(DLV_TESTS_DIR "/windows/registration/registered.txt", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class RegistrationFor : public testing::TestWithParam<Way> {
public:
    /// Every user of Windows has classes; one of Wine comes without any.
    static void SetUpTestSuite() { SetText(HKEY_CURRENT_USER, kClasses + L".dlv", nullptr, L"A file"); }
};

TEST_P(RegistrationFor, AddsWhatIsApprovedOnceAndTakesAwayExactlyThat) {
    const Snapshot before = TakeSnapshot();
    ASSERT_EQ(Register(GetParam()), 0);
    const Snapshot registered = TakeSnapshot();
    EXPECT_EQ(Approvable(Difference(before, registered), GetParam()), Approved());

    EXPECT_EQ(Register(GetParam()), 0);
    EXPECT_EQ(Difference(registered, TakeSnapshot()), std::vector<std::string>());

    EXPECT_EQ(Unregister(GetParam()), 0);
    EXPECT_EQ(Difference(before, TakeSnapshot()), std::vector<std::string>());
    EXPECT_EQ(Unregister(GetParam()), 0) << "what is gone is gone";
}

TEST_P(RegistrationFor, LeavesWhatOthersPutThere) {
    const HKEY root = GetParam().root;
    SetText(root, kLibraryKey + L"\\1.0\\0\\win64", nullptr, L"C:\\older\\DashlonViewer.ocx");
    SetText(root, kControlKey + L"\\Implemented Categories\\{00000000-0000-0000-0000-00000000F0E1}", nullptr,
            L"");
    SetText(root, kEventsKey, L"Foreign", L"stays");
    const Snapshot before = TakeSnapshot();
    EXPECT_EQ(Register(GetParam()), 0);
    EXPECT_EQ(Unregister(GetParam()), 0);
    EXPECT_EQ(Difference(before, TakeSnapshot()), std::vector<std::string>());
    for (const std::wstring& key : {kLibraryKey, kControlKey, kEventsKey}) RemoveTree(root, key);
}

INSTANTIATE_TEST_SUITE_P(All, RegistrationFor, testing::Values(kMachine, kUser),
                         [](const auto& way) { return way.param.name; });

TEST(Registration, KeepsWhatTheOtherBitnessShares) {
    const std::wstring other = kClasses + L"Wow6432Node\\CLSID\\{621A354F-A89F-431D-B76F-710D3C631CBE}";
    SetText(HKEY_LOCAL_MACHINE, other + L"\\InprocServer32", nullptr, L"C:\\32\\DashlonViewer.ocx");
    const Snapshot before = TakeSnapshot();
    EXPECT_EQ(Register(kMachine), 0);
    EXPECT_EQ(Unregister(kMachine), 0);
    std::vector<std::string> left = Difference(before, TakeSnapshot());
    std::erase_if(left, [](const std::string& line) {
        return line.starts_with("+ HKLM\\" + Narrow(kClasses) + "DashlonViewer.") ||
               line.starts_with("+ HKLM\\Software\\Classes\\Typelib\\{98B7B94D-");
    });
    EXPECT_EQ(left, std::vector<std::string>());
    EXPECT_EQ(GetText(HKEY_LOCAL_MACHINE, kClasses + L"DashlonViewer.DLViewer\\CLSID"),
              L"{621A354F-A89F-431D-B76F-710D3C631CBE}");

    RemoveTree(HKEY_LOCAL_MACHINE, other);
    EXPECT_EQ(Unregister(kMachine), 0);
    EXPECT_FALSE(TakeSnapshot().contains("HKLM\\" + Narrow(kClasses) + "DashlonViewer.DLViewer"));
}

TEST(Registration, IsAllOrNothingAndSaysWhatFailed) {
    const Server server;
    const HRESULT refused = HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE);
    MakeVolatileKey(HKEY_LOCAL_MACHINE, kEventsKey);
    const Snapshot nothing = TakeSnapshot();
    EXPECT_EQ(server.Register(), refused);
    EXPECT_EQ(Difference(nothing, TakeSnapshot()), std::vector<std::string>());

    // Over an older registration, which then still stands.
    RemoveTree(HKEY_LOCAL_MACHINE, kEventsKey);
    ASSERT_EQ(server.Register(), S_OK);
    SetText(HKEY_LOCAL_MACHINE, kControlKey + L"\\InprocServer32", nullptr, L"C:\\older\\DashlonViewer.ocx");
    RemoveTree(HKEY_LOCAL_MACHINE, kEventsKey);
    MakeVolatileKey(HKEY_LOCAL_MACHINE, kEventsKey);
    const Snapshot older = TakeSnapshot();
    EXPECT_EQ(server.Register(), refused);
    EXPECT_EQ(Difference(older, TakeSnapshot()), std::vector<std::string>());

    RemoveTree(HKEY_LOCAL_MACHINE, kEventsKey);
    EXPECT_EQ(Unregister(kMachine), 0);
}

TEST(Registration, RefusesAnInstallationThatItDoesNotKnow) {
    const Server server;
    const Snapshot before = TakeSnapshot();
    EXPECT_EQ(server.Install(TRUE, L"usr"), E_INVALIDARG);
    EXPECT_EQ(server.Install(FALSE, L"everybody"), E_INVALIDARG);
    EXPECT_EQ(Difference(before, TakeSnapshot()), std::vector<std::string>());
}

/// The control is registered for the machine, and this thread may make objects.
class RegisteredControl : public testing::Test {
public:
    static void SetUpTestSuite() {
        OleInitialize(nullptr);
        ASSERT_EQ(Register(kMachine), 0);
    }
    static void TearDownTestSuite() {
        EXPECT_EQ(Unregister(kMachine), 0);
        OleUninitialize();
    }
    template <class Interface>
    static ComPtr<Interface> Make(const wchar_t* progId) {
        CLSID id{};
        ComPtr<Interface> made;
        EXPECT_EQ(CLSIDFromProgID(progId, &id), S_OK);
        EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&made)), S_OK);
        return made;
    }
};

TEST_F(RegisteredControl, IsMadeWithoutAManifest) {
    EXPECT_TRUE(Make<_DLViewer>(L"DashlonViewer.DLViewer"));
    ComPtr<ITypeLib> library;
    IID libraryId{};
    EXPECT_EQ(IIDFromString(L"{98B7B94D-64BE-46E0-8264-E6FFBAB7B37D}", &libraryId), S_OK);
    EXPECT_EQ(LoadRegTypeLib(libraryId, DLV_VERSION_MAJOR, DLV_VERSION_MINOR, 0, &library), S_OK);
}

TEST_F(RegisteredControl, SaysTheSameOfItselfAsTheRegistry) {
    DWORD registered = 0, own = 0;
    EXPECT_EQ(OleRegGetMiscStatus(__uuidof(DLViewer), DVASPECT_CONTENT, &registered), S_OK);
    const auto object = Make<IOleObject>(L"DashlonViewer.DLViewer");
    ASSERT_TRUE(object);
    EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &own), S_OK);
    EXPECT_EQ(own, registered);
    EXPECT_EQ(std::to_wstring(own), GetText(HKEY_LOCAL_MACHINE, kControlKey + L"\\MiscStatus\\1"));
}

TEST_F(RegisteredControl, HasAPictureForToolboxes) {
    const std::wstring place = GetText(HKEY_LOCAL_MACHINE, kControlKey + L"\\ToolboxBitmap32");
    const std::size_t comma = place.find_last_of(L',');
    ASSERT_NE(comma, std::wstring::npos);
    const HMODULE file = LoadLibraryExW(place.substr(0, comma).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    const HANDLE picture = LoadImageW(file, MAKEINTRESOURCEW(std::stoi(place.substr(comma + 1))),
                                      IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
    BITMAP bitmap{};
    ASSERT_NE(GetObjectW(picture, sizeof bitmap, &bitmap), 0);
    EXPECT_EQ(bitmap.bmWidth, 16);
    EXPECT_EQ(bitmap.bmHeight, 16);
    DeleteObject(picture);
    FreeLibrary(file);
}

TEST_F(RegisteredControl, IsCalledFromOtherApartmentsThroughItsRegisteredInterfaces) {
    const auto table = Make<_QZWebTable>(L"DashlonViewer.QZWebTable");
    ASSERT_TRUE(table);
    ComPtr<_QZWebRow> row;
    ASSERT_EQ(table->AddRow(&row), S_OK);
    ComPtr<IStream> stream;
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(_QZWebTable), table.Get(), &stream), S_OK);
    std::atomic<bool> done = false;
    long count = 0;
    HRESULT called = E_FAIL;
    std::thread other([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        {
            ComPtr<_QZWebTable> proxy;
            called = CoUnmarshalInterface(stream.Get(), IID_PPV_ARGS(&proxy));
            if (SUCCEEDED(called)) called = proxy->get_RowCount(&count);
        }
        CoUninitialize();
        done = true;
    });
    while (!done) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        Sleep(1);
    }
    other.join();
    EXPECT_EQ(called, S_OK);
    EXPECT_EQ(count, 1);
}

/// The sample for scripts, which finds the control by the registry only.
TEST_F(RegisteredControl, IsUsedByTheScriptSample) {
    const Ran run = RunProgram(L"cscript.exe //nologo " + Quoted(L"Z:" DLV_SCRIPT));
    EXPECT_EQ(run.status, 77) << run.output;
    EXPECT_EQ(run.output, "6 tables, 2 units, the second is South\n");
}

}  // namespace
}  // namespace dlv::test
