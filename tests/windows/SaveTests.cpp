// Saving and printing on the built control: the real save dialog, the real file.
#include <commctrl.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "hosts/container/WindowList.h"
#include "tests/windows/Dialogs.h"

namespace dlv::test {
namespace {

namespace fs = std::filesystem;

enum OutputTool : WPARAM { kSave = 0, kPrint = 1 };

void Press(const HostedControl& control, OutputTool tool) {
    const HWND bar = control.WindowOf(TOOLBARCLASSNAMEW);
    RECT area{};
    ASSERT_NE(SendMessageW(bar, TB_GETITEMRECT, tool, reinterpret_cast<LPARAM>(&area)), 0);
    const LPARAM point = MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
    SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendMessageW(bar, WM_LBUTTONUP, 0, point);
}

HWND EditOf(HWND dialog) {
    constexpr int kNameBox = 0x47C;
    for (const HWND child : container::WindowsInside(GetDlgItem(dialog, kNameBox)))
        if (container::ClassOf(child) == L"Edit") return child;
    return nullptr;
}

/// An empty folder, removed with all in it.
struct Folder {
    fs::path path = fs::temp_directory_path() / ("dlv-save-" + std::to_string(GetCurrentProcessId()));
    Folder() { fs::create_directory(path); }
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
    std::vector<std::wstring> Files() const {
        std::vector<std::wstring> files;
        for (const auto& entry : fs::directory_iterator(path)) files.push_back(entry.path().filename());
        return files;
    }
    std::string Text(const wchar_t* name) const {
        std::ifstream stream(path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
};

struct Saving : testing::Test {
    Saving() {
        control.StartUp();
        EXPECT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    }

    /// Presses the button and works the dialogs that open: each press of `answers` in turn, the first one
    /// after `name` was typed.
    void Save(const std::wstring& name, std::vector<WPARAM> answers) {
        std::size_t dialogs = 0;
        const DialogWatch watch([&](HWND dialog) {
            ASSERT_LT(dialogs, answers.size()) << "one dialog too many";
            const HWND edit = EditOf(dialog);
            EXPECT_TRUE(dialogs > 0 || SendMessageW(edit, WM_GETTEXTLENGTH, 0, 0) == 0)
                << "a name is proposed";
            if (edit != nullptr) SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
            PostMessageW(dialog, WM_COMMAND, answers[dialogs++], 0);
        });
        Press(control, kSave);
        EXPECT_EQ(dialogs, answers.size());
        EXPECT_EQ(OpenDialog(), nullptr);
        EXPECT_TRUE(IsWindowEnabled(control.window.Handle()));
    }
    std::wstring PathOf(const wchar_t* name) const { return (folder.path / name).wstring(); }

    Folder folder;
    HostedControl control;
};

TEST_F(Saving, WritesTheGridInViewWhereThePersonSays) {
    const std::wstring before = fs::current_path();
    Save(PathOf(L"S\u00FCd"), {IDOK});
    const std::string text = folder.Text(L"S\u00FCd.csv");
    EXPECT_TRUE(text.starts_with("\xEF\xBB\xBF,,,Work Orders,")) << text;
    EXPECT_TRUE(text.ends_with("\r\n"));
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"S\u00FCd.csv"}) << "something lies beside it";
    EXPECT_EQ(fs::current_path(), before);
}

TEST_F(Saving, AsksBeforeItOverwrites) {
    std::ofstream(folder.path / "a.csv") << "mine";
    Save(PathOf(L"a.csv"), {IDOK, IDNO, IDCANCEL});
    EXPECT_EQ(folder.Text(L"a.csv"), "mine");
    Save(PathOf(L"a.csv"), {IDOK, IDYES});
    EXPECT_TRUE(folder.Text(L"a.csv").starts_with("\xEF\xBB\xBF"));
    EXPECT_EQ(folder.Files().size(), 1u);
}

TEST_F(Saving, LeavesAFileThatItCannotReplace) {
    std::ofstream(folder.path / "a.csv") << "mine";
    // Another program has it open.
    const HANDLE open =
        CreateFileW(PathOf(L"a.csv").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(open, INVALID_HANDLE_VALUE);
    Save(PathOf(L"a.csv"), {IDOK, IDYES});
    CloseHandle(open);
    EXPECT_EQ(folder.Text(L"a.csv"), "mine");
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"a.csv"});
}

TEST_F(Saving, IsNothingWhenCancelled) {
    Save(PathOf(L"a.csv"), {IDCANCEL});
    EXPECT_TRUE(folder.Files().empty());
}

// The host stops the control while the dialog, or the question over it, is open.
TEST_F(Saving, GoesWithAControlThatIsStopped) {
    std::ofstream(folder.path / "a.csv") << "mine";
    for (const bool asked : {false, true}) {
        HostedControl stopped;
        stopped.StartUp();
        ASSERT_EQ(Receive(stopped.Viewer(), SampleMessage().Get()), S_OK);
        const DialogWatch watch([&](HWND dialog) {
            const HWND edit = EditOf(dialog);
            if (edit != nullptr && asked) {
                SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(PathOf(L"a.csv").c_str()));
                PostMessageW(dialog, WM_COMMAND, IDOK, 0);
            } else {
                EXPECT_EQ(stopped.Viewer()->StopControl(), S_OK);
            }
        });
        Press(stopped, kSave);
        EXPECT_EQ(OpenDialog(), nullptr);
    }
    EXPECT_EQ(folder.Text(L"a.csv"), "mine");
}

// Whether there is a printer or not, a dialog that opens is cancelled, and the control goes on.
TEST_F(Saving, PrintsNothingWithoutAPrinterOrAWord) {
    {
        const DialogCloser closer;
        Press(control, kPrint);
        EXPECT_LE(closer.Closed(), 1);
    }
    EXPECT_TRUE(IsWindowEnabled(control.window.Handle()));
    Save(PathOf(L"a.csv"), {IDOK});
    EXPECT_EQ(folder.Files().size(), 1u);
}

}  // namespace
}  // namespace dlv::test
