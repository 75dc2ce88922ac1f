// What a container keeps of the control, in streams, storages and property bags, and what it gets back of
// them.
#include <ocidl.h>

#include <array>
#include <map>

#include "tests/windows/Support.h"

namespace dlv::test {
namespace {

constexpr SIZE kDefault{25400, 16933};
constexpr SIZE kSaved{20000, 10000};

SIZE ExtentOf(IUnknown* control) {
    SIZE extent{};
    EXPECT_EQ(As<IOleObject>(control)->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
    return extent;
}

void ExpectExtent(IUnknown* control, SIZE wanted) {
    const SIZE extent = ExtentOf(control);
    EXPECT_EQ(extent.cx, wanted.cx);
    EXPECT_EQ(extent.cy, wanted.cy);
}

ComPtr<_DLViewer> Sized(SIZE extent) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    EXPECT_EQ(As<IOleObject>(viewer.Get())->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    return viewer;
}

ComPtr<IStream> StreamOf(const void* bytes, std::size_t count) {
    ComPtr<IStream> stream;
    EXPECT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
    EXPECT_EQ(stream->Write(bytes, static_cast<ULONG>(count), nullptr), S_OK);
    EXPECT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    return stream;
}

ComPtr<IStorage> NewStorage() {
    ComPtr<ILockBytes> bytes;
    ComPtr<IStorage> storage;
    EXPECT_EQ(CreateILockBytesOnHGlobal(nullptr, TRUE, &bytes), S_OK);
    EXPECT_EQ(StgCreateDocfileOnILockBytes(bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE,
                                           0, &storage),
              S_OK);
    return storage;
}

using Record = std::array<std::int32_t, 5>;  // mark, format, version, width, height

Record SavedRecord() {
    ComPtr<IStream> stream = StreamOf(nullptr, 0);
    EXPECT_EQ(As<IPersistStreamInit>(Sized(kSaved).Get())->Save(stream.Get(), TRUE), S_OK);
    EXPECT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    Record record{};
    ULONG read = 0;
    EXPECT_EQ(stream->Read(record.data(), sizeof record, &read), S_OK);
    EXPECT_EQ(read, sizeof record);
    return record;
}

struct StreamCase {
    const char* name;
    std::function<void(Record&)> change;
    std::size_t bytes = sizeof(Record);
    HRESULT result = STG_E_DOCFILECORRUPT;
    friend void PrintTo(const StreamCase& test, std::ostream* out) { *out << test.name; }
};

class Streams : public testing::TestWithParam<StreamCase> {};

TEST_P(Streams, AreTakenWholeOrNotAtAll) {
    Record record = SavedRecord();
    GetParam().change(record);
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    const ComPtr<IStream> stream = StreamOf(record.data(), GetParam().bytes);
    EXPECT_EQ(As<IPersistStreamInit>(viewer.Get())->Load(stream.Get()), GetParam().result);
    ExpectExtent(viewer.Get(), GetParam().result == S_OK ? kSaved : kDefault);
}

INSTANTIATE_TEST_SUITE_P(
    Contents, Streams,
    testing::Values(StreamCase{"as saved", [](Record&) {}, sizeof(Record), S_OK},
                    StreamCase{"by a later version", [](Record& r) { r[2] = 990000; }, sizeof(Record), S_OK},
                    StreamCase{"in a later format", [](Record& r) { r[1] = 2; }, sizeof(Record),
                               STG_E_OLDDLL},
                    StreamCase{"in no format", [](Record& r) { r[1] = 0; }},
                    StreamCase{"of somebody else", [](Record& r) { r[0] ^= 1; }},
                    StreamCase{"a negative width", [](Record& r) { r[3] = -1; }},
                    StreamCase{"a negative height", [](Record& r) { r[4] = INT32_MIN; }},
                    StreamCase{"empty", [](Record&) {}, 0}, StreamCase{"one byte", [](Record&) {}, 1},
                    StreamCase{"a byte short", [](Record&) {}, sizeof(Record) - 1}));

TEST(Persistence, AStreamIsReadFromWhereItStandsAndNoFurther) {
    const Record record = SavedRecord();
    std::string bytes =
        "before" + std::string(reinterpret_cast<const char*>(record.data()), sizeof record) + "after";
    const ComPtr<IStream> stream = StreamOf(bytes.data(), bytes.size());
    LARGE_INTEGER place{};
    place.QuadPart = 6;
    ASSERT_EQ(stream->Seek(place, STREAM_SEEK_SET, nullptr), S_OK);
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    EXPECT_EQ(As<IPersistStreamInit>(viewer.Get())->Load(stream.Get()), S_OK);
    char rest[8] = {};
    EXPECT_TRUE(SUCCEEDED(stream->Read(rest, 5, nullptr)));
    EXPECT_STREQ(rest, "after");
    ULARGE_INTEGER size{};
    EXPECT_EQ(As<IPersistStreamInit>(viewer.Get())->GetSizeMax(&size), S_OK);
    EXPECT_EQ(size.QuadPart, sizeof record);
}

TEST(Persistence, ANewControlMayBeMadeNewAgainAndThenLoaded) {
    const ComPtr<_DLViewer> viewer = Sized(kSaved);
    const auto persist = As<IPersistStreamInit>(viewer.Get());
    EXPECT_EQ(persist->InitNew(), S_OK);
    EXPECT_EQ(persist->InitNew(), S_OK);
    EXPECT_EQ(As<IPersistPropertyBag>(viewer.Get())->InitNew(), S_OK);
    ExpectExtent(viewer.Get(), kSaved);
    Record record = SavedRecord();
    record[3] = 5000;
    EXPECT_EQ(persist->Load(StreamOf(record.data(), sizeof record).Get()), S_OK);
    ExpectExtent(viewer.Get(), {5000, kSaved.cy});
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
}

TEST(Persistence, ASaveThatKeepsTheChangesInMindLeavesThemDirty) {
    const ComPtr<_DLViewer> viewer = Sized(kSaved);
    const auto persist = As<IPersistStreamInit>(viewer.Get());
    EXPECT_EQ(persist->IsDirty(), S_OK);
    EXPECT_EQ(persist->Save(StreamOf(nullptr, 0).Get(), FALSE), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_OK);
    EXPECT_EQ(persist->Save(StreamOf(nullptr, 0).Get(), TRUE), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
}

TEST(Storages, AreKeptToTheirThreeStages) {
    const ComPtr<_DLViewer> viewer = Sized(kSaved);
    const auto persist = As<IPersistStorage>(viewer.Get());
    const ComPtr<IStorage> own = NewStorage();
    const ComPtr<IStorage> other = NewStorage();
    EXPECT_EQ(persist->HandsOffStorage(), E_UNEXPECTED) << "there is none yet";
    EXPECT_EQ(persist->SaveCompleted(nullptr), E_UNEXPECTED);
    ASSERT_EQ(persist->InitNew(own.Get()), S_OK);
    EXPECT_EQ(persist->InitNew(own.Get()), CO_E_ALREADYINITIALIZED);
    EXPECT_EQ(persist->Load(own.Get()), CO_E_ALREADYINITIALIZED);

    // A copy for somebody else: the control stays as changed as it was.
    EXPECT_EQ(persist->Save(other.Get(), FALSE), S_OK);
    EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_OK);
    EXPECT_EQ(persist->SaveCompleted(nullptr), E_UNEXPECTED) << "nothing was saved since";

    EXPECT_EQ(persist->Save(own.Get(), TRUE), S_OK);
    EXPECT_EQ(persist->HandsOffStorage(), S_OK);
    EXPECT_EQ(persist->Save(own.Get(), TRUE), E_UNEXPECTED) << "hands off";
    EXPECT_EQ(persist->SaveCompleted(nullptr), E_INVALIDARG) << "there is no storage to go back to";
    EXPECT_EQ(persist->SaveCompleted(own.Get()), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);

    const ComPtr<_DLViewer> copy = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(As<IPersistStorage>(copy.Get())->Load(other.Get()), S_OK);
    ExpectExtent(copy.Get(), kSaved);
    EXPECT_EQ(ReferencesOf(own.Get()), 1u) << "no storage is held";
}

TEST(Storages, WithoutOurStreamAreRefused) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    const auto persist = As<IPersistStorage>(viewer.Get());
    EXPECT_EQ(persist->Load(NewStorage().Get()), STG_E_FILENOTFOUND);
    EXPECT_EQ(persist->InitNew(NewStorage().Get()), S_OK) << "the failure did not count";
}

/// A property bag of a host that reads its values from a text.
class Bag final : public container::Unknown<IPropertyBag, IErrorLog> {
public:
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
        const auto found = values.find(name);
        return found == values.end() ? E_INVALIDARG : VariantCopy(value, &found->second);
    }
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override {
        if (failing) return E_FAIL;
        values[name] = *value;
        return S_OK;
    }
    STDMETHODIMP AddError(LPCOLESTR name, EXCEPINFO* error) override {
        errors.emplace_back(name);
        EXPECT_TRUE(FAILED(error->scode));
        EXPECT_NE(error->bstrDescription, nullptr);
        return S_OK;
    }
    std::map<std::wstring, _variant_t> values;
    std::vector<std::wstring> errors;
    bool failing = false;
};

TEST(PropertyBags, GiveBackWhatWasSaved) {
    const auto bag = container::Make<Bag>();
    const ComPtr<_DLViewer> first = Sized(kSaved);
    ASSERT_EQ(As<IPersistPropertyBag>(first.Get())->Save(bag.Get(), TRUE, TRUE), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>(first.Get())->IsDirty(), S_FALSE);
    EXPECT_EQ(bag->values.size(), 3u);
    const ComPtr<_DLViewer> second = New<_DLViewer>(L"DLViewer");
    EXPECT_EQ(As<IPersistPropertyBag>(second.Get())->Load(bag.Get(), bag.Get()), S_OK);
    ExpectExtent(second.Get(), kSaved);
    EXPECT_TRUE(bag->errors.empty());
    bag->failing = true;
    EXPECT_EQ(As<IPersistPropertyBag>(second.Get())->Save(bag.Get(), TRUE, TRUE), E_FAIL);
}

struct BagCase {
    const char* name;
    std::map<std::wstring, _variant_t> values;
    SIZE extent;
    std::vector<std::wstring> errors;
    friend void PrintTo(const BagCase& test, std::ostream* out) { *out << test.name; }
};

class BagContents : public testing::TestWithParam<BagCase> {};

TEST_P(BagContents, AreTakenAsFarAsTheyGoAndTheRestIsLogged) {
    const auto bag = container::Make<Bag>();
    bag->values = GetParam().values;
    for (IErrorLog* log : {static_cast<IErrorLog*>(bag.Get()), static_cast<IErrorLog*>(nullptr)}) {
        const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
        EXPECT_EQ(As<IPersistPropertyBag>(viewer.Get())->Load(bag.Get(), log), S_OK);
        ExpectExtent(viewer.Get(), GetParam().extent);
    }
    EXPECT_EQ(bag->errors, GetParam().errors);
}

INSTANTIATE_TEST_SUITE_P(
    Values, BagContents,
    testing::Values(
        BagCase{"empty", {}, kDefault, {}},
        BagCase{"numbers", {{L"_ExtentX", 5000L}, {L"_ExtentY", 4000L}}, {5000, 4000}, {}},
        BagCase{"texts", {{L"_ExtentX", L"5000"}, {L"_ExtentY", L"4000"}}, {5000, 4000}, {}},
        BagCase{"one of two", {{L"_ExtentX", 5000L}}, {5000, kDefault.cy}, {}},
        BagCase{"no number", {{L"_ExtentX", L"wide"}}, kDefault, {L"_ExtentX"}},
        BagCase{"negative", {{L"_ExtentX", 5000L}, {L"_ExtentY", -1L}}, {5000, kDefault.cy}, {L"_ExtentY"}},
        BagCase{"out of range",
                {{L"_ExtentX", 1e300}, {L"_ExtentY", L""}},
                kDefault,
                {L"_ExtentX", L"_ExtentY"}}));

}  // namespace
}  // namespace dlv::test
