// A message for the control, as hosts see it. The control reads its own kind of message directly, without the
// detour through the interface.
#pragma once

#include "webdata/QZWebMessage.h"
#include "windows/webdata/DataObject.h"

namespace dlv {

class MessageObject final : public DataObject<::QZWebMessage, _QZWebMessage> {
public:
    /// The message inside an object of this library; null for any other object.
    static std::shared_ptr<const MessageSource> Inside(IUnknown& object);

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;

    STDMETHODIMP get_Name(BSTR* value) override;
    STDMETHODIMP put_Name(BSTR value) override;
    STDMETHODIMP get_Property(BSTR key, BSTR* value) override;
    STDMETHODIMP put_Property(BSTR key, BSTR value) override;
    STDMETHODIMP get_Data(LONG index, _QZWebData** value) override;
    STDMETHODIMP get_DataCount(LONG* value) override;
    STDMETHODIMP LoadText(BSTR text) override;
    STDMETHODIMP get_Text(BSTR* value) override;

private:
    std::shared_ptr<QZWebMessage> message_ = std::make_shared<QZWebMessage>();
};

}  // namespace dlv
