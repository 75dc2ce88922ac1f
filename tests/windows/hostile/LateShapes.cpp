#include "tests/windows/hostile/Caller.h"

namespace dlv::hostile {

namespace {

void AddArguments(LateCall& call, std::size_t count) {
    VARIANT one{};
    one.vt = VT_I4;
    call.arguments.insert(call.arguments.begin(), count, one);
}

LateShape Named(const char* name, std::vector<DISPID> names) {
    return {name, [names](LateCall& call) {
                call.names = names;
                call.nameCount = static_cast<UINT>(names.size());
            }};
}

/// As many names of the first parameter as there are arguments, and more.
LateShape NamedAlike(const char* name, std::size_t more) {
    return {name, [more](LateCall& call) {
                call.names.assign(call.arguments.size() + more, 0);
                call.nameCount = static_cast<UINT>(call.names.size());
            }};
}

LateShape Flags(const char* name, WORD flags) {
    return {name, [flags](LateCall& call) { call.flags = flags; }};
}

LateShape Id(const char* name, DISPID id) {
    return {name, [id](LateCall& call) { call.id = id; }};
}

}  // namespace

LateCall::LateCall(const Member& member) : id(member.id) {
    if (member.kind == INVOKE_PROPERTYGET) flags = DISPATCH_PROPERTYGET;
    if (member.kind != INVOKE_PROPERTYPUT) return;
    flags = DISPATCH_PROPERTYPUT;
    names = {DISPID_PROPERTYPUT};
    nameCount = 1;
}

const std::vector<LateShape>& LateShapes() {
    static const std::vector<LateShape> shapes = {
        {"good", [](LateCall&) {}},
        {"one too many", [](LateCall& call) { AddArguments(call, 1); }},
        {"64 too many", [](LateCall& call) { AddArguments(call, 64); }},
        {"one missing",
         [](LateCall& call) {
             if (!call.arguments.empty()) call.arguments.pop_back();
         }},
        {"none", [](LateCall& call) { call.arguments.clear(); }},
        {"all named",
         [](LateCall& call) {
             call.names.clear();
             for (std::size_t i = call.arguments.size(); i-- > 0;)
                 call.names.push_back(static_cast<DISPID>(i));
             call.nameCount = static_cast<UINT>(call.names.size());
         }},
        NamedAlike("all with one name", 0),
        NamedAlike("more names than arguments", 1),
        NamedAlike("far more names than arguments", 100),
        Named("unknown name", {99}),
        Named("negative name", {-5}),
        Named("smallest name", {LONG_MIN}),
        Named("largest name", {LONG_MAX}),
        Named("the name of no member", {DISPID_UNKNOWN}),
        Named("named as a put", {DISPID_PROPERTYPUT}),
        Named("named as a put twice", {DISPID_PROPERTYPUT, DISPID_PROPERTYPUT}),
        Named("put without its name", {}),
        {"names that are not there",
         [](LateCall& call) {
             call.nameCount = 1;
             call.withoutNames = true;
         }},
        {"arguments that are not there", [](LateCall& call) { call.withoutArguments = true; }},
        {"no parameters", [](LateCall& call) { call.withoutParameters = true; }},
        {"no result", [](LateCall& call) { call.withoutResult = true; }},
        {"no exception", [](LateCall& call) { call.withoutException = true; }},
        {"no place", [](LateCall& call) { call.withoutPlace = true; }},
        {"nothing to give back",
         [](LateCall& call) { call.withoutResult = call.withoutException = call.withoutPlace = true; }},
        {"another interface", [](LateCall& call) { call.iid = IID_IDispatch; }},
        {"odd locale", [](LateCall& call) { call.locale = 0xFFFFFFFF; }},
        Flags("no flag", 0),
        Flags("method", DISPATCH_METHOD),
        Flags("get", DISPATCH_PROPERTYGET),
        Flags("method or get", DISPATCH_METHOD | DISPATCH_PROPERTYGET),
        Flags("put", DISPATCH_PROPERTYPUT),
        Flags("put by reference", DISPATCH_PROPERTYPUTREF),
        Flags("either put", DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF),
        Flags("get and put", DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT),
        Flags("all flags", 0xFFFF),
        Id("no member", DISPID_UNKNOWN),
        Id("default member", DISPID_VALUE),
        Id("enumerator", DISPID_NEWENUM),
        Id("smallest id", LONG_MIN),
        Id("largest id", LONG_MAX),
        {"next id", [](LateCall& call) { ++call.id; }},
    };
    return shapes;
}

}  // namespace dlv::hostile
