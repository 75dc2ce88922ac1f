#include "hosts/container/AdviseSink.h"

namespace dlv::container {

STDMETHODIMP_(void) AdviseSink::OnDataChange(FORMATETC*, STGMEDIUM*) { Hear("IAdviseSink.OnDataChange"); }

STDMETHODIMP_(void) AdviseSink::OnViewChange(DWORD, LONG) { Hear("IAdviseSink.OnViewChange"); }

STDMETHODIMP_(void) AdviseSink::OnRename(IMoniker*) { Hear("IAdviseSink.OnRename"); }

STDMETHODIMP_(void) AdviseSink::OnSave() { Hear("IAdviseSink.OnSave"); }

STDMETHODIMP_(void) AdviseSink::OnClose() { Hear("IAdviseSink.OnClose"); }

}  // namespace dlv::container
