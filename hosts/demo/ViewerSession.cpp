#include "hosts/demo/ViewerSession.h"

#include <cstdio>
#include <string_view>
#include <utility>

#include "hosts/demo/Transport.h"
#include "windows/com/Strings.h"

namespace dlv::demo {

namespace {

constexpr DISPID kPostRequest = 1;
constexpr DISPID kGetDetails = 2;

struct ProfileEvent {
    DISPID id;
    /// Also the function under which it is answered.
    const char* name;
};
constexpr ProfileEvent kProfileEvents[] = {{3, "GetProfiles"}, {4, "GetProfileList"}, {5, "PutProfiles"},
                                           {6, "AddProfiles"}, {7, "RemoveProfiles"}, {8, "SaveProfileAs"}};

std::string Read(_DLVParams& record, HRESULT (STDMETHODCALLTYPE _DLVParams::*get)(BSTR*)) {
    Bstr text;
    (record.*get)(text.Address());
    return Narrow(text.Get());
}

/// What the host looks at of an event's record.
DLVParams ParamsOf(const DISPPARAMS& arguments) {
    DLVParams params;
    Microsoft::WRL::ComPtr<_DLVParams> record;
    const auto object = arguments.cArgs == 1 ? container::ObjectArgument(arguments.rgvarg[0]) : nullptr;
    if (!object || FAILED(object.As(&record))) return params;
    params.BUID = Read(*record.Get(), &_DLVParams::get_BUID);
    params.JobType = Read(*record.Get(), &_DLVParams::get_JobType);
    params.JobClass = Read(*record.Get(), &_DLVParams::get_JobClass);
    params.JobStatus = Read(*record.Get(), &_DLVParams::get_JobStatus);
    params.Info = Read(*record.Get(), &_DLVParams::get_Info);
    params.ProfileName = Read(*record.Get(), &_DLVParams::get_ProfileName);
    params.ProfilesXML = Read(*record.Get(), &_DLVParams::get_ProfilesXML);
    return params;
}

/// What the callee has said about its failure.
std::string ErrorText() {
    Microsoft::WRL::ComPtr<IErrorInfo> info;
    Bstr text;
    if (GetErrorInfo(0, &info) == S_OK) info->GetDescription(text.Address());
    return Narrow(text.Get());
}

struct ArrayOwner {
    SAFEARRAY* array;
    ~ArrayOwner() { SafeArrayDestroy(array); }
};

}  // namespace

bool ViewerSession::Done(const char* call, HRESULT result) {
    if (SUCCEEDED(result)) return true;
    char number[16];
    std::snprintf(number, sizeof number, "0x%08lX", static_cast<unsigned long>(result));
    listener_.Complain(std::string(call) + " failed with " + number + " " + ErrorText());
    return false;
}

template <class Body>
bool ViewerSession::Call(_DLViewer* control, const char* member, Body&& body) {
    return Done(member, container::Ask<_DLViewer>(recorder_, control, member, body));
}

bool ViewerSession::Start(IUnknown& control, Language language, const std::string& profile) {
    firstProfile_ = profile;
    if (!Done("The control", control.QueryInterface(IID_PPV_ARGS(&control_)))) return false;
    Listen();
    if (!Done("The events", events_->Connect(&control, __uuidof(__DLViewer)))) return false;
    const auto transport = container::Make<Transport>(language);
    IDispatch* given = transport.Get();
    Bstr languageID(LanguageCode(language));
    return Call(control_.Get(), "_DLViewer.Initialize",
                [&](_DLViewer& viewer) { return viewer.Initialize(&given); }) &&
           Call(control_.Get(), "_DLViewer.SetRegionalFormatInfo",
                [&](_DLViewer& viewer) { return viewer.SetRegionalFormatInfo(languageID.Address()); }) &&
           SendUnits();
}

void ViewerSession::Listen() {
    events_ = container::Make<container::EventSink>(recorder_);
    events_->On(kPostRequest, [this](DISPPARAMS& arguments) {
        OnPostRequest(Narrow(container::TextArgument(arguments.rgvarg[0])));
    });
    events_->On(kGetDetails, [this](DISPPARAMS& arguments) { listener_.DetailsAsked(ParamsOf(arguments)); });
    for (const ProfileEvent& event : kProfileEvents) {
        events_->On(event.id, [this, name = event.name](DISPPARAMS& arguments) {
            OnProfileRequest(name, ParamsOf(arguments));
        });
    }
}

bool ViewerSession::SendUnits() {
    const auto units = Units();
    ArrayOwner ids{SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(units.size()))};
    if (!Done("SafeArrayCreateVector", ids.array == nullptr ? E_OUTOFMEMORY : S_OK)) return false;
    for (LONG i = 0; i < static_cast<LONG>(units.size()); ++i) {
        const Bstr id(units[static_cast<std::size_t>(i)].id);
        if (!Done("SafeArrayPutElement", SafeArrayPutElement(ids.array, &i, id.Get()))) return false;
    }
    return Call(control_.Get(), "_DLViewer.SetSessionBUIDList",
                [&](_DLViewer& viewer) { return viewer.SetSessionBUIDList(&ids.array); });
}

void ViewerSession::OnPostRequest(const std::string& request) {
    listener_.Tell("PostRequest " + request);
    if (request != "ClientReady") return;
    ready_ = true;
    listener_.ClientReady();
}

void ViewerSession::OnProfileRequest(const char* event, const DLVParams& params) {
    listener_.Tell(std::string(event) + " " + params.ProfileName);
    const bool first = std::string_view(event) == "GetProfiles" && !firstProfile_.empty();
    requests_.push_back(
        {event, first ? std::exchange(firstProfile_, {}) : params.ProfileName, params.ProfilesXML});
    listener_.AnswersWait();
}

void ViewerSession::AnswerRequests() {
    while (control_ && !requests_.empty()) {
        const Request request = std::move(requests_.front());
        requests_.pop_front();
        Bstr result(profiles_.Answer(request.function, request.profileName, request.profilesXml));
        Bstr function{std::string_view(request.function)};
        // The answer may lead to anything, the end of this session too.
        const ComPtr<_DLViewer> control = control_;
        Call(control.Get(), "_DLViewer.ReceiveProfileResponse", [&](_DLViewer& viewer) {
            return viewer.ReceiveProfileResponse(result.Address(), function.Address());
        });
    }
}

bool ViewerSession::Send(const std::string& document) {
    const ComPtr<_DLViewer> control = control_;
    if (!control) return false;
    ComPtr<_QZWebMessage> message;
    const Bstr text(document);
    if (!Done("QZWebMessage", CoCreateInstance(__uuidof(QZWebMessage), nullptr, CLSCTX_INPROC_SERVER,
                                               IID_PPV_ARGS(&message))) ||
        !Done("LoadText", message->LoadText(text.Get())))
        return false;
    Variant data(message.Get());
    const Variant type(LONG{0}), tag("");
    return Call(control.Get(), "_DLViewer.ReceiveMessage",
                [&](_DLViewer& viewer) { return viewer.ReceiveMessage(data.Address(), *type, *tag); });
}

void ViewerSession::Resize() {
    if (ready_)
        Call(control_.Get(), "_DLViewer.ResizeControls",
             [](_DLViewer& viewer) { return viewer.ResizeControls(); });
}

void ViewerSession::Stop() {
    ready_ = false;
    requests_.clear();
    const ComPtr<_DLViewer> control = std::move(control_);
    if (control)
        Call(control.Get(), "_DLViewer.StopControl", [](_DLViewer& viewer) { return viewer.StopControl(); });
    const ComPtr<container::EventSink> events = std::move(events_);
    if (events) events->Disconnect();
}

}  // namespace dlv::demo
