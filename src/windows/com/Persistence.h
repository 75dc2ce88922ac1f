// What a container keeps of the control between sessions: the version that wrote it and the extent, in a
// stream, a storage or a property bag.
#pragma once

#include "windows/com/PlainWindows.h"

#include <ocidl.h>

#include "windows/com/ComObject.h"
#include "windows/com/Extent.h"
#include "windows/com/OleObjectPart.h"

namespace dlv {

/// The content of the saved state, common to its three forms.
class SavedState {
public:
    SavedState(WindowHost& host, Extent& extent, Persisted& persisted)
        : host_(host), extent_(extent), persisted_(persisted) {}

    WindowHost& Host() { return host_; }
    bool Dirty() const { return persisted_.dirty; }
    void SetClean() { persisted_.dirty = false; }

    void Load(IStream& stream);
    void Save(IStream& stream) const;
    void Load(IPropertyBag& bag, IErrorLog* log);
    void Save(IPropertyBag& bag) const;
    static ULONG Size();

private:
    void Take(SIZE extent);

    WindowHost& host_;
    Extent& extent_;
    Persisted& persisted_;
};

class PersistStreamPart final : public ComPart<Implements<IPersistStreamInit, IPersist>> {
public:
    PersistStreamPart(IUnknown& whole, SavedState& state) : ComPart(whole), state_(state) {}

    STDMETHODIMP GetClassID(CLSID* id) override;
    STDMETHODIMP IsDirty() override;
    STDMETHODIMP Load(LPSTREAM stream) override;
    STDMETHODIMP Save(LPSTREAM stream, BOOL clearDirty) override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
    STDMETHODIMP InitNew() override;

private:
    SavedState& state_;
};

class PersistStoragePart final : public ComPart<Implements<IPersistStorage>> {
public:
    PersistStoragePart(IUnknown& whole, SavedState& state) : ComPart(whole), state_(state) {}

    STDMETHODIMP GetClassID(CLSID* id) override;
    STDMETHODIMP IsDirty() override;
    STDMETHODIMP InitNew(IStorage* storage) override;
    STDMETHODIMP Load(IStorage* storage) override;
    STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) override;
    STDMETHODIMP SaveCompleted(IStorage* storage) override;
    STDMETHODIMP HandsOffStorage() override;

private:
    /// What the container has allowed: nothing of its storage is kept between two calls, but the order of
    /// them is held to.
    enum class Stage { Uninitialized, Normal, NoScribble, HandsOff };

    template <class Body>
    HRESULT Method(Body&& body);

    SavedState& state_;
    Stage stage_ = Stage::Uninitialized;
    bool savedToOwn_ = false;
};

class PersistBagPart final : public ComPart<Implements<IPersistPropertyBag>> {
public:
    PersistBagPart(IUnknown& whole, SavedState& state) : ComPart(whole), state_(state) {}

    STDMETHODIMP GetClassID(CLSID* id) override;
    STDMETHODIMP InitNew() override;
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL allProperties) override;

private:
    SavedState& state_;
};

}  // namespace dlv
