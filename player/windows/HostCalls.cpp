#include "player/windows/HostCalls.h"

#include <comutil.h>

#include "base/Trap.h"
#include "hosts/container/EventRecord.h"
#include "player/SessionMessage.h"
#include "player/Transcript.h"
#include "windows/com/Strings.h"

namespace dlv::player {

namespace {

using container::ComPtr;
using container::Library;

/// Knows every caption: the key itself.
class KeysTransport final : public container::Unknown<IDispatch> {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (count == nullptr) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        if (names == nullptr || ids == nullptr || count != 1) return E_INVALIDARG;
        ids[0] = std::wstring_view(names[0]) == L"Caption" ? kCaption : DISPID_UNKNOWN;
        return ids[0] == kCaption ? S_OK : DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        if (id != kCaption || arguments == nullptr || arguments->cArgs != 1) return DISP_E_MEMBERNOTFOUND;
        if (result == nullptr) return S_OK;
        const std::wstring key = container::TextArgument(arguments->rgvarg[0]);
        VariantInit(result);
        result->vt = VT_BSTR;
        result->bstrVal = SysAllocStringLen(key.data(), static_cast<UINT>(key.size()));
        return S_OK;
    }

private:
    static constexpr DISPID kCaption = 1;
};

_variant_t ValueOf(const Json& step, const char* name) {
    if (!step.contains(name)) return std::string(name) == "tag" ? _variant_t(L"") : _variant_t(0L);
    const Json& value = step[name];
    if (value.is_string()) return _variant_t(Wide(value.get<std::string>()).c_str());
    if (value.is_boolean()) return value.get<bool>();
    if (value.is_number()) return value.get<double>();
    _variant_t null;
    null.vt = VT_NULL;
    return null;
}

/// The object or other value that a step sends; empty when its document cannot be loaded.
_variant_t DataOf(const Library& library, const Json& step) {
    const std::string type = step.value("type", "QZWebMessage");
    if (type == "String") return L"";
    if (type == "QZWebMessage") {
        ComPtr<_QZWebMessage> message;
        std::string text = step.value("document", "");
        if (!step.contains("document")) text = MessageOf(step)->Text();
        const std::wstring wide = Wide(text);
        if (FAILED(library.Create(L"DashlonViewer.QZWebMessage").As(&message)) ||
            FAILED(message->LoadText(
                _bstr_t(SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size())), false))))
            return {};
        return static_cast<IDispatch*>(message.Get());
    }
    ComPtr<_QZWebMessage> message;
    ComPtr<_QZWebData> item;
    if (type == "QZWebData" && SUCCEEDED(library.Create(L"DashlonViewer.QZWebMessage").As(&message)) &&
        SUCCEEDED(message->get_Data(1, &item)))
        return static_cast<IDispatch*>(item.Get());
    return static_cast<IDispatch*>(container::Make<KeysTransport>().Get());
}

HRESULT SetUnits(_DLViewer& viewer, const Json& ids) {
    _variant_t list;
    list.vt = VT_ARRAY | VT_BSTR;
    list.parray = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(ids.size()));
    LONG place = 0;
    for (const Json& id : ids) {
        Bstr text(id.get<std::string>());
        SafeArrayPutElement(list.parray, &place, text.Get());
        ++place;
    }
    return viewer.SetSessionBUIDList(&list.parray);
}

HRESULT AnswerProfiles(_DLViewer& viewer, const Json& step) {
    const std::string result = step.contains("resultXML")
                                   ? step["resultXML"].get<std::string>()
                                   : ResultDocument(step.contains("error") ? &step["error"] : nullptr,
                                                    step.value("payload", Json("")));
    Bstr text(result);
    Bstr function(step["function"].get<std::string>());
    return viewer.ReceiveProfileResponse(text.Address(), function.Address());
}

Json FieldsOf(_DLVParams& record) {
    Json fields = Json::object();
    for (const auto& [name, value] : container::FilledFields(record)) {
        const std::string text = Narrow(value);
        fields[name] = name == std::string_view("ProfilesXML") ? ProfileSetTranscript(text) : Json(text);
    }
    return fields;
}

}  // namespace

bool MakeHostCall(const Library& library, _DLViewer& viewer, const Json& step) {
    const std::string op = step["op"];
    if (op == "initialize") {
        const ComPtr<KeysTransport> transport = container::Make<KeysTransport>();
        IDispatch* given = transport.Get();
        return SUCCEEDED(viewer.Initialize(&given));
    }
    if (op == "stopControl") return SUCCEEDED(viewer.StopControl());
    // The window keeps its size, so that all of a grid stays in sight.
    if (op == "resizeControls") return SUCCEEDED(viewer.ResizeControls());
    if (op == "setRegionalFormatInfo") {
        Bstr language(step["language"].get<std::string>());
        return SUCCEEDED(viewer.SetRegionalFormatInfo(language.Address()));
    }
    if (op == "setSessionBUIDList") return SUCCEEDED(SetUnits(viewer, step["ids"]));
    if (op == "receiveProfileResponse") return SUCCEEDED(AnswerProfiles(viewer, step));
    _variant_t data = DataOf(library, step);
    if (data.vt == VT_EMPTY) return false;
    return SUCCEEDED(viewer.ReceiveMessage(&data, ValueOf(step, "dataType"), ValueOf(step, "tag")));
}

void ListenTo(container::EventSink& sink, std::function<void(const std::string& name, Json entry)> happened) {
    sink.On(1, [happened](DISPPARAMS& arguments) {
        const std::string text = Narrow(container::TextArgument(arguments.rgvarg[0]));
        happened("PostRequest", {{"event", "PostRequest"}, {"fields", {{"Params", text}}}});
    });
    for (DISPID id = 2; id <= static_cast<DISPID>(std::size(container::kEventNames)); ++id) {
        const char* const name = container::kEventNames[id - 1];
        sink.On(id, [happened, name](DISPPARAMS& arguments) {
            ComPtr<_DLVParams> record;
            container::ObjectArgument(arguments.rgvarg[0]).As(&record);
            Json fields = record ? FieldsOf(*record.Get()) : Json::object();
            happened(name, {{"event", name}, {"fields", std::move(fields)}});
        });
    }
}

}  // namespace dlv::player
