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

HRESULT GiveClass(WindowHost& host, CLSID* id) {
    if (id == nullptr) return E_POINTER;
    *id = CLSID_NULL;
    return host.Method(IID_IPersist, [&] { *id = __uuidof(::DLViewer); });
}

HRESULT TellDirty(SavedState& state) {
    return state.Host().Method(IID_IPersist, [&] { return state.Dirty() ? S_OK : S_FALSE; });
}

/// Tells the container's log why a property is left as it is.
void LogError(IErrorLog* log, const wchar_t* name, HRESULT result, std::wstring_view text) {
    if (log == nullptr) return;
    const Bstr source(L"DashlonViewer");
    const Bstr description(text);
    EXCEPINFO error{};
    error.scode = result;
    error.bstrSource = source.Get();
    error.bstrDescription = description.Get();
    log->AddError(name, &error);
}

/// Nothing where the bag has no such property, and where it is no extent, which the log is told.
std::optional<LONG> ReadExtent(IPropertyBag& bag, const wchar_t* name, IErrorLog* log) {
    Variant value;
    value->vt = VT_I4;
    if (FAILED(bag.Read(name, value.Address(), log))) return std::nullopt;
    LONG extent = -1;
    const HRESULT result = GuardMethod(IID_NULL, [&] { extent = LongOf(*value); });
    if (SUCCEEDED(result) && extent >= 0) return extent;
    LogError(log, name, FAILED(result) ? result : E_INVALIDARG, L"An extent is a number from 0");
    return std::nullopt;
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
    if (read != sizeof record || record.mark != kMark) throw ComError(STG_E_DOCFILECORRUPT);
    // Written by a later version in a way that this one does not know.
    if (record.format > kFormat) throw ComError(STG_E_OLDDLL);
    if (record.format < 1 || record.width < 0 || record.height < 0) throw ComError(STG_E_DOCFILECORRUPT);
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
    extent.cx = ReadExtent(bag, kWidthName, log).value_or(extent.cx);
    extent.cy = ReadExtent(bag, kHeightName, log).value_or(extent.cy);
    Take(extent);
}

void SavedState::Save(IPropertyBag& bag) const {
    Check(bag.Write(kVersionName, Variant(std::string_view(DLV_VERSION_TEXT)).Address()));
    WriteNumber(bag, kWidthName, extent_.Himetric().cx);
    WriteNumber(bag, kHeightName, extent_.Himetric().cy);
}

ULONG SavedState::Size() { return sizeof(Record); }

STDMETHODIMP PersistStreamPart::GetClassID(CLSID* id) { return GiveClass(state_.Host(), id); }

STDMETHODIMP PersistStreamPart::IsDirty() { return TellDirty(state_); }

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
    size->QuadPart = 0;
    return state_.Host().Method(IID_IPersistStreamInit, [&] { size->QuadPart = SavedState::Size(); });
}

STDMETHODIMP PersistStreamPart::InitNew() {
    return state_.Host().Method(IID_IPersistStreamInit, [] {});
}

STDMETHODIMP PersistStoragePart::GetClassID(CLSID* id) { return GiveClass(state_.Host(), id); }

STDMETHODIMP PersistStoragePart::IsDirty() { return TellDirty(state_); }

template <class Body>
HRESULT PersistStoragePart::Method(Body&& body) {
    return state_.Host().Method(IID_IPersistStorage, body);
}

STDMETHODIMP PersistStoragePart::InitNew(IStorage* storage) {
    if (storage == nullptr) return E_POINTER;
    return Method([&] {
        if (stage_ != Stage::Uninitialized) return CO_E_ALREADYINITIALIZED;
        stage_ = Stage::Normal;
        return S_OK;
    });
}

STDMETHODIMP PersistStoragePart::Load(IStorage* storage) {
    if (storage == nullptr) return E_POINTER;
    return Method([&] {
        if (stage_ != Stage::Uninitialized) return CO_E_ALREADYINITIALIZED;
        ComPtr<IStream> stream;
        Check(storage->OpenStream(kStreamName, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, &stream));
        state_.Load(*stream.Get());
        stage_ = Stage::Normal;
        return S_OK;
    });
}

// A control that came to life in another way may be saved into a storage all the same.
STDMETHODIMP PersistStoragePart::Save(IStorage* storage, BOOL sameAsLoad) {
    if (storage == nullptr) return E_POINTER;
    return Method([&] {
        if (stage_ == Stage::HandsOff) return E_UNEXPECTED;
        ComPtr<IStream> stream;
        Check(storage->CreateStream(kStreamName, STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                                    &stream));
        state_.Save(*stream.Get());
        stage_ = Stage::NoScribble;
        savedToOwn_ = sameAsLoad != FALSE;
        return S_OK;
    });
}

STDMETHODIMP PersistStoragePart::SaveCompleted(IStorage* storage) {
    return Method([&] {
        if (stage_ != Stage::NoScribble && stage_ != Stage::HandsOff) return E_UNEXPECTED;
        // Hands off, there is no storage to go back to but a new one.
        if (stage_ == Stage::HandsOff && storage == nullptr) return E_INVALIDARG;
        // A copy for somebody else leaves the control as changed as it was.
        if (savedToOwn_ || storage != nullptr) state_.SetClean();
        savedToOwn_ = false;
        stage_ = Stage::Normal;
        return S_OK;
    });
}

STDMETHODIMP PersistStoragePart::HandsOffStorage() {
    return Method([&] {
        if (stage_ == Stage::Uninitialized) return E_UNEXPECTED;
        stage_ = Stage::HandsOff;
        return S_OK;
    });
}

STDMETHODIMP PersistBagPart::GetClassID(CLSID* id) { return GiveClass(state_.Host(), id); }

STDMETHODIMP PersistBagPart::InitNew() {
    return state_.Host().Method(IID_IPersistPropertyBag, [] {});
}

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
