// The type library inside the control, as early-binding hosts read it.
#include "tests/windows/Support.h"

namespace dlv::test {
namespace {

std::wstring TextOf(BSTR text) {
    const std::wstring copy = text == nullptr ? std::wstring() : std::wstring(text, SysStringLen(text));
    SysFreeString(text);
    return copy;
}

std::wstring HelpString(ITypeInfo* info, MEMBERID id) {
    BSTR text = nullptr;
    EXPECT_EQ(info->GetDocumentation(id, nullptr, &text, nullptr, nullptr), S_OK);
    return TextOf(text);
}

std::wstring NameOf(ITypeInfo* info, MEMBERID id = MEMBERID_NIL) {
    BSTR text = nullptr;
    EXPECT_EQ(info->GetDocumentation(id, &text, nullptr, nullptr, nullptr), S_OK);
    return TextOf(text);
}

ComPtr<ITypeInfo> Describe(REFGUID id) {
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(ControlTypeLibrary()->GetTypeInfoOfGuid(id, &info), S_OK);
    return info;
}

/// A parameter's type as a declaration would spell it.
std::string TypeText(ITypeInfo* info, const TYPEDESC& type) {
    switch (type.vt) {
        case VT_PTR: return TypeText(info, *type.lptdesc) + "*";
        case VT_SAFEARRAY: return "SAFEARRAY(" + TypeText(info, *type.lptdesc) + ")";
        case VT_BSTR: return "BSTR";
        case VT_VARIANT: return "VARIANT";
        case VT_DISPATCH: return "IDispatch*";
        case VT_USERDEFINED: {
            ComPtr<ITypeInfo> target;
            EXPECT_EQ(info->GetRefTypeInfo(type.hreftype, &target), S_OK);
            const std::wstring name = NameOf(target.Get());
            return std::string(name.begin(), name.end());
        }
        default: return "type " + std::to_string(type.vt);
    }
}

struct Member {
    std::string name;
    DISPID id;
    std::vector<std::string> parameters;
    bool operator==(const Member&) const = default;
    friend void PrintTo(const Member& member, std::ostream* out) {
        *out << member.name << " [" << std::hex << member.id << "] ("
             << testing::PrintToString(member.parameters) << ")";
    }
};

/// Members in the order of the description; of a dual interface those of its slots.
std::vector<Member> MembersOf(ITypeInfo* info) {
    std::vector<Member> members;
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(info->GetFuncDesc(i, &function)); ++i) {
        const std::wstring name = NameOf(info, function->memid);
        Member member{std::string(name.begin(), name.end()), function->memid, {}};
        for (SHORT p = 0; p < function->cParams; ++p)
            member.parameters.push_back(TypeText(info, function->lprgelemdescParam[p].tdesc));
        members.push_back(member);
        info->ReleaseFuncDesc(function);
    }
    return members;
}

ComPtr<ITypeInfo> SlotsOf(REFIID iid) {
    const ComPtr<ITypeInfo> dispatch = Describe(iid);
    HREFTYPE reference = 0;
    EXPECT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    ComPtr<ITypeInfo> slots;
    EXPECT_EQ(dispatch->GetRefTypeInfo(reference, &slots), S_OK);
    return slots;
}

TEST(TypeLibrary, DescribesTheMethodsOfTheControl) {
    const std::vector<Member> wanted{{"ReceiveMessage", 0x60030000, {"VARIANT*", "VARIANT", "VARIANT"}},
                                     {"Initialize", 0x60030001, {"IDispatch**"}},
                                     {"StopControl", 0x6003000D, {}},
                                     {"ReceiveProfileResponse", 0x60030010, {"BSTR*", "BSTR*"}},
                                     {"ResizeControls", 0x60030021, {}},
                                     {"SetSessionBUIDList", 0x60030022, {"SAFEARRAY(BSTR)*"}},
                                     {"SetRegionalFormatInfo", 0x60030023, {"BSTR*"}}};
    EXPECT_EQ(MembersOf(SlotsOf(__uuidof(_DLViewer)).Get()), wanted);
}

TEST(TypeLibrary, DescribesTheEventsWithTheirOneArgumentByReference) {
    const std::vector<Member> wanted{
        {"PostRequest", 1, {"BSTR*"}},           {"GetDetails", 2, {"_DLVParams**"}},
        {"GetProfiles", 3, {"_DLVParams**"}},    {"GetProfileList", 4, {"_DLVParams**"}},
        {"PutProfiles", 5, {"_DLVParams**"}},    {"AddProfiles", 6, {"_DLVParams**"}},
        {"RemoveProfiles", 7, {"_DLVParams**"}}, {"SaveProfileAs", 8, {"_DLVParams**"}}};
    const std::vector<Member> found = MembersOf(Describe(__uuidof(__DLViewer)).Get());
    // Those of IUnknown and IDispatch come first with some readers of type libraries.
    ASSERT_GE(found.size(), wanted.size());
    EXPECT_EQ(std::vector<Member>(found.end() - static_cast<std::ptrdiff_t>(wanted.size()), found.end()),
              wanted);
}

TEST(TypeLibrary, NumbersThePropertiesOfTheRecordInTheirOrder) {
    const char* const names[] = {"BUID",          "JobType",           "JobClass",    "JobStatus",
                                 "Info",          "JeopardyThreshold", "ProfileName", "UserID",
                                 "ApplicationID", "ProfilesXML",       "ResultXML"};
    const std::vector<Member> found = MembersOf(SlotsOf(__uuidof(_DLVParams)).Get());
    ASSERT_EQ(found.size(), 2 * std::size(names));
    for (std::size_t i = 0; i < std::size(names); ++i) {
        const auto id = static_cast<DISPID>(0x40030000 + i);
        EXPECT_EQ(found[2 * i], (Member{names[i], id, {"BSTR*"}}));
        EXPECT_EQ(found[2 * i + 1], (Member{names[i], id, {"BSTR"}}));
    }
}

TEST(TypeLibrary, ExplainsEveryTypeAndMember) {
    const ComPtr<ITypeLib> library = ControlTypeLibrary();
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> info;
        ASSERT_EQ(library->GetTypeInfo(i, &info), S_OK);
        EXPECT_FALSE(HelpString(info.Get(), MEMBERID_NIL).empty())
            << testing::PrintToString(NameOf(info.Get()));
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
        const bool isClass = attributes->typekind == TKIND_COCLASS;
        info->ReleaseTypeAttr(attributes);
        if (isClass) continue;
        for (const Member& member : MembersOf(info.Get())) {
            if (member.id >= 0x60000000 && member.id < 0x60030000) continue;  // inherited from the system
            EXPECT_FALSE(HelpString(info.Get(), member.id).empty()) << member.name;
        }
    }
}

WORD FlagsOf(REFGUID id) {
    TYPEATTR* attributes = nullptr;
    const ComPtr<ITypeInfo> info = Describe(id);
    EXPECT_EQ(info->GetTypeAttr(&attributes), S_OK);
    const WORD flags = attributes->wTypeFlags;
    info->ReleaseTypeAttr(attributes);
    return flags;
}

TEST(TypeLibrary, ShowsClassesToPeopleAndHidesTheirInterfaces) {
    constexpr WORD kDual = TYPEFLAG_FHIDDEN | TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE;
    for (const IID& id : {__uuidof(_DLViewer), __uuidof(_DLVParams), __uuidof(_QZWebMessage),
                          __uuidof(_QZWebData), __uuidof(_QZWebTable), __uuidof(_QZWebRow),
                          __uuidof(_QZWebProfiles), __uuidof(_QZWebProfile), __uuidof(_QZWebSection)})
        EXPECT_EQ(FlagsOf(id) & kDual, kDual) << testing::PrintToString(NameOf(Describe(id).Get()));
    EXPECT_NE(FlagsOf(__uuidof(__DLViewer)) & TYPEFLAG_FHIDDEN, 0);
    for (const CLSID& id :
         {__uuidof(::DLViewer), __uuidof(::DLVParams), __uuidof(::QZWebMessage), __uuidof(::QZWebData),
          __uuidof(::QZWebTable), __uuidof(::QZWebProfiles), __uuidof(::QZWebProfile)})
        EXPECT_EQ(FlagsOf(id) & (TYPEFLAG_FHIDDEN | TYPEFLAG_FCANCREATE), TYPEFLAG_FCANCREATE);
    for (const CLSID& id : {__uuidof(::QZWebRow), __uuidof(::QZWebSection)})
        EXPECT_EQ(FlagsOf(id) & (TYPEFLAG_FHIDDEN | TYPEFLAG_FCANCREATE), 0);
}

TEST(TypeLibrary, HasADefaultMemberWhereOneIsNatural) {
    const struct {
        IID id;
        std::vector<Member> wanted;
    } cases[] = {
        {__uuidof(_QZWebProfiles), {{"Item", DISPID_VALUE, {"type 3", "_QZWebProfile**"}}}},
        {__uuidof(_QZWebRow),
         {{"_Default", DISPID_VALUE, {"BSTR", "BSTR*"}}, {"_Default", DISPID_VALUE, {"BSTR", "BSTR"}}}},
        {__uuidof(_QZWebMessage), {}}};
    for (const auto& test : cases) {
        std::vector<Member> found = MembersOf(SlotsOf(test.id).Get());
        std::erase_if(found, [](const Member& member) { return member.id != DISPID_VALUE; });
        EXPECT_EQ(found, test.wanted);
    }
}

TEST(TypeLibrary, CallsTheControlAControlWithItsEventsAsDefaultSource) {
    const ComPtr<ITypeInfo> info = Describe(__uuidof(::DLViewer));
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FCONTROL, 0);
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE, 0);
    ASSERT_EQ(attributes->cImplTypes, 2);
    info->ReleaseTypeAttr(attributes);
    const struct {
        INT flags;
        const wchar_t* name;
    } wanted[] = {{IMPLTYPEFLAG_FDEFAULT, L"_DLViewer"},
                  {IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE, L"__DLViewer"}};
    for (UINT i = 0; i < 2; ++i) {
        INT flags = 0;
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> implemented;
        ASSERT_EQ(info->GetImplTypeFlags(i, &flags), S_OK);
        ASSERT_EQ(info->GetRefTypeOfImplType(i, &reference), S_OK);
        ASSERT_EQ(info->GetRefTypeInfo(reference, &implemented), S_OK);
        EXPECT_EQ(flags, wanted[i].flags);
        EXPECT_EQ(NameOf(implemented.Get()), wanted[i].name);
    }
}

}  // namespace
}  // namespace dlv::test
