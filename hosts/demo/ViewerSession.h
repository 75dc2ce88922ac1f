// The host's side of one control from its start to its end: calls it in the order that it expects, answers
// its events, and sends it the figures. Requests for profiles are answered a moment later, as a server would.
#pragma once

#include <windows.h>

#include <deque>
#include <string>

#include "DashlonViewer.h"
#include "hosts/container/EventSink.h"
#include "hosts/demo/workday/ProfileStore.h"
#include "hosts/demo/workday/SampleCompany.h"
#include "webdata/DLVParams.h"

namespace dlv::demo {

class SessionListener {
public:
    virtual ~SessionListener() = default;

    /// AnswerRequests is to be called, now or soon.
    virtual void AnswersWait() = 0;
    /// The control may be sent figures, but not from in here.
    virtual void ClientReady() = 0;
    /// The control asks for the records behind a figure.
    virtual void DetailsAsked(const DLVParams& params) = 0;
    /// A request of the control's, to put down.
    virtual void Tell(const std::string& line) = 0;
    /// A call that failed.
    virtual void Complain(const std::string& line) = 0;
};

class ViewerSession {
public:
    /// The first two outlive the session; the recorder, if any, writes the calls and events down.
    ViewerSession(ProfileStore& profiles, SessionListener& listener,
                  std::shared_ptr<container::Recorder> recorder)
        : profiles_(profiles), listener_(listener), recorder_(std::move(recorder)) {}
    ~ViewerSession() { Stop(); }
    ViewerSession(const ViewerSession&) = delete;
    ViewerSession& operator=(const ViewerSession&) = delete;

    /// False when the control is none or a call failed. `profile` is what the control gets when it first
    /// asks.
    bool Start(IUnknown& control, Language language, const std::string& profile);
    bool Ready() const { return ready_; }
    void AnswerRequests();
    /// Sends a message in its document form.
    bool Send(const std::string& document);
    void Resize();
    /// Takes leave of the control and lets go of it.
    void Stop();

private:
    template <class Interface>
    using ComPtr = Microsoft::WRL::ComPtr<Interface>;

    void Listen();
    void OnPostRequest(const std::string& request);
    void OnProfileRequest(const char* event, const DLVParams& params);
    bool SendUnits();
    /// A member of the control's own interface.
    template <class Body>
    bool Call(_DLViewer* control, const char* member, Body&& body);
    bool Done(const char* call, HRESULT result);

    struct Request {
        const char* function;
        std::string profileName;
        std::string profilesXml;
    };

    ProfileStore& profiles_;
    SessionListener& listener_;
    const std::shared_ptr<container::Recorder> recorder_;
    ComPtr<_DLViewer> control_;
    ComPtr<container::EventSink> events_;
    std::deque<Request> requests_;
    std::string firstProfile_;
    bool ready_ = false;
};

}  // namespace dlv::demo
