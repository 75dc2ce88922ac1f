#include "hosts/container/Recorder.h"

#include <ole2.h>
#include <olectl.h>

#include <cstdio>

namespace dlv::container {

namespace {

struct Name {
    long value;
    const char* name;
};

#define NAMED(prefix, name) \
    { prefix##name, #name }
constexpr Name kVerbs[] = {NAMED(OLEIVERB_, PRIMARY),
                           NAMED(OLEIVERB_, SHOW),
                           NAMED(OLEIVERB_, OPEN),
                           NAMED(OLEIVERB_, HIDE),
                           NAMED(OLEIVERB_, UIACTIVATE),
                           NAMED(OLEIVERB_, INPLACEACTIVATE),
                           NAMED(OLEIVERB_, DISCARDUNDOSTATE),
                           NAMED(OLEIVERB_, PROPERTIES)};
constexpr Name kAmbients[] = {NAMED(DISPID_AMBIENT_, BACKCOLOR),
                              NAMED(DISPID_AMBIENT_, DISPLAYNAME),
                              NAMED(DISPID_AMBIENT_, FONT),
                              NAMED(DISPID_AMBIENT_, FORECOLOR),
                              NAMED(DISPID_AMBIENT_, LOCALEID),
                              NAMED(DISPID_AMBIENT_, MESSAGEREFLECT),
                              NAMED(DISPID_AMBIENT_, SCALEUNITS),
                              NAMED(DISPID_AMBIENT_, TEXTALIGN),
                              NAMED(DISPID_AMBIENT_, USERMODE),
                              NAMED(DISPID_AMBIENT_, UIDEAD),
                              NAMED(DISPID_AMBIENT_, SHOWGRABHANDLES),
                              NAMED(DISPID_AMBIENT_, SHOWHATCHING),
                              NAMED(DISPID_AMBIENT_, DISPLAYASDEFAULT),
                              NAMED(DISPID_AMBIENT_, SUPPORTSMNEMONICS),
                              NAMED(DISPID_AMBIENT_, AUTOCLIP),
                              NAMED(DISPID_AMBIENT_, APPEARANCE),
                              NAMED(DISPID_AMBIENT_, RIGHTTOLEFT),
                              {DISPID_UNKNOWN, "ALL"}};
constexpr Name kKeys[] = {NAMED(VK_, TAB),  NAMED(VK_, RETURN), NAMED(VK_, ESCAPE), NAMED(VK_, SPACE),
                          NAMED(VK_, LEFT), NAMED(VK_, RIGHT),  NAMED(VK_, UP),     NAMED(VK_, DOWN),
                          NAMED(VK_, HOME), NAMED(VK_, END),    NAMED(VK_, DELETE), NAMED(VK_, F4)};
#undef NAMED

#define NAMED(name) \
    { static_cast<long>(name), #name }
constexpr Name kResults[] = {NAMED(S_OK),
                             NAMED(S_FALSE),
                             NAMED(E_FAIL),
                             NAMED(E_INVALIDARG),
                             NAMED(E_NOINTERFACE),
                             NAMED(E_NOTIMPL),
                             NAMED(E_OUTOFMEMORY),
                             NAMED(E_POINTER),
                             NAMED(E_UNEXPECTED),
                             NAMED(OLEOBJ_S_INVALIDVERB),
                             NAMED(OLEOBJ_S_CANNOT_DOVERB_NOW),
                             NAMED(OLE_E_NOCONNECTION),
                             NAMED(OLE_E_NOTRUNNING),
                             NAMED(OLE_E_NOT_INPLACEACTIVE),
                             NAMED(OLE_E_ADVISENOTSUPPORTED),
                             NAMED(DV_E_DVASPECT),
                             NAMED(DV_E_LINDEX),
                             NAMED(INPLACE_E_NOTUNDOABLE),
                             NAMED(INPLACE_E_NOTOOLSPACE),
                             NAMED(CONNECT_E_NOCONNECTION),
                             NAMED(CONNECT_E_CANNOTCONNECT),
                             NAMED(DISP_E_MEMBERNOTFOUND),
                             NAMED(STG_E_DOCFILECORRUPT),
                             NAMED(CO_E_ALREADYINITIALIZED),
                             NAMED(RPC_E_WRONG_THREAD)};
#undef NAMED

template <std::size_t count>
const char* NameOf(const Name (&names)[count], long value) {
    for (const Name& known : names)
        if (known.value == value) return known.name;
    return nullptr;
}

template <std::size_t count>
std::string NameOrNumber(const Name (&names)[count], long value) {
    const char* name = NameOf(names, value);
    return name == nullptr ? std::to_string(value) : name;
}

}  // namespace

Recorder::Call::Call(std::shared_ptr<Recorder> recorder, Caller caller, std::string_view text)
    : recorder_(std::move(recorder)) {
    if (recorder_) recorder_->Begin(caller, text);
}

Recorder::Call::~Call() {
    if (recorder_) recorder_->End(result_);
}

HRESULT Recorder::Call::Returns(HRESULT result, std::string_view given) {
    if (!recorder_) return result;
    result_ = "= " + ResultText(result);
    if (!given.empty()) result_.append(" ").append(given);
    return result;
}

void Recorder::Begin(Caller caller, std::string_view text) {
    if (lineOpen_) out_ << '\n';
    Indent();
    out_ << (caller == Caller::Container ? "> " : "< ") << text << std::flush;
    lineOpen_ = true;
    ++depth_;
}

void Recorder::End(std::string_view result) {
    if (lineOpen_) {
        if (!result.empty()) out_ << ' ' << result;
        out_ << std::endl;
    } else if (!result.empty()) {
        Indent();
        out_ << result << std::endl;
    }
    lineOpen_ = false;
    --depth_;
}

void Recorder::Indent() { out_ << std::string(static_cast<std::size_t>(depth_) * 2, ' '); }

std::string ResultText(HRESULT result) {
    if (const char* name = NameOf(kResults, result)) return name;
    char number[16];
    std::snprintf(number, sizeof number, "0x%08lX", static_cast<unsigned long>(result));
    return number;
}

std::string VerbText(LONG verb) { return NameOrNumber(kVerbs, verb); }

std::string AmbientText(DISPID id) { return NameOrNumber(kAmbients, id); }

std::string KeyText(const MSG& message) {
    const bool released = message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
    const bool typed = message.message == WM_CHAR || message.message == WM_SYSCHAR;
    const char* kind = released ? "up" : typed ? "typed" : "down";
    return NameOrNumber(kKeys, static_cast<long>(message.wParam)) + " " + kind;
}

std::string PlaceText(const RECT& place) {
    return std::to_string(place.left) + "," + std::to_string(place.top) + " " +
           SizeText({place.right - place.left, place.bottom - place.top});
}

std::string SizeText(const SIZE& size) { return std::to_string(size.cx) + "x" + std::to_string(size.cy); }

}  // namespace dlv::container
