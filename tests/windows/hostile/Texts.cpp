#include "tests/windows/hostile/Texts.h"

#include <cstring>

#include "tests/windows/Support.h"

namespace dlv::hostile {

namespace {

constexpr std::size_t kMiB = std::size_t{1} << 20;

std::wstring Repeated(std::wstring_view text, std::size_t times) {
    std::wstring all;
    all.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i) all += text;
    return all;
}

BSTR NewText(std::wstring_view text) {
    return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

const std::wstring kError =
    L"<WebTable Name=\"Error\"><row ErrorNumber=\"0\" ErrorDescription=\"\"/></WebTable>";

const std::wstring& ProfileDocument() {
    static const std::wstring text =
        L"<WebProfile>" + kError +
        L"<Name>Default</Name><Section Name=\"DLVSelect\" "
        L"Fields=\"BUList,SummaryOption,DisplayByWorkOrders\">"
        L"<row BUList=\"12|40\" SummaryOption=\"False\" DisplayByWorkOrders=\"True\"/></Section>"
        L"<Section Name=\"CollapsedNodes\" Fields=\"ID,List\"><row ID=\"JobTypes\" List=\"I\"/>"
        L"<row ID=\"BUWorkOrders\" List=\"#\"/><row ID=\"BUPoints\" List=\"\"/></Section></WebProfile>";
    return text;
}

const std::vector<std::pair<std::string, std::wstring>>& Documents() {
    static const std::vector<std::pair<std::string, std::wstring>> documents = {
        {"message", GoodMessage(1)},
        {"data item",
         L"<WebData>" + kError + L"<WebTable Name=\"t\"><row a=\"1\" b=\"2\"/></WebTable></WebData>"},
        {"table", L"<WebTable Name=\"t\"><row a=\"1\" b=\"&#10;\"/><row c=\"&lt;\"/></WebTable>"},
        {"profile", ProfileDocument()},
        {"profiles", L"<WebProfiles>" + kError + ProfileDocument() + L"</WebProfiles>"},
        {"profile list",
         L"<WebData>" + kError + L"<ProfileIDs><ProfileID>x</ProfileID></ProfileIDs></WebData>"},
        {"error",
         L"<WebData><WebTable Name=\"Error\"><row ErrorNumber=\"7\" "
         L"ErrorDescription=\"No\"/></WebTable></WebData>"},
        {"stopped", L"<WebMessage Name=\"DLVServerStopped\"></WebMessage>"},
    };
    return documents;
}

std::wstring Damaged(std::wstring text, Random& random) {
    constexpr wchar_t kUnits[] = {L'<',   L'>',   L'"', L'&', L'/', L'\0', 0xD83D,
                                  0xDE00, 0xFFFF, 0x85, L'x', L'|', L'=',  L'9'};
    for (std::uint32_t damages = 1 + random.Below(4); damages > 0; --damages) {
        const std::size_t at = random.Below(static_cast<std::uint32_t>(text.size()));
        if (random.OneIn(3))
            text.erase(at, 1 + random.Below(9));
        else if (random.OneIn(3))
            text.insert(at, text.substr(random.Below(static_cast<std::uint32_t>(text.size())), 40));
        else
            text[at] = kUnits[random.Below(std::size(kUnits))];
        if (text.empty()) break;
    }
    return text;
}

void AddPlain(std::vector<Text>& all) {
    for (const char* text : {"",
                             "a",
                             " ",
                             "#",
                             "|",
                             "12|40|12||",
                             "TOTAL",
                             "BUID",
                             "a,b,,a, c,",
                             "%s%n%d{0}",
                             "<&>\"']]>",
                             "-1",
                             "2147483647",
                             "2147483648",
                             "1e400",
                             "-1e400",
                             "nan",
                             "1.#INF",
                             "&HFFFFFFFFFFFF",
                             "9999-12-31 24:60:61",
                             "EN",
                             "ZZ",
                             "GetProfileList",
                             "GetProfiles",
                             "PutProfiles",
                             "AddProfiles",
                             "RemoveProfiles",
                             "SaveProfileAs",
                             "DLVData"})
        all.push_back(
            {text, [wide = std::wstring(text, text + std::strlen(text))](Random&) { return NewText(wide); }});
    const std::pair<const char*, std::wstring> made[] = {
        {"control characters", L"\x01\x1b\x7f\r\n\t\x85"},
        {"10,240 letters", std::wstring(10'240, L'x')},
        {"10,240 separators", std::wstring(10'240, L',')},
        {"1 MiB", std::wstring(kMiB, L'y')},
        {"1 MiB of digits", std::wstring(kMiB, L'9')},
        {"1 MiB of markup", Repeated(L"<a>]]>&#0;", kMiB / 10)},
        {"zero", std::wstring(1, L'\0')},
        {"zero inside", std::wstring(L"a\0b", 3)},
        {"lone high surrogate", std::wstring(1, wchar_t{0xD83D})},
        {"lone low surrogate", std::wstring(1, wchar_t{0xDE00})},
        {"surrogates the wrong way", {wchar_t{0xDE00}, wchar_t{0xD83D}}},
        {"pair", {wchar_t{0xD83D}, wchar_t{0xDE00}}},
        {"no character", {wchar_t{0xFFFF}, wchar_t{0xFFFE}, wchar_t{0xFEFF}}},
        {"right to left", {wchar_t{0x202E}, L'a', wchar_t{0x0300}}},
    };
    for (const auto& [name, text] : made)
        all.push_back({name, [text = text](Random&) { return NewText(text); }});
    all.push_back({"null", [](Random&) -> BSTR { return nullptr; }});
    all.push_back({"three bytes", [](Random&) { return SysAllocStringByteLen("abc", 3); }});
    all.push_back({"one byte", [](Random&) { return SysAllocStringByteLen("a", 1); }});
}

void AddHarmful(std::vector<Text>& all) {
    const std::wstring deep = Repeated(L"<a>", 30'000);
    const std::pair<const char*, std::wstring> harmful[] = {
        {"document type",
         L"<!DOCTYPE x [<!ENTITY a \"aaaa\"><!ENTITY b \"&a;&a;&a;\">]><WebData>&b;</WebData>"},
        {"external entity",
         L"<!DOCTYPE x SYSTEM \"file:///c:/windows/win.ini\"><WebProfiles>&x;</WebProfiles>"},
        {"deep and open", L"<WebProfiles>" + deep},
        {"deep and closed", L"<WebProfiles>" + deep + Repeated(L"</a>", 30'000) + L"</WebProfiles>"},
        {"long attribute", L"<WebTable Name=\"" + std::wstring(200'000, L'n') + L"\"></WebTable>"},
        {"many attributes", L"<WebTable Name=\"t\"><row " + Repeated(L"a=\"\" ", 5'000) + L"/></WebTable>"},
        {"the same attribute twice", L"<WebTable Name=\"t\"><row a=\"1\" a=\"2\"/></WebTable>"},
        {"zero reference", L"<WebTable Name=\"&#0;\"></WebTable>"},
        {"surrogate reference", L"<WebTable Name=\"&#xD800;\"></WebTable>"},
        {"huge reference", L"<WebTable Name=\"&#99999999999999999999;\"></WebTable>"},
        {"declaration of another encoding",
         L"<?xml version=\"1.0\" encoding=\"UTF-32\"?><WebData></WebData>"},
        {"open comment", L"<WebData><!-- "},
        {"open character data", L"<WebProfile><Name><![CDATA[x"},
        {"crossed list", Repeated(L"<ProfileIDs><ProfileID></ProfileIDs></ProfileID>", 500)},
        {"profiles of one name",
         L"<WebProfiles>" + ProfileDocument() + ProfileDocument() + L"</WebProfiles>"},
        {"self-closed root", L"<WebMessage Name=\"DLVData\"/>"},
        {"message without tables", L"<WebMessage Name=\"DLVData\"><WebData></WebData></WebMessage>"},
        {"two roots", L"<WebData></WebData><WebData></WebData>"},
    };
    for (const auto& [name, text] : harmful) all.push_back({name, [text](Random&) { return NewText(text); }});
}

void AddDocuments(std::vector<Text>& all) {
    for (const auto& [name, text] : Documents()) {
        all.push_back({name, [text](Random&) { return NewText(text); }});
        all.push_back({name + ", cut off", [text](Random& random) {
                           return NewText(
                               text.substr(0, random.Below(static_cast<std::uint32_t>(text.size()))));
                       }});
        for (const char* which : {"", " again"})
            all.push_back({name + ", damaged" + which,
                           [text](Random& random) { return NewText(Damaged(text, random)); }});
    }
}

}  // namespace

std::wstring GoodMessage(int figure) {
    std::wstring text = test::kSampleMessage;
    const std::wstring field = L"TechCount=\"4\"";
    return text.replace(text.find(field), field.size(), L"TechCount=\"" + std::to_wstring(figure) + L"\"");
}

const std::vector<Text>& Texts() {
    static const std::vector<Text> all = [] {
        std::vector<Text> made;
        AddPlain(made);
        AddHarmful(made);
        AddDocuments(made);
        return made;
    }();
    return all;
}

}  // namespace dlv::hostile
