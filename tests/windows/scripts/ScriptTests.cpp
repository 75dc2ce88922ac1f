// Scripts that use the control from outside: alone under the system's script host, and in a host of our own
// that brings them the control's events.
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/windows/Dialogs.h"
#include "tests/windows/LateCall.h"
#include "tests/windows/scripts/ScriptHost.h"

namespace dlv::test {
namespace {

/// A script that ends otherwise has failed: the script host says nothing of an error that nobody handled.
constexpr DWORD kEndedWell = 77;
constexpr DWORD kLongestMilliseconds = 60000;

std::filesystem::path ScriptFolder(const char* name) {
    // With its drive: what begins with a slash is an option to the script host.
    return std::filesystem::absolute(DLV_TESTS_DIR).make_preferred() / "windows" / "scripts" / name;
}

std::string FileText(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

struct Ending {
    DWORD status = 0;
    std::string output;
};

/// Runs a script file to its end under the system's script host.
Ending RunAlone(const std::filesystem::path& script) {
    const std::filesystem::path log = std::filesystem::temp_directory_path() / "dlv-script.log";
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE out = CreateFileW(log.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                                   FILE_ATTRIBUTE_NORMAL, nullptr);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = out;
    PROCESS_INFORMATION process{};
    std::wstring command = L"cscript.exe //nologo \"" + script.wstring() + L"\"";
    EXPECT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                               &process));
    CloseHandle(out);
    Ending ending;
    if (WaitForSingleObject(process.hProcess, kLongestMilliseconds) != WAIT_OBJECT_0) {
        ADD_FAILURE() << script << " did not end";
        TerminateProcess(process.hProcess, 1);
    }
    GetExitCodeProcess(process.hProcess, &ending.status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    ending.output = FileText(log);
    std::filesystem::remove(log);
    return ending;
}

/// The script host finds classes in the registry only.
class ScriptsAlone : public testing::Test {
protected:
    static void SetUpTestSuite() {
        New<_DLViewer>(L"DLViewer");  // loads the library
        EXPECT_EQ(Call("DllRegisterServer"), S_OK);
    }
    static void TearDownTestSuite() {
        EXPECT_EQ(Call("DllUnregisterServer"), S_OK);
        CLSID id{};
        EXPECT_TRUE(FAILED(CLSIDFromProgID(kControl, &id)));
    }

private:
    static HRESULT Call(const char* name) {
        const auto function = Export<HRESULT(WINAPI*)()>(name);
        return function == nullptr ? E_NOTIMPL : function();
    }
};

TEST_F(ScriptsAlone, ReachEveryMemberAndEveryError) {
    int scripts = 0;
    for (const auto& file : std::filesystem::directory_iterator(ScriptFolder("alone"))) {
        const Ending ending = RunAlone(file.path());
        EXPECT_EQ(ending.status, kEndedWell) << file.path() << "\n" << ending.output;
        ++scripts;
    }
    EXPECT_GE(scripts, 4);
}

TEST_F(ScriptsAlone, ThatStopMidwayEndWithoutTheMarker) {
    int scripts = 0;
    for (const auto& file : std::filesystem::directory_iterator(ScriptFolder("planted"))) {
        const Ending ending = RunAlone(file.path());
        EXPECT_EQ(ending.status, 0u) << file.path() << "\n" << ending.output;
        ++scripts;
    }
    EXPECT_GE(scripts, 3);
}

struct HostedCase {
    ScriptHost::Language language;
    const char* file;
};

class HostedScript : public testing::TestWithParam<HostedCase> {
protected:
    HostedScript() {
        notes_->On(L"Note", [this](std::vector<_variant_t>& arguments, VARIANT&) {
            said.push_back(std::wstring(_bstr_t(arguments.at(0))));
            return S_OK;
        });
        notes_->On(L"Text",
                   [](std::vector<_variant_t>&, VARIANT& result) { return Return(result, kSampleMessage); });
    }

    /// Runs a script with the control as "Viewer" and this host as "Host".
    void Run(ScriptHost& host, const std::wstring& script) {
        host.AddObject(L"Host", notes_.Get());
        host.AddSource(L"Viewer", control.Viewer(), __uuidof(__DLViewer));
        ran = host.Run(script);
    }

    HostedControl control;
    std::vector<std::wstring> said;
    HRESULT ran = E_FAIL;

private:
    ComPtr<ScriptObject> notes_ = container::Make<ScriptObject>();
};

TEST_P(HostedScript, AnswersTheRequestsOfAStartUpInsideItsEvents) {
    const std::string text = FileText(ScriptFolder("hosted") / GetParam().file);
    ScriptHost host(GetParam().language);
    {
        const Library::Scope classes(ControlLibrary());
        Run(host, std::wstring(text.begin(), text.end()));
    }
    EXPECT_EQ(ran, S_OK);
    EXPECT_TRUE(host.Errors().empty()) << testing::PrintToString(host.Errors());
    const std::vector<std::wstring> wanted{L"GetProfileList \"\"", L"GetProfiles \"Default\"",
                                           L"PutProfiles 1 \"Default\"", L"PostRequest \"ClientReady\"",
                                           L"done"};
    EXPECT_EQ(said, wanted);
    EXPECT_EQ(control.ListedUnits(), 2u);
}

TEST_P(HostedScript, WhoseHandlerFailsDoesNoHarm) {
    const bool basic = GetParam().language == ScriptHost::Language::VBScript;
    ScriptHost host(GetParam().language);
    Run(host, basic ? L"Sub Viewer_GetProfileList(Params)\n Params.Jump\nEnd Sub\n"
                      L"Viewer.Initialize Nothing\nViewer.SetSessionBUIDList Array(\"1\")\nHost.Note \"done\""
                    : L"function Viewer_GetProfileList(params) { params.Jump(); }\n"
                      L"Viewer.Initialize({});\nViewer.SetSessionBUIDList(['1']);\nHost.Note('done');");
    EXPECT_EQ(ran, S_OK);
    EXPECT_EQ(host.Errors().size(), 1u);
    EXPECT_EQ(said, std::vector<std::wstring>{L"done"});
}

INSTANTIATE_TEST_SUITE_P(Languages, HostedScript,
                         testing::Values(HostedCase{ScriptHost::Language::VBScript, "start-up.vbs"},
                                         HostedCase{ScriptHost::Language::JScript, "start-up.js"}),
                         [](const auto& test) {
                             return test.param.language == ScriptHost::Language::VBScript ? "VBScript"
                                                                                          : "JScript";
                         });

/// Objects of its classes tell no type, and their members only by another interface than others do.
class ScriptWithClasses : public HostedScript {};

TEST_P(ScriptWithClasses, MakesAMessageThatIsShown) {
    const std::string text = FileText(ScriptFolder("hosted") / GetParam().file);
    const DialogCloser closer;
    ScriptHost host(GetParam().language);
    Run(host, std::wstring(text.begin(), text.end()));
    EXPECT_EQ(ran, S_OK);
    EXPECT_TRUE(host.Errors().empty()) << testing::PrintToString(host.Errors());
    EXPECT_EQ(said, std::vector<std::wstring>{L"done"});
    EXPECT_EQ(control.ListedUnits(), 2u);
    EXPECT_TRUE(closer.Texts().empty()) << testing::PrintToString(closer.Texts());
}

INSTANTIATE_TEST_SUITE_P(Basic, ScriptWithClasses,
                         testing::Values(HostedCase{ScriptHost::Language::VBScript, "message.vbs"}));

}  // namespace
}  // namespace dlv::test
