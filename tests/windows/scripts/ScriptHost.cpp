#include "tests/windows/scripts/ScriptHost.h"

#include <dispex.h>

#include <map>

namespace dlv::test {

/// The engine's way to its host. The engine and its site hold each other until the engine is closed.
class ScriptHost::Site final : public container::Unknown<IActiveScriptSite> {
public:
    std::map<std::wstring, ComPtr<IDispatch>> objects;
    std::vector<std::wstring> errors;

    STDMETHODIMP GetLCID(LCID* locale) override {
        *locale = LOCALE_USER_DEFAULT;
        return S_OK;
    }
    STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD wanted, IUnknown** object, ITypeInfo** info) override {
        const auto found = objects.find(name);
        if (found == objects.end()) return TYPE_E_ELEMENTNOTFOUND;
        if ((wanted & SCRIPTINFO_IUNKNOWN) != 0) *object = ComPtr<IDispatch>(found->second).Detach();
        return (wanted & SCRIPTINFO_ITYPEINFO) != 0 ? found->second->GetTypeInfo(0, 0, info) : S_OK;
    }
    STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError* error) override {
        EXCEPINFO what{};
        DWORD context = 0;
        ULONG line = 0;
        LONG column = 0;
        error->GetExceptionInfo(&what);
        error->GetSourcePosition(&context, &line, &column);
        const std::wstring text = what.bstrDescription == nullptr ? L"an error" : what.bstrDescription;
        errors.push_back(L"line " + std::to_wstring(line + 1) + L": " + text);
        SysFreeString(what.bstrSource);
        SysFreeString(what.bstrDescription);
        SysFreeString(what.bstrHelpFile);
        return S_OK;
    }
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }
};

ScriptHost::ScriptHost(Language language) : language_(language), site_(container::Make<Site>()) {
    CLSID id{};
    ComPtr<IActiveScriptParse> parser;
    EXPECT_EQ(CLSIDFromProgID(language == Language::VBScript ? L"VBScript" : L"JScript", &id), S_OK);
    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&engine_)), S_OK);
    EXPECT_EQ(engine_.As(&parser), S_OK);
    EXPECT_EQ(parser->InitNew(), S_OK);
    EXPECT_EQ(engine_->SetScriptSite(site_.Get()), S_OK);
}

ScriptHost::~ScriptHost() {
    for (const ComPtr<EventSink>& sink : sinks_) sink->Disconnect();
    engine_->Close();
    site_->objects.clear();
}

const std::vector<std::wstring>& ScriptHost::Errors() const { return site_->errors; }

void ScriptHost::AddObject(const std::wstring& name, IDispatch* object) {
    site_->objects[name] = object;
    EXPECT_EQ(engine_->AddNamedItem(name.c_str(), SCRIPTITEM_ISVISIBLE | SCRIPTITEM_ISSOURCE), S_OK);
}

void ScriptHost::AddSource(const std::wstring& name, IDispatch* object, REFIID events) {
    AddObject(name, object);
    const ComPtr<EventSink> sink = container::Make<EventSink>();
    ComPtr<ITypeInfo> description;
    EXPECT_EQ(ControlTypeLibrary()->GetTypeInfoOfGuid(events, &description), S_OK);
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(description->GetFuncDesc(i, &function)); ++i) {
        const DISPID id = function->memid;
        description->ReleaseFuncDesc(function);
        _bstr_t event;
        description->GetDocumentation(id, event.GetAddress(), nullptr, nullptr, nullptr);
        sink->On(id, [this, handler = name + L"_" + std::wstring(event)](DISPPARAMS& arguments) {
            CallHandler(handler, arguments);
        });
    }
    EXPECT_EQ(sink->Connect(object, events), S_OK);
    sinks_.push_back(sink);
}

HRESULT ScriptHost::Run(const std::wstring& script) {
    ComPtr<IActiveScriptParse> parser;
    engine_.As(&parser);
    const HRESULT read = parser->ParseScriptText(script.c_str(), nullptr, nullptr, nullptr, 0, 0,
                                                 SCRIPTTEXT_ISVISIBLE, nullptr, nullptr);
    return FAILED(read) ? read : engine_->SetScriptState(SCRIPTSTATE_CONNECTED);
}

HRESULT ScriptHost::CallHandler(const std::wstring& name, DISPPARAMS& arguments) const {
    ComPtr<IDispatch> functions;
    ComPtr<IDispatchEx> byName;
    DISPID id = DISPID_UNKNOWN;
    HRESULT found = engine_->GetScriptDispatch(nullptr, &functions);
    if (SUCCEEDED(found)) found = functions.As(&byName);
    if (SUCCEEDED(found)) found = byName->GetDispID(_bstr_t(name.c_str()), fdexNameCaseInsensitive, &id);
    if (FAILED(found)) return found;

    // VBScript takes variables by reference, which its own hosts give it; JScript knows values only.
    std::vector<_variant_t> values(arguments.cArgs);
    std::vector<VARIANT> passed(arguments.cArgs);
    for (UINT i = 0; i < arguments.cArgs; ++i) {
        VariantCopyInd(&values[i], &arguments.rgvarg[i]);
        passed[i] = values[i];
        if (language_ != Language::VBScript) continue;
        passed[i].vt = VT_BYREF | VT_VARIANT;
        passed[i].pvarVal = &values[i];
    }
    DISPPARAMS given{passed.data(), nullptr, arguments.cArgs, 0};
    const HRESULT called =
        byName->InvokeEx(id, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &given, nullptr, nullptr, nullptr);
    for (UINT i = 0; i < arguments.cArgs; ++i) {
        const VARIANT& target = arguments.rgvarg[i];
        if (target.vt != (VT_BYREF | VT_BSTR) || values[i].vt != VT_BSTR) continue;
        SysReAllocStringLen(target.pbstrVal, values[i].bstrVal, SysStringLen(values[i].bstrVal));
    }
    return called;
}

}  // namespace dlv::test
