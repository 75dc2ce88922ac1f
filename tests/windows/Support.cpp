#include "tests/windows/Support.h"

#include <commctrl.h>

#include "hosts/container/WindowList.h"

namespace dlv::test {

const wchar_t kSampleMessage[] =
    L"<WebMessage Name=\"DLVData\"><Property Name=\"tqDBRefreshInterval\" Value=\"15\"/>"
    L"<Property Name=\"tqJeopardyThreshold\" Value=\"30\"/><WebData>"
    L"<WebTable Name=\"BusinessUnits\"><row BUID=\"12\" BUDesc=\"North\" ParentBUID=\"#\"/>"
    L"<row BUID=\"40\" BUDesc=\"South\" ParentBUID=\"12\"/></WebTable>"
    L"<WebTable Name=\"JobTypes\"><row JobType=\"I\" JobTypeDesc=\"Install\"/></WebTable>"
    L"<WebTable Name=\"JobClasses\"><row JobClass=\"R\" JobClassDesc=\"Residential\"/></WebTable>"
    L"<WebTable Name=\"RegionalFormats\"><row languageCode=\"EN\" timeformat=\"hh:mm AM/PM\"/></WebTable>"
    L"<WebTable Name=\"BUGeneralInfo\">"
    L"<row BUID=\"12\" BUDesc=\"North\" TechCount=\"4\" HoursWorked=\"16\" HoursRemaining=\"8\"/>"
    L"<row BUID=\"40\" BUDesc=\"South\" TechCount=\"3\" HoursWorked=\"9\" HoursRemaining=\"6\"/></WebTable>"
    L"<WebTable Name=\"BUDetailsInfo\">"
    L"<row BUID=\"12\" JobType=\"I\" JobClass=\"R\" WOOpen=\"1\" WOWarning=\"2\" WOJeopardy=\"3\""
    L" WOLate=\"4\" WOCompleted=\"5\" WOCanceled=\"6\" WONotDone=\"7\" PtsOpen=\"8\" PtsWarning=\"9\""
    L" PtsJeopardy=\"10\" PtsLate=\"11\" PtsCompleted=\"12\" PtsCanceled=\"13\" "
    L"PtsNotDone=\"14\"/></WebTable>"
    L"</WebData></WebMessage>";

namespace {

constexpr wchar_t kWindowClass[] = L"DlvTestHost";

/// OLE on the test thread for the whole run: loaded once, as in a host.
class OleScope {
public:
    OleScope() { OleInitialize(nullptr); }
    ~OleScope() { OleUninitialize(); }
};

}  // namespace

const Library& ControlLibrary() {
    static const OleScope ole;
    static const Library library(container::BesideProgram(L"DashlonViewer.manifest"));
    return library;
}

ComPtr<ITypeLib> ControlTypeLibrary() {
    ComPtr<ITypeLib> library;
    const std::wstring path = container::BesideProgram(L"DashlonViewer.ocx");
    EXPECT_EQ(LoadTypeLibEx(path.c_str(), REGKIND_NONE, &library), S_OK);
    return library;
}

HRESULT CanUnload() {
    if (GetModuleHandleW(L"DashlonViewer.ocx") == nullptr) return S_OK;
    const auto function = Export<HRESULT(WINAPI*)()>("DllCanUnloadNow");
    return function == nullptr ? E_FAIL : function();
}

HostWindow::HostWindow() {
    static const ATOM registered = [] {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = kWindowClass;
        return RegisterClassW(&windowClass);
    }();
    EXPECT_NE(registered, 0);
    window_ = CreateWindowExW(0, kWindowClass, L"Host", WS_POPUP | WS_CLIPCHILDREN | WS_VISIBLE, 0, 0, 940,
                              660, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    EXPECT_NE(window_, nullptr);
}

void HostWindow::Destroy() {
    if (window_ != nullptr) DestroyWindow(std::exchange(window_, nullptr));
}

HWND HostedControl::WindowOf(const wchar_t* className) const {
    for (const HWND child : container::WindowsInside(container.ControlWindow()))
        if (container::ClassOf(child) == className) return child;
    ADD_FAILURE() << "no such window";
    return nullptr;
}

std::size_t HostedControl::ListedUnits() const {
    return static_cast<std::size_t>(ListView_GetItemCount(WindowOf(WC_LISTVIEWW)));
}

void PumpMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

std::wstring TakeErrorText() {
    ComPtr<IErrorInfo> info;
    GetErrorInfo(0, &info);
    if (!info) return {};
    _bstr_t text;
    info->GetDescription(text.GetAddress());
    return text.length() == 0 ? std::wstring() : std::wstring(text);
}

TextArray::TextArray(std::initializer_list<const wchar_t*> texts)
    : array_(SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()))) {
    LONG index = 0;
    for (const wchar_t* text : texts) {
        SafeArrayPutElement(array_, &index, _bstr_t(text).GetBSTR());
        ++index;
    }
}

HRESULT Initialize(_DLViewer* viewer, IDispatch* transport) { return viewer->Initialize(&transport); }

HRESULT SetSessionUnits(_DLViewer* viewer, std::initializer_list<const wchar_t*> ids) {
    TextArray array(ids);
    return viewer->SetSessionBUIDList(array.Address());
}

HRESULT AnswerProfiles(_DLViewer* viewer, const wchar_t* resultXml, const wchar_t* function) {
    BSTR result = SysAllocString(resultXml);
    BSTR name = SysAllocString(function);
    const HRESULT answered = viewer->ReceiveProfileResponse(&result, &name);
    SysFreeString(result);
    SysFreeString(name);
    return answered;
}

HRESULT Receive(_DLViewer* viewer, IDispatch* message) {
    _variant_t data(message);
    return viewer->ReceiveMessage(&data, _variant_t(0L), _variant_t(L""));
}

ComPtr<_QZWebMessage> SampleMessage() {
    ComPtr<_QZWebMessage> message = New<_QZWebMessage>(L"QZWebMessage");
    EXPECT_EQ(message->LoadText(_bstr_t(kSampleMessage)), S_OK);
    return message;
}

ComPtr<_QZWebMessage> BrokenMessage() {
    ComPtr<_QZWebMessage> message = New<_QZWebMessage>(L"QZWebMessage");
    EXPECT_EQ(message->LoadText(_bstr_t(L"<WebMessage Name=\"DLVData\"><WebData></WebData></WebMessage>")),
              S_OK);
    return message;
}

HostedControl::HostedControl(std::shared_ptr<container::Recorder> recorder)
    : sink(container::Make<EventSink>()),
      viewer(As<_DLViewer>(ControlLibrary().Create(kControl).Get())),
      container(window.Handle(), window.Handle(), kPlace, {}, std::move(recorder)) {
    EXPECT_EQ(sink->Connect(viewer.Get(), __uuidof(__DLViewer)), S_OK);
    EXPECT_EQ(container.Insert(viewer.Get()), S_OK);
    EXPECT_EQ(container.Activate(), S_OK);
}

void HostedControl::StartUp() {
    ASSERT_EQ(Initialize(Viewer()), S_OK);
    _bstr_t language(L"EN");
    BSTR text = language.GetBSTR();
    ASSERT_EQ(Viewer()->SetRegionalFormatInfo(&text), S_OK);
    ASSERT_EQ(SetSessionUnits(Viewer(), {L"12", L"40"}), S_OK);
    ASSERT_EQ(AnswerProfiles(Viewer(), L"<WebData><ProfileIDs></ProfileIDs></WebData>", L"GetProfileList"),
              S_OK);
    ASSERT_EQ(AnswerProfiles(Viewer(), L"<WebData></WebData>", L"GetProfiles"), S_OK);
}

}  // namespace dlv::test
