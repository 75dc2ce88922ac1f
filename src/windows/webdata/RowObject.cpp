#include "windows/webdata/RowObject.h"

namespace dlv {

STDMETHODIMP RowObject::get_Field(BSTR name, BSTR* value) {
    return GiveText(value, [&] { return Read(Narrow(name)); });
}

STDMETHODIMP RowObject::put_Field(BSTR name, BSTR value) {
    return Own([&] { Write(Narrow(name), Narrow(value)); });
}

}  // namespace dlv
