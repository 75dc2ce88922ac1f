// The control itself, without any window or COM: it owns the form, the data controller, the views and
// the profiles, and wires them. The host's calls and the user's actions both come in here; every one
// passes the same entry, which counts how deep calls are nested and lets a stop of the control end
// whatever is still under way.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "base/Trap.h"
#include "ui/CaptionKey.h"
#include "ui/CaptionSource.h"
#include "views/ViewerForm.h"
#include "webdata/HostEvents.h"
#include "webdata/MessageSource.h"
#include "widgets/Platform.h"

namespace dlv {

class DLViewer {
public:
    /// Both must outlive the control.
    DLViewer(Platform& platform, HostEvents& events);
    ~DLViewer();

    // The host's calls. A call that is not possible now fails with error 1004 and changes nothing; a
    // call in which the control was stopped returns normally.

    void ReceiveMessage(const HostObject& data, std::int32_t dataType, const std::string& tag);
    /// `trans` may be nothing: then all captions are the built-in ones.
    void Initialize(std::shared_ptr<CaptionSource> trans);
    void StopControl();
    void ReceiveProfileResponse(const std::string& resultXml, const std::string& functionName);
    void ResizeControls();
    /// Error 457 for a repeated id, with the ids before it taken.
    void SetSessionBUIDList(std::span<const std::string> ids);
    void SetRegionalFormatInfo(const std::string& languageID);

    // What a person does. The form's state (selected units, options, tab, current cell, collapsed
    // nodes) has been changed before the handler is called. After a stop they do nothing.

    void cmdView_Click();
    void Tabs_Click();
    void optDisplay_Click(int index);
    void tbMain_ButtonClick(const std::string& key);
    void mnuProfile_Click(int index);
    void mnuSaveProfile_Click();
    void mnuSaveProfileAs_Click();
    void mnuManage_Click();
    void vsFlex_MouseDown(int index, int button);
    /// The cell under the mouse; the current cell is the grid's own.
    void vsFlex_DblClick(int index, int mouseRow, int mouseColumn);
    /// `key` is a virtual-key code; `shift` whether the shift key is down.
    void vsFlex_KeyDown(int index, int key, bool shift);
    void lblTechCount_Click();
    /// The control's own size changed.
    void UserControl_Resize();

    ViewerForm& Controls();
    bool Initialized() const;
    bool Stopped() const;
    /// How many calls into the control are under way, one inside the other. Only at 0 may it go.
    int Depth() const;

    /// The text for a key in the control's language.
    std::string Caption(CaptionKey key) const;

    /// Why the figure in a cell of the grid of that index is what it is, in the user's language; empty where
    /// there is nothing to say.
    std::string WhyThisFigure(int index, int row, int column) const;

    struct State;
    /// What the session player and the tests read besides the form.
    const State& Inner() const { return *state_; }

private:
    std::unique_ptr<State> state_;
};

}  // namespace dlv
