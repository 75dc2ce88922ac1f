#include "player/windows/DialogUse.h"

#include <commctrl.h>

#include <algorithm>

#include "hosts/container/WindowList.h"
#include "player/windows/Screen.h"

namespace dlv::player {

namespace {

constexpr wchar_t kDialogClass[] = L"#32770";
/// How long a button may take, in milliseconds, to be enabled or disabled after what was typed or chosen.
constexpr ULONGLONG kPatience = 400;
/// How long a dialog may take, in milliseconds, to go: then its key or click was lost on the way.
constexpr ULONGLONG kLongestGoing = 2000;

/// The dialog that waits for a person on this thread; null when none does.
HWND OpenDialog() {
    for (const HWND window : container::WindowsOfThread())
        if (IsWindowVisible(window) && IsWindowEnabled(window) && container::ClassOf(window) == kDialogClass)
            return window;
    return nullptr;
}

std::string TextOf(HWND window) {
    wchar_t text[1024] = {};
    GetWindowTextW(window, text, 1024);
    return Utf8Of(text);
}

HWND ListOf(HWND dialog) { return FindWindowExW(dialog, nullptr, WC_LISTBOXW, nullptr); }
HWND BoxOf(HWND dialog) { return FindWindowExW(dialog, nullptr, WC_EDITW, nullptr); }

HWND ButtonOf(HWND dialog, const std::string& caption) {
    for (HWND button = nullptr; (button = FindWindowExW(dialog, button, WC_BUTTONW, nullptr)) != nullptr;) {
        std::string text = TextOf(button);
        std::erase(text, '&');
        if (text == caption) return button;
    }
    return nullptr;
}

std::vector<std::string> ItemsOf(HWND list) {
    std::vector<std::string> items;
    const auto count = SendMessageW(list, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        wchar_t text[1024] = {};
        SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        items.push_back(Utf8Of(text));
    }
    return items;
}

/// On the first lines of a list, or on the text of a box.
POINT InsideOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return {place.left + 20, place.top + 10};
}

/// The button that an entry of a script presses.
std::string ButtonName(const Json& entry) {
    if (!entry.contains("do")) return entry.value("button", "ok") == "ok" ? "OK" : "Cancel";
    const std::string verb = entry["do"];
    return verb == "choose" ? "Choose" : verb == "new" ? "New" : verb == "remove" ? "Remove" : "Close";
}

bool Confirms(const Json& script) { return script.value("confirm", "no") == "yes"; }

Json TakeFirst(Json& list) {
    Json first = list[0];
    list.erase(0);
    return first;
}

}  // namespace

void DialogUse::Begin(const Json& step) {
    met_.clear();
    dialog_ = step.value("dialog", Json::array());
    actions_ = step.value("actions", Json::array());
    confirm_ = Confirms(step);
}

void DialogUse::Tick() {
    std::erase_if(met_, [this](const Dialog& dialog) {
        const bool gone = !IsWindow(dialog.window);
        if (gone && dialog.kind == Kind::Profiles) actions_ = Json::array();
        return gone;
    });
    const HWND window = OpenDialog();
    if (window == nullptr) return;
    const auto dialog = std::ranges::find(met_, window, &Dialog::window);
    if (dialog == met_.end()) return Meet(window);
    switch (dialog->next) {
        case Next::Entry: return TakeEntry(*dialog);
        case Next::Fill: return Fill(*dialog);
        case Next::Press: return Press(*dialog);
        case Next::Leave: return Leave(*dialog);
    }
}

void DialogUse::Meet(HWND window) {
    const std::vector<std::string> labels = Screen::Labels(window);
    Dialog dialog;
    dialog.window = window;
    if (const HWND list = ListOf(window)) {
        dialog.kind = Kind::Profiles;
        met_.push_back(std::move(dialog));
        happened_("", {{"dialog", "frmProfiles"},
                       {"names", ItemsOf(list)},
                       {"selected", SendMessageW(list, LB_GETCURSEL, 0, 0)},
                       {"enabled", IsWindowEnabled(ButtonOf(window, "Choose")) != 0}});
    } else if (BoxOf(window) != nullptr) {
        dialog.kind = Kind::Name;
        dialog.script = std::exchange(dialog_, Json::array());
        met_.push_back(std::move(dialog));
        happened_("", {{"dialog", "frmNewProfile"},
                       {"prompt", labels.empty() ? "" : labels.front()},
                       {"title", TextOf(window)}});
    } else {
        dialog.next = Next::Leave;
        // Not before the host's calls have been made that belong to it.
        dialog.since = ~ULONGLONG{0};
        met_.push_back(std::move(dialog));
        MeetMessage(window, labels);
    }
}

// The error dialog has labels and texts in turn, the about box its texts in order. What it is about is read,
// the host's call is made, and Enter, which the dialog's own loop gets, closes it.
void DialogUse::MeetMessage(HWND window, const std::vector<std::string>& labels) {
    constexpr std::size_t kNumber = 2;
    constexpr std::size_t kDescription = 4;
    constexpr std::size_t kLocation = 6;
    if (labels.size() > kLocation) {
        happened_("#error", {{"error", std::stoi(labels[kNumber])},
                             {"location", labels[kLocation]},
                             {"description", labels[kDescription]}});
        return LeaveFrom(window, [] { Hand::PressForNext(VK_RETURN); });
    }
    constexpr std::size_t kAboutLabels = 6;
    if (labels.size() == kAboutLabels) {
        happened_("", {{"dialog", "frmGenAbout"},
                       {"title", TextOf(window)},
                       {"product", labels[0]},
                       {"description", labels[1]},
                       {"comments", labels[2]},
                       {"rights", labels[3]},
                       {"version", labels[5]}});
        return Hand::PressForNext(VK_RETURN);
    }
    const HWND answer = GetDlgItem(window, confirm_ ? IDYES : IDNO);
    const bool asks = answer != nullptr && IsWindowVisible(answer);
    happened_("", {{"box", labels.empty() ? "" : labels.back()},
                   {"buttons", asks ? "yesno" : "ok"},
                   {"title", TextOf(window)}});
    if (asks)
        LeaveFrom(window, [this, answer] { hand_.ClickForNext(Hand::MiddleOf(answer)); });
    else
        LeaveFrom(window, [] { Hand::PressForNext(VK_RETURN); });
}

// Dialogs may have come and gone meanwhile.
void DialogUse::LeaveFrom(HWND window, std::function<void()> leave) {
    const auto dialog = std::ranges::find(met_, window, &Dialog::window);
    if (dialog == met_.end() || !IsWindow(window)) return;
    dialog->leave = std::move(leave);
    dialog->since = 0;
    Leave(*dialog);
}

void DialogUse::Leave(Dialog& dialog) {
    if (GetTickCount64() < dialog.since) return;
    dialog.since = GetTickCount64() + kLongestGoing;
    dialog.leave();
}

// A name is put into the box, or chosen in the list, once a click has brought the keys there.
void DialogUse::TakeEntry(Dialog& dialog) {
    // A list that opens from inside another one goes on with the same script.
    Json& script = dialog.kind == Kind::Name ? dialog.script : actions_;
    if (script.empty()) {
        dialog.next = Next::Leave;
        dialog.since = 0;
        return Leave(dialog);
    }
    dialog.entry = TakeFirst(script);
    HWND filled = nullptr;
    if (dialog.kind == Kind::Name) {
        if (dialog.entry.contains("text")) filled = BoxOf(dialog.window);
    } else {
        dialog_ = dialog.entry.value("dialog", Json::array());
        confirm_ = Confirms(dialog.entry);
        const std::vector<std::string> items = ItemsOf(ListOf(dialog.window));
        const bool named = dialog.entry.contains("name");
        if (named && std::ranges::find(items, dialog.entry["name"].get<std::string>()) != items.end())
            filled = ListOf(dialog.window);
    }
    dialog.since = GetTickCount64();
    dialog.next = filled == nullptr ? Next::Press : Next::Fill;
    if (filled != nullptr) hand_.ClickForNext(InsideOf(filled));
}

void DialogUse::Fill(Dialog& dialog) {
    if (dialog.kind == Kind::Name) {
        Hand::PressForNext(VK_HOME);
        Hand::PressForNext(VK_END, {VK_SHIFT});
        Hand::PressForNext(VK_DELETE);
        Hand::TypeForNext(dialog.entry["text"]);
    } else {
        const std::vector<std::string> items = ItemsOf(ListOf(dialog.window));
        const auto name = std::ranges::find(items, dialog.entry["name"].get<std::string>());
        Hand::PressForNext(VK_HOME);
        for (auto item = items.begin(); item != name; ++item) Hand::PressForNext(VK_DOWN);
    }
    dialog.since = GetTickCount64();
    dialog.next = Next::Press;
}

// The buttons follow what stands in the box or list a moment later.
void DialogUse::Press(Dialog& dialog) {
    const HWND button = ButtonOf(dialog.window, ButtonName(dialog.entry));
    const bool enabled = IsWindowEnabled(button) != 0;
    const bool follows = dialog.kind == Kind::Name && ButtonName(dialog.entry) == "OK";
    const bool wanted = !follows || GetWindowTextLengthW(BoxOf(dialog.window)) > 0;
    if (enabled != wanted && GetTickCount64() - dialog.since < kPatience) return;
    dialog.next = Next::Entry;
    if (enabled) hand_.ClickForNext(Hand::MiddleOf(button));
}

}  // namespace dlv::player
