// Plays a recorded session on the built control in a window: the host's calls by its interfaces, what a
// person does by real keys and clicks, and the transcript from what is to be seen afterwards. A control
// without windows plays the same beside it, for one thing only: to know where the rows and units stand that
// the steps name.
#pragma once

#include <functional>
#include <memory>

#include "hosts/container/Container.h"
#include "player/SessionPlayer.h"
#include "player/windows/DialogUse.h"
#include "player/windows/Hand.h"
#include "player/windows/HostCalls.h"
#include "player/windows/MenuUse.h"
#include "player/windows/Screen.h"

namespace dlv::player {

class WindowsPlayer {
public:
    /// Gives the host of a control something to use in its place.
    using Proxy = std::function<container::ComPtr<_DLViewer>(IUnknown& control)>;

    explicit WindowsPlayer(Proxy proxy = {});
    ~WindowsPlayer();
    WindowsPlayer(const WindowsPlayer&) = delete;
    WindowsPlayer& operator=(const WindowsPlayer&) = delete;

    Json Play(const Json& step);

private:
    void Create();
    void Make(const Json& step);
    void Happened(const std::string& name, Json entry);
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD);

    void MakeUserAction(const Json& step);
    void SelectUnits(const Json& ids);
    void ChooseTab(int tab);
    /// `cells` is how many a row has.
    void ChooseCell(int row, int cell, int cells);
    void UseGrid(const Json& step);
    Screen Shown() const { return Screen(container_->ControlWindow()); }

    static WindowsPlayer* current_;

    const Proxy proxy_;
    container::Library library_;
    HWND window_;
    std::unique_ptr<container::Container> container_;
    container::ComPtr<container::EventSink> sink_;
    container::ComPtr<_DLViewer> viewer_;
    Hand hand_;
    MenuUse menu_;
    DialogUse dialogs_;
    SessionPlayer places_;
    UINT_PTR timer_ = 0;
    bool initialized_ = false;
    bool stopped_ = false;
    Json inline_ = Json::array();
    Json log_ = Json::array();
    Json state_ = Json::object();
};

/// The visible transcript of a session, one step a line. Throws SessionError when the control cannot be
/// shown.
std::string PlayOnScreen(const Json& steps, WindowsPlayer::Proxy proxy = {});

}  // namespace dlv::player
