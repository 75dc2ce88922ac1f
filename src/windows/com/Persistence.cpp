#include "windows/com/Persistence.h"

#include <array>
#include <limits>

#include "DashlonViewer.h"
#include "Version.h"
#include "windows/com/Coercion.h"
#include "windows/com/ComError.h"

namespace dlv {

namespace {

// Tells our streams from others.
constexpr std::int32_t kMark = 0x56574C44;
constexpr std::int32_t kFormat = 1;
constexpr wchar_t kStreamName[] = L"Contents";
constexpr wchar_t kVersionName[] = L"_Version";
constexpr wchar_t kWidthName[] = L"_ExtentX";
constexpr wchar_t kHeightName[] = L"_ExtentY";

/// As it lies in a stream: numbers of 32 bits, low byte first, as all Windows has them.
struct Record {
    std::int32_t mark = kMark;
    std::int32_t format = kFormat;
    std::int32_t version = DLV_VERSION_MAJOR * 10000 + DLV_VERSION_MINOR * 100 + DLV_VERSION_PATCH;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

HRESULT GiveClass(CLSID* id) {
    if (id == nullptr) return E_POINTER;
    *id = __uuidof(::DLViewer);
    return S_OK;
}

std::optional<LONG> ReadNumber(IPropertyBag& bag, const wchar_t* name, IErrorLog* log) {
    Variant value;
    value->vt = VT_I4;
    if (FAILED(bag.Read(name, value.Address(), log))) return std::nullopt;
    return LongOf(*value);
}

void WriteNumber(IPropertyBag& bag, const wchar_t* name, LONG number) {
    Check(bag.Write(name, Variant(number).Address()));
}

}  // namespace

void SavedState::Take(SIZE extent) {
    if (extent_.SetHimetric(extent)) host_.Viewer().UserControl_Resize();
    SetClean();
}

void SavedState::Load(IStream& stream) {
    Record record;
    ULONG read = 0;
    Check(stream.Read(&record, sizeof record, &read));
    const bool ours = read == sizeof record && record.mark == kMark && record.format == kFormat;
    if (!ours || record.width < 0 || record.height < 0) throw ComError(STG_E_DOCFILECORRUPT);
    Take({record.width, record.height});
}

void SavedState::Save(IStream& stream) const {
    Record record;
    record.width = extent_.Himetric().cx;
    record.height = extent_.Himetric().cy;
    Check(stream.Write(&record, sizeof record, nullptr));
}

void SavedState::Load(IPropertyBag& bag, IErrorLog* log) {
    SIZE extent = extent_.Himetric();
    extent.cx = ReadNumber(bag, kWidthName, log).value_or(extent.cx);
    extent.cy = ReadNumber(bag, kHeightName, log).value_or(extent.cy);
    Take(extent);
}

void SavedState::Save(IPropertyBag& bag) const {
    Check(bag.Write(kVersionName, Variant(std::string_view(DLV_VERSION_TEXT)).Address()));
    WriteNumber(bag, kWidthName, extent_.Himetric().cx);
    WriteNumber(bag, kHeightName, extent_.Himetric().cy);
}

ULONG SavedState::Size() { return sizeof(Record); }

STDMETHODIMP PersistStreamPart::GetClassID(CLSID* id) { return GiveClass(id); }

STDMETHODIMP PersistStreamPart::IsDirty() { return state_.Dirty() ? S_OK : S_FALSE; }

STDMETHODIMP PersistStreamPart::Load(LPSTREAM stream) {
    if (stream == nullptr) return E_POINTER;
    return state_.Host().Method(IID_IPersistStreamInit, [&] { state_.Load(*stream); });
}

STDMETHODIMP PersistStreamPart::Save(LPSTREAM stream, BOOL clearDirty) {
    if (stream == nullptr) return E_POINTER;
    return state_.Host().Method(IID_IPersistStreamInit, [&] {
        state_.Save(*stream);
        if (clearDirty != FALSE) state_.SetClean();
    });
}

STDMETHODIMP PersistStreamPart::GetSizeMax(ULARGE_INTEGER* size) {
    if (size == nullptr) return E_POINTER;
    size->QuadPart = SavedState::Size();
    return S_OK;
}

STDMETHODIMP PersistStreamPart::InitNew() { return S_OK; }

STDMETHODIMP PersistStoragePart::GetClassID(CLSID* id) { return GiveClass(id); }

STDMETHODIMP PersistStoragePart::IsDirty() { return state_.Dirty() ? S_OK : S_FALSE; }

STDMETHODIMP PersistStoragePart::InitNew(IStorage* storage) { return storage == nullptr ? E_POINTER : S_OK; }

STDMETHODIMP PersistStoragePart::Load(IStorage* storage) {
    if (storage == nullptr) return E_POINTER;
    return state_.Host().Method(IID_IPersistStorage, [&] {
        ComPtr<IStream> stream;
        Check(storage->OpenStream(kStreamName, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, &stream));
        state_.Load(*stream.Get());
    });
}

STDMETHODIMP PersistStoragePart::Save(IStorage* storage, BOOL) {
    if (storage == nullptr) return E_POINTER;
    return state_.Host().Method(IID_IPersistStorage, [&] {
        ComPtr<IStream> stream;
        Check(storage->CreateStream(kStreamName, STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                                    &stream));
        state_.Save(*stream.Get());
        state_.SetClean();
    });
}

STDMETHODIMP PersistStoragePart::SaveCompleted(IStorage*) { return S_OK; }

STDMETHODIMP PersistStoragePart::HandsOffStorage() { return S_OK; }

STDMETHODIMP PersistBagPart::GetClassID(CLSID* id) { return GiveClass(id); }

STDMETHODIMP PersistBagPart::InitNew() { return S_OK; }

STDMETHODIMP PersistBagPart::Load(IPropertyBag* bag, IErrorLog* log) {
    if (bag == nullptr) return E_POINTER;
    return state_.Host().Method(IID_IPersistPropertyBag, [&] { state_.Load(*bag, log); });
}

STDMETHODIMP PersistBagPart::Save(IPropertyBag* bag, BOOL clearDirty, BOOL) {
    if (bag == nullptr) return E_POINTER;
    return state_.Host().Method(IID_IPersistPropertyBag, [&] {
        state_.Save(*bag);
        if (clearDirty != FALSE) state_.SetClean();
    });
}

}  // namespace dlv
