#include "bench/windows/Calls.h"

#include <cstdio>
#include <cstdlib>

namespace dlv::bench {

void Need(HRESULT result, const char* what) {
    if (SUCCEEDED(result)) return;
    std::fprintf(stderr, "%s failed: %08lx\n", what, static_cast<unsigned long>(result));
    std::exit(3);
}

double Now() {
    LARGE_INTEGER count{};
    LARGE_INTEGER perSecond{};
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&perSecond);
    return 1e3 * static_cast<double>(count.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

void StartUp(_DLViewer& viewer, const std::vector<std::wstring>& ids) {
    IDispatch* none = nullptr;
    Need(viewer.Initialize(&none), "Initialize");
    _bstr_t language(L"EN");
    BSTR text = language.GetBSTR();
    Need(viewer.SetRegionalFormatInfo(&text), "SetRegionalFormatInfo");
    _variant_t list;
    list.vt = VT_ARRAY | VT_BSTR;
    list.parray = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(ids.size()));
    for (LONG i = 0; i < static_cast<LONG>(ids.size()); ++i)
        Need(
            SafeArrayPutElement(list.parray, &i, _bstr_t(ids[static_cast<std::size_t>(i)].c_str()).GetBSTR()),
            "array");
    Need(viewer.SetSessionBUIDList(&list.parray), "SetSessionBUIDList");
    _bstr_t profiles(L"<WebProfiles><WebProfile><Name>Default</Name></WebProfile></WebProfiles>");
    _bstr_t function(L"GetProfiles");
    BSTR profilesText = profiles.GetBSTR();
    BSTR functionText = function.GetBSTR();
    Need(viewer.ReceiveProfileResponse(&profilesText, &functionText), "ReceiveProfileResponse");
}

void Push(_DLViewer& viewer, _QZWebMessage& message) {
    _variant_t data(static_cast<IDispatch*>(&message));
    Need(viewer.ReceiveMessage(&data, _variant_t(0L), _variant_t(L"")), "ReceiveMessage");
}

}  // namespace dlv::bench
