// How a person uses the profile menu: reads what stands in it, goes to a line by the keys and takes it. The
// menu answers the messages meanwhile, so that one key is pressed at each tick, by what is marked then.
#pragma once

#include <windows.h>

#include "player/SessionSteps.h"
#include "views/ViewerForm.h"

namespace dlv::player {

class MenuUse {
public:
    /// What a menu step takes from the next menu; the commands are known by their captions in `form`.
    void Begin(const Json& step, const ViewerForm& form);
    /// Presses the next key, while a menu is open on this thread.
    void Tick();
    /// [[caption, checked]] of the profiles as last read, null without any.
    const Json& Profiles() const { return profiles_; }
    /// As for a control that is new.
    void Forget() { profiles_ = nullptr; }

private:
    WORD NextKey(HMENU outer, bool innerOpen);

    std::string command_;
    int profile_ = -1;
    bool read_ = false;
    int presses_ = 0;
    Json profiles_;
};

}  // namespace dlv::player
