#include <oleacc.h>

#include "tests/windows/forms/FormHost.h"
#include "windows/com/Strings.h"
#include "windows/dialogs/Dialogs.h"

namespace dlv::test {
namespace {

class AskForm : public ModalForm {
public:
    AskForm() : ModalForm("ask") {
        SetSize(Pixels(300), Pixels(120));
        SetCaption("A question");
        Place(label, {Pixels(10), Pixels(10), Pixels(280), Pixels(34)});
        Place(text, {Pixels(10), Pixels(50), Pixels(280), Pixels(22)});
        Place(list, {Pixels(10), Pixels(10), Pixels(80), Pixels(30)});
        Place(ok, {Pixels(110), Pixels(84), Pixels(80), Pixels(26)});
        Place(cancel, {Pixels(200), Pixels(84), Pixels(80), Pixels(26)});
        Place(timer, {});
        label.SetCaption("What is it to be?");
        list.SetItems({"one", "two"});
        ok.SetCaption("OK");
        ok.MakeDefault();
        cancel.SetCaption("Cancel");
        cancel.MakeCancel();
        timer.SetEnabled(false);
    }

    void Click(Button& button) override {
        done += &button == &ok ? "ok " : "cancel ";
        Unload();
    }
    void GotFocus(Control& control) override { done += control.Name() + " "; }
    void Tick() override {
        done += "tick ";
        if (onTick) onTick();
    }

    Label label{"label"};
    TextBox text{"text"};
    ListBox list{"list"};
    Button ok{"ok"};
    Button cancel{"cancel"};
    Timer timer{"timer"};
    std::string done;
    std::function<void()> onTick;
};

/// Does something once the dialog is open, from its timer.
void AtOnce(AskForm& form, std::function<void(HWND dialog)> work) {
    form.timer.SetInterval(10);
    form.timer.SetEnabled(true);
    form.onTick = [&form, work = std::move(work)] {
        form.timer.SetEnabled(false);
        work(FindWindowW(L"#32770", Wide(form.Caption()).c_str()));
    };
}

class DialogTest : public testing::Test {
protected:
    DialogTest() { form.done.clear(); }
    void Show() {
        host.Window([&] { ShowModal(host, form); });
    }

    ShownForm shown;
    FormHost& host = shown.host;
    AskForm form;
};

TEST_F(DialogTest, FieldsHaveNamesForReadersOfTheScreen) {
    OleInitialize(nullptr);
    const auto nameOf = [](HWND field) {
        ComPtr<IAccessible> object;
        AccessibleObjectFromWindow(field, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                   reinterpret_cast<void**>(object.GetAddressOf()));
        VARIANT self;
        self.vt = VT_I4;
        self.lVal = CHILDID_SELF;
        Bstr name;
        if (object) object->get_accName(self, name.Address());
        return Narrow(name.Get());
    };
    AtOnce(form, [&](HWND dialog) {
        EXPECT_EQ(nameOf(FindWindowExW(dialog, nullptr, L"Edit", nullptr)), "What is it to be?");
        EXPECT_EQ(nameOf(FindWindowExW(dialog, nullptr, L"ListBox", nullptr)), "A question");
        EXPECT_EQ(nameOf(FindWindowExW(dialog, nullptr, L"Static", nullptr)), "What is it to be?");
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    Show();
    OleUninitialize();
}

TEST_F(DialogTest, ShowsItsControlsAndFocusesTheFirst) {
    AtOnce(form, [&](HWND dialog) {
        ASSERT_NE(dialog, nullptr);
        wchar_t text[80];
        GetWindowTextW(GetWindow(dialog, GW_CHILD), text, 80);
        EXPECT_STREQ(text, L"What is it to be?");
        EXPECT_FALSE(IsWindowEnabled(shown.outer.Handle()));
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), shown.outer.Handle());
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    Show();
    EXPECT_EQ(form.done, "text tick cancel ");
    EXPECT_TRUE(IsWindowEnabled(shown.outer.Handle()));
    EXPECT_EQ(host.modeless, (std::vector<Modeless>{Modeless::Disabled, Modeless::Enabled}));
}

TEST_F(DialogTest, AFieldTakesAnyLengthAndIsSelectedWhenItIsAskedToBe) {
    AtOnce(form, [&](HWND dialog) {
        const HWND field = GetFocus();
        const std::wstring text(100000, L'x');
        SendMessageW(field, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
        EXPECT_EQ(form.text.Text().size(), text.size());
        SendMessageW(field, EM_SETSEL, 5, 5);
        host.Window([&] { form.text.Select(0, text.size()); });
        SendMessageW(dialog, WM_COMMAND, 12345, 0);
        DWORD start = 1;
        DWORD end = 0;
        SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(start, 0u);
        EXPECT_EQ(end, text.size());
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    Show();
}

TEST_F(DialogTest, ADoubleClickOnALinePressesTheDefaultButton) {
    AtOnce(form, [](HWND dialog) {
        const HWND list = FindWindowExW(dialog, nullptr, L"ListBox", nullptr);
        RECT line{};
        SendMessageW(list, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&line));
        const POINT point = Middle(line);
        POINT onScreen = point;
        ClientToScreen(list, &onScreen);
        SetCursorPos(onScreen.x, onScreen.y);
        PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
        PostMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
        PostMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(point.x, point.y));
        PostMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    });
    Show();
    EXPECT_EQ(form.list.ListIndex(), 1);
    EXPECT_EQ(form.done, "text tick list ok ");
}

struct KeyCase {
    const char* name;
    WPARAM key;
    const char* done;
};

class DialogKey : public DialogTest, public testing::WithParamInterface<KeyCase> {};

TEST_P(DialogKey, ActsOnTheDialog) {
    AtOnce(form, [](HWND) { PostMessageW(GetFocus(), WM_KEYDOWN, GetParam().key, 1); });
    Show();
    EXPECT_EQ(form.done, GetParam().done);
}

INSTANTIATE_TEST_SUITE_P(Keys, DialogKey,
                         testing::Values(KeyCase{"Enter", VK_RETURN, "text tick ok "},
                                         KeyCase{"Esc", VK_ESCAPE, "text tick cancel "}),
                         [](const auto& key) { return key.param.name; });

TEST_F(DialogTest, TypedTextAndChosenLinesReachTheState) {
    AtOnce(form, [&](HWND dialog) {
        SendMessageW(GetFocus(), WM_CHAR, 'x', 1);
        EXPECT_EQ(form.text.Text(), "x");
        const HWND list = FindWindowExW(dialog, nullptr, L"ListBox", nullptr);
        SendMessageW(list, LB_SETCURSEL, 1, 0);
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), LBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(list));
        EXPECT_EQ(form.list.ListIndex(), 1);
        SendMessageW(FindWindowExW(dialog, nullptr, L"Button", L"OK"), BM_CLICK, 0, 0);
    });
    Show();
    EXPECT_TRUE(form.Closed());
}

TEST_F(DialogTest, GivesTheFocusBack) {
    SetFocus(shown.Of(shown.form.button));
    AtOnce(form, [](HWND dialog) { PostMessageW(dialog, WM_CLOSE, 0, 0); });
    Show();
    EXPECT_EQ(GetFocus(), shown.Of(shown.form.button));
}

TEST_F(DialogTest, ClosesWhenTheControlEnds) {
    AtOnce(form, [&](HWND) {
        host.ending = true;
        PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
    });
    Show();
    EXPECT_FALSE(form.Closed());
    EXPECT_EQ(FindWindowW(L"#32770", L"A question"), nullptr);
    EXPECT_TRUE(IsWindowEnabled(shown.outer.Handle()));
    Show();
    EXPECT_EQ(form.done, "text tick ") << "a dialog opened although the control had ended";
}

TEST_F(DialogTest, ReturnsWhenItsOwnerIsDestroyed) {
    AtOnce(form, [&](HWND) { DestroyWindow(shown.outer.Handle()); });
    Show();
    EXPECT_FALSE(form.Closed());
}

TEST_F(DialogTest, ANestedDialogStandsBeforeTheFirst) {
    AskForm second;
    second.SetCaption("Another question");
    AtOnce(form, [&](HWND first) {
        AtOnce(second, [&, first](HWND dialog) {
            EXPECT_EQ(GetWindow(dialog, GW_OWNER), first);
            EXPECT_FALSE(IsWindowEnabled(first));
            PostMessageW(dialog, WM_CLOSE, 0, 0);
        });
        ShowModal(host, second);
        EXPECT_TRUE(second.Closed());
        EXPECT_TRUE(IsWindowEnabled(first));
        EXPECT_FALSE(IsWindowEnabled(shown.outer.Handle()));
        PostMessageW(first, WM_CLOSE, 0, 0);
    });
    Show();
    EXPECT_TRUE(IsWindowEnabled(shown.outer.Handle()));
}

TEST_F(DialogTest, AMessageToQuitIsPassedOn) {
    AtOnce(form, [](HWND) { PostQuitMessage(7); });
    Show();
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7u);
}

using Buttons = MessageBox::Buttons;
struct BoxCase {
    const char* name;
    Buttons buttons;
    WORD pressed;  // 0: the control ends instead
    Answer answer;
};

class BoxTest : public testing::TestWithParam<BoxCase> {};

const BoxCase* answered = nullptr;
FormHost* boxHost = nullptr;

void CALLBACK AnswerTheBox(HWND, UINT, UINT_PTR, DWORD) {
    const HWND box = FindWindowW(L"#32770", L"Title");
    if (box == nullptr) return;
    EXPECT_TRUE(answered->buttons == Buttons::Ok || GetDlgCtrlID(GetFocus()) == IDNO) << "what Enter answers";
    if (answered->pressed != 0) {
        PostMessageW(box, WM_COMMAND, answered->pressed, 0);
    } else {
        boxHost->ending = true;
        PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
    }
}

TEST_P(BoxTest, GivesTheAnswer) {
    ShownForm shown;
    answered = &GetParam();
    boxHost = &shown.host;
    const UINT_PTR timer = SetTimer(nullptr, 0, 20, AnswerTheBox);
    Answer answer{};
    shown.host.Window([&] { answer = ShowMessageBox(shown.host, {"Text", "Title", GetParam().buttons}); });
    KillTimer(nullptr, timer);
    EXPECT_EQ(answer, GetParam().answer);
    EXPECT_TRUE(IsWindowEnabled(shown.outer.Handle()));
}

INSTANTIATE_TEST_SUITE_P(Boxes, BoxTest,
                         testing::Values(BoxCase{"Yes", Buttons::YesNo, IDYES, Answer::Yes},
                                         BoxCase{"No", Buttons::YesNo, IDNO, Answer::No},
                                         BoxCase{"Ok", Buttons::Ok, IDOK, Answer::Ok},
                                         BoxCase{"EndedWhileAsking", Buttons::YesNo, 0, Answer::No},
                                         BoxCase{"EndedWhileTelling", Buttons::Ok, 0, Answer::Ok}),
                         [](const auto& box) { return box.param.name; });

}  // namespace
}  // namespace dlv::test
