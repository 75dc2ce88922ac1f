// fill [ROUNDS] : a message of 10,000 detail rows on its way into the control, made from arrays against the
// same from its text. Both take turns; the best run of each counts, the first being cold. The control has no
// window.
#include <windows.h>

#include <comutil.h>
#include <ole2.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/windows/Calls.h"
#include "hosts/container/Library.h"

namespace {

using dlv::bench::Need;
using dlv::bench::Now;
using dlv::bench::StartUp;
using dlv::container::Library;
using Microsoft::WRL::ComPtr;

constexpr LONG kRows = 10000;
constexpr LONG kTypes = 6;
constexpr LONG kClasses = 8;
constexpr LONG kUnits = (kRows + kTypes * kClasses - 1) / (kTypes * kClasses);
const wchar_t* const kCounters[] = {
    L"WOOpen",  L"WOWarning",  L"WOJeopardy",  L"WOLate",  L"WOCompleted",  L"WOCanceled",  L"WONotDone",
    L"PtsOpen", L"PtsWarning", L"PtsJeopardy", L"PtsLate", L"PtsCompleted", L"PtsCanceled", L"PtsNotDone"};

std::wstring Code(const wchar_t* kind, LONG number) { return kind + std::to_wstring(number); }

/// A table as a host's program has it at hand.
struct Table {
    const wchar_t* name;
    std::vector<std::wstring> columns;
    std::vector<std::vector<_variant_t>> rows;
};

_variant_t Text(const std::wstring& text) { return text.c_str(); }

std::vector<Table> MakeTables() {
    std::vector<Table> tables{
        {L"BusinessUnits", {L"BUID", L"BUDesc", L"ParentBUID"}, {}},
        {L"JobTypes", {L"JobType", L"JobTypeDesc"}, {}},
        {L"JobClasses", {L"JobClass", L"JobClassDesc"}, {}},
        {L"RegionalFormats", {L"languageCode", L"timeformat"}, {{L"EN", L"hh:mm"}}},
        {L"BUGeneralInfo", {L"BUID", L"BUDesc", L"TechCount", L"HoursWorked", L"HoursRemaining"}, {}},
        {L"BUDetailsInfo", {L"BUID", L"JobType", L"JobClass"}, {}}};
    for (LONG unit = 1; unit <= kUnits; ++unit) {
        const std::wstring id = Code(L"U", unit);
        tables[0].rows.push_back({Text(id), Text(L"Unit " + id), Text(L"#")});
        tables[4].rows.push_back({Text(id), Text(L"Unit " + id), unit % 9, unit % 70, unit % 30});
    }
    for (LONG type = 1; type <= kTypes; ++type)
        tables[1].rows.push_back({Text(Code(L"T", type)), Text(L"Type " + std::to_wstring(type))});
    for (LONG job = 1; job <= kClasses; ++job)
        tables[2].rows.push_back({Text(Code(L"C", job)), Text(L"Class " + std::to_wstring(job))});
    for (const wchar_t* counter : kCounters) tables[5].columns.emplace_back(counter);
    for (LONG row = 0; row < kRows; ++row) {
        const LONG unit = row / (kTypes * kClasses) + 1;
        std::vector<_variant_t> values{Text(Code(L"U", unit)), Text(Code(L"T", row / kClasses % kTypes + 1)),
                                       Text(Code(L"C", row % kClasses + 1))};
        for (LONG counter = 0; counter < 14; ++counter) values.emplace_back((row * 7 + counter * 13) % 100);
        tables[5].rows.push_back(std::move(values));
    }
    return tables;
}

enum class Values { AsTheyAre, AsTexts };

struct Arrays {
    const wchar_t* name;
    _variant_t columns;
    _variant_t values;
};

Arrays MakeArrays(const Table& table, Values kind) {
    Arrays arrays{table.name, {}, {}};
    const auto width = static_cast<LONG>(table.columns.size());
    arrays.columns.vt = VT_ARRAY | VT_BSTR;
    arrays.columns.parray = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(width));
    for (LONG i = 0; i < width; ++i)
        Need(SafeArrayPutElement(arrays.columns.parray, &i,
                                 _bstr_t(table.columns[static_cast<std::size_t>(i)].c_str()).GetBSTR()),
             "array");
    const VARTYPE type = kind == Values::AsTexts ? VT_BSTR : VT_VARIANT;
    SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(table.rows.size()), 1}, {static_cast<ULONG>(width), 1}};
    arrays.values.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    arrays.values.parray = SafeArrayCreate(type, 2, bounds);
    for (LONG row = 1; row <= static_cast<LONG>(table.rows.size()); ++row)
        for (LONG column = 1; column <= width; ++column) {
            LONG place[2] = {row, column};
            _variant_t value =
                table.rows[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)];
            if (kind == Values::AsTexts) value.ChangeType(VT_BSTR);
            void* element = kind == Values::AsTexts ? static_cast<void*>(value.bstrVal) : &value;
            Need(SafeArrayPutElement(arrays.values.parray, place, element), "array");
        }
    return arrays;
}

class Bench {
public:
    explicit Bench(const Library& library) : library_(library) {
        Need(Make(L"DLViewer").As(&viewer_), "control");
        std::vector<std::wstring> ids;
        for (LONG i = 1; i <= kUnits; ++i) ids.push_back(Code(L"U", i));
        StartUp(*viewer_.Get(), ids);
    }
    ~Bench() { viewer_->StopControl(); }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    ComPtr<_QZWebMessage> FromArrays(const std::vector<Arrays>& tables) const {
        ComPtr<_QZWebMessage> message = NewMessage();
        Need(message->put_Name(_bstr_t(L"DLVData")), "Name");
        ComPtr<_QZWebData> data;
        Need(message->get_Data(1, &data), "Data");
        for (const Arrays& arrays : tables) {
            ComPtr<_QZWebTable> table;
            Need(data->AddTable(_bstr_t(arrays.name), &table), "AddTable");
            Need(table->Fill(arrays.columns, arrays.values), "Fill");
        }
        return message;
    }
    ComPtr<_QZWebMessage> FromText(BSTR text) const {
        ComPtr<_QZWebMessage> message = NewMessage();
        Need(message->LoadText(text), "LoadText");
        return message;
    }
    void Push(const ComPtr<_QZWebMessage>& message) const {
        dlv::bench::Push(*viewer_.Get(), *message.Get());
    }

private:
    ComPtr<IUnknown> Make(const wchar_t* name) const {
        return library_.Create((std::wstring(L"DashlonViewer.") + name).c_str());
    }
    ComPtr<_QZWebMessage> NewMessage() const {
        ComPtr<_QZWebMessage> message;
        Need(Make(L"QZWebMessage").As(&message), "QZWebMessage");
        return message;
    }

    const Library& library_;
    ComPtr<_DLViewer> viewer_;
};

/// One way to the same message, with the best time of making it and of making and pushing it.
struct Way {
    const char* name;
    double made = 1e9;
    double pushed = 1e9;

    template <class Make>
    void Run(const Bench& bench, Make make, bool counts) {
        const double start = Now();
        const ComPtr<_QZWebMessage> message = make();
        const double middle = Now();
        bench.Push(message);
        const double end = Now();
        if (!counts) return;
        made = std::min(made, middle - start);
        pushed = std::min(pushed, end - start);
    }
};

void Measure(int rounds) {
    const Library library(dlv::container::BesideProgram(L"DashlonViewer.manifest"));
    const Bench bench(library);
    std::vector<Arrays> values;
    std::vector<Arrays> texts;
    for (const Table& table : MakeTables()) {
        values.push_back(MakeArrays(table, Values::AsTheyAre));
        texts.push_back(MakeArrays(table, Values::AsTexts));
    }
    _bstr_t document;
    Need(bench.FromArrays(values)->get_Text(document.GetAddress()), "Text");
    _bstr_t same;
    Need(bench.FromArrays(texts)->get_Text(same.GetAddress()), "Text");
    if (document != same) Need(E_FAIL, "both arrays make the same message");

    Way ways[] = {{"text"}, {"array of values"}, {"array of texts"}};
    for (int round = 0; round <= rounds; ++round) {
        ways[0].Run(
            bench, [&] { return bench.FromText(document.GetBSTR()); }, round > 0);
        ways[1].Run(
            bench, [&] { return bench.FromArrays(values); }, round > 0);
        ways[2].Run(
            bench, [&] { return bench.FromArrays(texts); }, round > 0);
    }
    std::printf("A message of %ld detail rows, %u characters as text; best of %d warm runs each, in turns\n",
                kRows, document.length(), rounds);
    for (const Way& way : ways)
        std::printf("%-16s made in %7.2f ms, made and pushed in %7.2f ms, ratio to text %.2f\n", way.name,
                    way.made, way.pushed, way.pushed / ways[0].pushed);
}

}  // namespace

int main(int argc, char** argv) {
    Need(OleInitialize(nullptr), "OleInitialize");
    Measure(argc > 1 ? std::max(1, std::atoi(argv[1])) : 20);
    OleUninitialize();
    return 0;
}
