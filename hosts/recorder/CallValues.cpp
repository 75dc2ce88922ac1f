#include "hosts/recorder/CallValues.h"

#include <iterator>
#include <utility>

#include "DashlonViewer.h"
#include "base/Trap.h"
#include "hosts/container/EventRecord.h"
#include "hosts/container/EventSink.h"
#include "hosts/recorder/HostSteps.h"
#include "webdata/QZWebMessage.h"
#include "windows/com/Arrays.h"
#include "windows/com/Coercion.h"
#include "windows/com/ForeignMessage.h"
#include "windows/com/LateBound.h"

namespace dlv::recorder {

namespace {

using Microsoft::WRL::ComPtr;

constexpr std::string_view kMessageType = "QZWebMessage";

enum Member : DISPID {
    kReceiveMessage = 0x60030000,
    kInitialize = 0x60030001,
    kStopControl = 0x6003000D,
    kReceiveProfileResponse = 0x60030010,
    kResizeControls = 0x60030021,
    kSetSessionBUIDList = 0x60030022,
    kSetRegionalFormatInfo = 0x60030023
};

std::string Clock() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", now.wHour, now.wMinute, now.wSecond);
    return text;
}

/// Discarded for a value that is the same as none; null for one that is neither number nor text.
Json ValueOf(const VARIANT& given) {
    const VARIANT* const value = Behind(given);
    if (value == nullptr || value->vt == VT_EMPTY) return Json::value_t::discarded;
    if (value->vt == VT_BOOL) return value->boolVal != VARIANT_FALSE;
    std::string text;
    if (!ReadText(*value, text)) return nullptr;
    Variant number;
    const bool isNumber =
        value->vt != VT_BSTR &&
        SUCCEEDED(VariantChangeType(number.Address(), const_cast<VARIANT*>(value), 0, VT_R8));
    if (!isNumber) return text;
    if (number->dblVal == static_cast<double>(static_cast<LONG>(number->dblVal)))
        return static_cast<LONG>(number->dblVal);
    return number->dblVal;
}

HostObject ObjectOf(const VARIANT& data) {
    HostObject object{TypeNameOf(data), nullptr};
    const bool unknown = object.typeName == kTellsNoType;
    const VARIANT* const value = Behind(data);
    if ((object.typeName != kMessageType && !unknown) || value == nullptr) return object;
    ComPtr<_QZWebMessage> own;
    ComPtr<IDispatch> any;
    value->punkVal->QueryInterface(IID_PPV_ARGS(&own));
    value->punkVal->QueryInterface(IID_PPV_ARGS(&any));
    Bstr text;
    if (own && SUCCEEDED(own->get_Text(text.Address()))) {
        auto message = std::make_shared<QZWebMessage>();
        message->LoadText(Narrow(text.Get()));
        object.message = std::move(message);
    } else if (any && (!unknown || ForeignMessage::IsLike(any.Get()))) {
        object.message = std::make_shared<ForeignMessage>(any.Get());
    }
    if (object.message) object.typeName = kMessageType;
    return object;
}

/// Empty for a value that is no text.
std::string TextArgument(const VARIANT& argument) {
    std::string text;
    if (const VARIANT* const value = Behind(argument)) ReadText(*value, text);
    return text;
}

Json IdsStep(std::vector<std::string> ids) {
    Json step = Step("setSessionBUIDList");
    step["ids"] = std::move(ids);
    return step;
}

}  // namespace

Json MessageCall(const VARIANT& data, const VARIANT& dataType, const VARIANT& tag) {
    HostObject object;
    // An object that cannot be read is recorded as one that the control passes over.
    if (IgnoreErrors([&] { object = ObjectOf(data); }) == Outcome::Failed) object = {"Object", nullptr};
    return MessageStep(object, ValueOf(dataType), ValueOf(tag), Clock());
}

Json UnitsCall(SAFEARRAY* ids) {
    std::vector<std::string> texts;
    IgnoreErrors([&] { texts = TextsOf(ids); });
    return IdsStep(std::move(texts));
}

Json AnswerCall(std::string_view resultXml, std::string_view functionName) {
    Json step = Step("receiveProfileResponse");
    step["function"] = functionName;
    step["resultXML"] = resultXml;
    return step;
}

Json LanguageCall(std::string_view languageId) {
    Json step = Step("setRegionalFormatInfo");
    step["language"] = languageId;
    return step;
}

Json LateCall(DISPID id, const DISPPARAMS& arguments) {
    // They stand from last to first.
    const auto argument = [&](UINT place) -> const VARIANT& {
        static const VARIANT none{};
        return place < arguments.cArgs ? arguments.rgvarg[arguments.cArgs - 1 - place] : none;
    };
    if (arguments.cNamedArgs > 0) return nullptr;
    switch (id) {
        case kReceiveMessage: return MessageCall(argument(0), argument(1), argument(2));
        case kInitialize: return Step("initialize");
        case kStopControl: return Step("stopControl");
        case kReceiveProfileResponse: return AnswerCall(TextArgument(argument(0)), TextArgument(argument(1)));
        case kResizeControls: return Step("resizeControls");
        case kSetRegionalFormatInfo: return LanguageCall(TextArgument(argument(0)));
        case kSetSessionBUIDList: {
            std::vector<std::string> texts;
            IgnoreErrors([&] { texts = TextsOf(argument(0)); });
            return IdsStep(std::move(texts));
        }
        default: return nullptr;
    }
}

const char* EventName(DISPID id) {
    return id < 1 || id > static_cast<DISPID>(std::size(container::kEventNames))
               ? nullptr
               : container::kEventNames[id - 1];
}

Json EventFields(DISPID id, const DISPPARAMS& arguments) {
    Json fields = Json::object();
    if (arguments.cArgs != 1) return fields;
    if (id == 1) {
        fields["Params"] = TextArgument(arguments.rgvarg[0]);
        return fields;
    }
    ComPtr<_DLVParams> record;
    if (const auto object = container::ObjectArgument(arguments.rgvarg[0])) object.As(&record);
    if (!record) return fields;
    for (const auto& [name, value] : container::FilledFields(*record.Get())) fields[name] = Narrow(value);
    return fields;
}

}  // namespace dlv::recorder
