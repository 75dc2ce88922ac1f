// How a person works the dialogs and message boxes that open: reads them as a transcript tells them and does
// in them what a step's scripts say. The dialog answers the messages meanwhile, so that one thing is done at
// each tick.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "player/SessionSteps.h"
#include "player/windows/Hand.h"

namespace dlv::player {

class DialogUse {
public:
    /// `happened` gets each dialog as it is met: the name of its inline steps, and its entry in the log.
    DialogUse(Hand& hand, std::function<void(const std::string& name, Json entry)> happened)
        : hand_(hand), happened_(std::move(happened)) {}

    /// Gets ready for a step's scripts.
    void Begin(const Json& step);
    /// Does the next thing in the dialog that waits for a person on this thread, if one does.
    void Tick();

private:
    enum class Kind { Message, Name, Profiles };
    enum class Next { Entry, Fill, Press, Leave };
    struct Dialog {
        HWND window = nullptr;
        Kind kind = Kind::Message;
        Next next = Next::Entry;
        Json entry;
        Json script;
        /// When its last button or box was used; when it is left, before when not to try again.
        ULONGLONG since = 0;
        /// What closes it when nothing more is to be done in it.
        std::function<void()> leave = [] { Hand::PressForNext(VK_ESCAPE); };
    };

    void Meet(HWND window);
    void MeetMessage(HWND window, const std::vector<std::string>& labels);
    void TakeEntry(Dialog& dialog);
    void Fill(Dialog& dialog);
    void Press(Dialog& dialog);
    void LeaveFrom(HWND window, std::function<void()> leave);
    /// Again, when it takes long.
    static void Leave(Dialog& dialog);

    Hand& hand_;
    std::function<void(const std::string&, Json)> happened_;
    std::vector<Dialog> met_;
    Json dialog_ = Json::array();
    Json actions_ = Json::array();
    bool confirm_ = false;
};

}  // namespace dlv::player
