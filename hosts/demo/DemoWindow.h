// The host application's window: the band with the working day and the commands, the control, and below it,
// when wanted, the requests of the control. The records behind a figure get a window of their own. It plays
// the server too: a timer lets the day go on and sends the figures.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "hosts/demo/ControlHolder.h"
#include "hosts/demo/DetailsWindow.h"
#include "hosts/demo/HeaderBar.h"
#include "hosts/demo/Options.h"
#include "hosts/demo/ViewerSession.h"
#include "hosts/demo/workday/WorkingDay.h"
#include "hosts/recorder/SessionRecorder.h"

namespace dlv::demo {

class DemoWindow final : private SessionListener {
public:
    /// The recorders, if any, write the calls down and record the session.
    DemoWindow(const Options& options, std::unique_ptr<ControlHolder> holder,
               std::shared_ptr<container::Recorder> calls = {},
               std::shared_ptr<recorder::SessionRecorder> session = {});
    ~DemoWindow() override;
    DemoWindow(const DemoWindow&) = delete;
    DemoWindow& operator=(const DemoWindow&) = delete;

    /// Makes the window and shows it; says what there is to say about the profiles. False when Windows makes
    /// no window.
    bool Create();
    HWND Handle() const { return window_; }

    /// Ends the control that is there, if any, and starts one.
    bool StartControl(Language language, const std::string& profile);
    void StopControl();
    /// Called from the message loop, after figures have been sent.
    std::function<void()> afterFigures;

    /// Runs until the window has gone.
    void RunMessages();

private:
    enum class Server { Running, Paused, Stopped };

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(int command);
    void OnTimer();
    void TellOfProfiles();
    bool IsUsedUp(MSG& message);

    void AnswersWait() override;
    void ClientReady() override;
    void DetailsAsked(const DLVParams& params) override;
    void Tell(const std::string& line) override;
    void Complain(const std::string& line) override;

    void MakeLook();
    void UpdateHeader();
    void ChooseLanguage();
    void SetServer(Server server);
    void StartDay();
    void SendFigures();
    void ShowLog(bool shown);
    RECT ControlPlace() const;
    void LayOut();
    int Scaled(int pixels) const;

    Options options_;
    std::unique_ptr<ControlHolder> holder_;
    ProfileStore profiles_;
    ViewerSession session_;
    const std::shared_ptr<recorder::SessionRecorder> recorder_;
    std::unique_ptr<WorkingDay> day_;
    /// As it was when the control was last sent figures: they are what it asks about.
    std::optional<WorkingDay> sentDay_;
    std::uint32_t seed_;
    Language language_;
    Server server_ = Server::Running;
    HWND window_ = nullptr;
    HostFonts fonts_;
    HeaderBar header_;
    HWND log_ = nullptr;
    bool logShown_ = false;
    DetailsWindow details_;
    HACCEL keys_ = nullptr;
};

}  // namespace dlv::demo
