#include "windows/webdata/MessageObject.h"

#include <objbase.h>

#include "windows/webdata/DataItemObject.h"

namespace dlv {

namespace {

/// Known to this copy of the library alone: whoever answers to it is a MessageObject of ours.
const IID& OwnId() {
    static const IID id = [] {
        IID made;
        Check(CoCreateGuid(&made));
        return made;
    }();
    return id;
}

}  // namespace

std::shared_ptr<const MessageSource> MessageObject::Inside(IUnknown& object) {
    ComPtr<MessageObject> own;
    if (FAILED(object.QueryInterface(OwnId(), reinterpret_cast<void**>(own.GetAddressOf())))) return nullptr;
    return own->OnOwnThread() ? own->message_ : nullptr;
}

STDMETHODIMP MessageObject::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr || !InlineIsEqualGUID(iid, OwnId())) return DualObject::QueryInterface(iid, object);
    AddRef();
    *object = this;
    return S_OK;
}

STDMETHODIMP MessageObject::get_Name(BSTR* value) {
    return GiveText(value, [&] { return message_->Name(); });
}

STDMETHODIMP MessageObject::put_Name(BSTR value) {
    return Own([&] { message_->SetName(Narrow(value)); });
}

STDMETHODIMP MessageObject::get_Property(BSTR key, BSTR* value) {
    return GiveText(value, [&] { return message_->Property(Narrow(key)); });
}

STDMETHODIMP MessageObject::put_Property(BSTR key, BSTR value) {
    return Own([&] { message_->SetProperty(Narrow(key), Narrow(value)); });
}

STDMETHODIMP MessageObject::get_Data(LONG index, _QZWebData** value) {
    return GiveObject<DataItemObject>(value, [&] { return message_->Data(HostIndex(index)); });
}

STDMETHODIMP MessageObject::get_DataCount(LONG* value) {
    return GiveCount(value, [&] { return message_->DataCount(); });
}

STDMETHODIMP MessageObject::LoadText(BSTR text) {
    return Own([&] { message_->LoadText(Narrow(text)); });
}

STDMETHODIMP MessageObject::get_Text(BSTR* value) {
    return GiveText(value, [&] { return message_->Text(); });
}

}  // namespace dlv
