#include "windows/com/Classes.h"

#include "DashlonViewer.h"
#include "windows/com/ComObject.h"
#include "windows/com/DLViewerControl.h"
#include "windows/com/ParamsObject.h"
#include "windows/webdata/DataItemObject.h"
#include "windows/webdata/MessageObject.h"
#include "windows/webdata/ProfileObject.h"
#include "windows/webdata/ProfilesObject.h"
#include "windows/webdata/TableObject.h"

namespace dlv {

namespace {

using Maker = ComPtr<IDispatch> (*)();

template <class Object>
ComPtr<IDispatch> Make() {
    const ComPtr<Object> made = MakeObject<Object>();
    return ComPtr<IDispatch>(static_cast<IDispatch*>(made.Get()));
}

struct Class {
    const CLSID& id;
    Maker make;
};

const Class kClasses[] = {
    {__uuidof(::DLViewer), Make<DLViewerControl>},   {__uuidof(::DLVParams), Make<ParamsObject>},
    {__uuidof(::QZWebMessage), Make<MessageObject>}, {__uuidof(::QZWebData), Make<DataItemObject>},
    {__uuidof(::QZWebTable), Make<TableObject>},     {__uuidof(::QZWebProfiles), Make<ProfilesObject>},
    {__uuidof(::QZWebProfile), Make<ProfileObject>}};

class Factory final : public ComObject<Implements<IClassFactory>> {
public:
    explicit Factory(Maker make) : make_(make) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        HRESULT answer = S_OK;
        const HRESULT made =
            GuardMethod(IID_IClassFactory, [&] { answer = make_()->QueryInterface(iid, object); });
        return FAILED(made) ? made : answer;
    }

    STDMETHODIMP LockServer(BOOL lock) override {
        if (lock != FALSE) {
            ModuleLock::Lock();
        } else {
            ModuleLock::Unlock();
        }
        return S_OK;
    }

private:
    const Maker make_;
};

}  // namespace

HRESULT GetFactory(REFCLSID id, REFIID iid, void** factory) noexcept {
    if (factory == nullptr) return E_POINTER;
    *factory = nullptr;
    for (const Class& known : kClasses) {
        if (!InlineIsEqualGUID(known.id, id)) continue;
        HRESULT answer = S_OK;
        const HRESULT made = GuardMethod(IID_IClassFactory, [&] {
            answer = MakeObject<Factory>(known.make)->QueryInterface(iid, factory);
        });
        return FAILED(made) ? made : answer;
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace dlv
