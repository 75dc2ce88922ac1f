// The smallest useful host: a window with the control in it. It uses the control unregistered, answers every
// event, and sends figures when the control asks for them. docs/getting-started.md leads through it.
#include <windows.h>

#include <comutil.h>
#include <cstdio>
#include <system_error>
#include <tuple>

#include "DashlonViewer.h"
#include "hosts/container/Container.h"
#include "hosts/container/EventSink.h"
#include "hosts/container/Library.h"

namespace {

using namespace dlv::container;

// What a server would send: names of units and codes, then their figures.
const wchar_t kFigures[] =
    LR"(<WebMessage Name="DLVData"><Property Name="tqDBRefreshInterval" Value="15"/><WebData>
  <WebTable Name="BusinessUnits"><row BUID="11" BUDesc="North" ParentBUID="#"/></WebTable>
  <WebTable Name="JobTypes"><row JobType="I" JobTypeDesc="Installation"/></WebTable>
  <WebTable Name="JobClasses"><row JobClass="R" JobClassDesc="Residential"/></WebTable>
  <WebTable Name="RegionalFormats"><row languageCode="EN" timeformat="hh:mm AM/PM"/></WebTable>
  <WebTable Name="BUGeneralInfo"><row BUID="11" BUDesc="North" TechCount="4" HoursWorked="12"
    HoursRemaining="8"/></WebTable><WebTable Name="BUDetailsInfo"><row BUID="11" JobType="I" JobClass="R"
    WOOpen="7" WOWarning="1" WOJeopardy="0" WOLate="2" WOCompleted="9" WOCanceled="0" WONotDone="0"
    PtsOpen="70" PtsWarning="10" PtsJeopardy="0" PtsLate="20" PtsCompleted="90" PtsCanceled="0" PtsNotDone="0"/>
  </WebTable></WebData></WebMessage>)";

// This host stores no profiles: it has none to give, and refuses to keep one.
const wchar_t kNothing[] = L"<WebData></WebData>";
const wchar_t kRefused[] =
    LR"(<WebTable Name="Error"><row ErrorNumber="1" ErrorDescription="No profiles are kept here."/></WebTable>)";
const std::tuple<DISPID, const wchar_t*, const wchar_t*> kProfileEvents[] = {
    {3, L"GetProfiles", kNothing}, {4, L"GetProfileList", kNothing}, {5, L"PutProfiles", kNothing},
    {6, L"AddProfiles", kRefused}, {7, L"RemoveProfiles", kRefused}, {8, L"SaveProfileAs", kRefused}};

void Check(HRESULT result) {
    if (FAILED(result)) throw std::system_error(result, std::system_category());
}

class Host {
public:
    Host(HWND window, const Library& library) : window_(window), container_(window, window, Place()) {
        const ComPtr<IUnknown> control = library.Create(L"DashlonViewer.DLViewer");
        Check(control.As(&viewer_));
        Listen();
        Check(container_.Insert(control.Get()));
        Check(container_.Activate());
        Begin();
    }
    void Stop() {
        viewer_->StopControl();
        events_->Disconnect();
        container_.Remove();
        PostQuitMessage(0);
    }
    void Resize() { container_.SetPlace(Place()); }
    bool TakesKey(MSG& message) const { return container_.TranslateKey(message); }

private:
    RECT Place() const {
        RECT place;
        GetClientRect(window_, &place);
        return place;
    }

    void Listen() {
        events_->On(1, [this](DISPPARAMS&) { SendFigures(); });  // PostRequest: the control is ready
        events_->On(2, [this](DISPPARAMS& arguments) { ShowRequest(ObjectArgument(arguments.rgvarg[0])); });
        for (const auto& [event, name, answer] : kProfileEvents)
            events_->On(event, [this, name = name, answer = answer](DISPPARAMS&) {
                _bstr_t result(answer), function(name);
                viewer_->ReceiveProfileResponse(&result.GetBSTR(), &function.GetBSTR());
            });
        Check(events_->Connect(viewer_.Get(), __uuidof(__DLViewer)));
    }

    void Begin() {
        IDispatch* noTransport = nullptr;
        _bstr_t language(L"EN"), unit(L"11");
        LONG first = 0;
        SAFEARRAY* units = SafeArrayCreateVector(VT_BSTR, 0, 1);
        Check(SafeArrayPutElement(units, &first, unit.GetBSTR()));
        Check(viewer_->Initialize(&noTransport));
        Check(viewer_->SetRegionalFormatInfo(&language.GetBSTR()));
        Check(viewer_->SetSessionBUIDList(&units));  // raises GetProfileList, and all else follows
        SafeArrayDestroy(units);
    }

    void SendFigures() {
        ComPtr<_QZWebMessage> message;
        Check(
            CoCreateInstance(__uuidof(QZWebMessage), nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&message)));
        Check(message->LoadText(_bstr_t(kFigures)));
        _variant_t data(message.Get());
        Check(viewer_->ReceiveMessage(&data, _variant_t(0L), _variant_t(L"")));
    }

    void ShowRequest(const ComPtr<IDispatch>& params) {
        ComPtr<_DLVParams> request;
        Check(params.As(&request));
        _bstr_t units, info;
        request->get_BUID(units.GetAddress());
        request->get_Info(info.GetAddress());
        SetWindowTextW(window_, L"Asked for the " + info + L" records of " + units);
    }

    const HWND window_;
    Container container_;
    const ComPtr<EventSink> events_ = Make<EventSink>();
    ComPtr<_DLViewer> viewer_;
};

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wide, LPARAM lng) {
    auto* const host = reinterpret_cast<Host*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (host != nullptr && message == WM_SIZE) host->Resize();
    if (host != nullptr && message == WM_DESTROY) host->Stop();
    return DefWindowProcW(window, message, wide, lng);
}

}  // namespace

int main() try {
    Check(OleInitialize(nullptr));
    const Library library(BesideProgram(L"DashlonViewer.manifest"));
    const Library::Scope classesAreKnown(library);
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = OnMessage;
    windowClass.lpszClassName = L"FiguresHost";
    RegisterClassW(&windowClass);
    const DWORD style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE;
    const HWND window =
        CreateWindowW(L"FiguresHost", L"Figures", style, 0, 0, 1000, 700, nullptr, nullptr, nullptr, nullptr);
    Host host(window, library);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&host));
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) {
        if (host.TakesKey(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
} catch (const std::exception& error) {
    std::printf("figures: %s; dlcheck says why a control does not load\n", error.what());
    return 1;
}
