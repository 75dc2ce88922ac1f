// The record DLVParams as hosts see it.
#pragma once

#include "windows/com/PlainWindows.h"

#include "DashlonViewer.h"
#include "webdata/DLVParams.h"
#include "windows/com/DualObject.h"

namespace dlv {

class ParamsObject final : public DualObject<::DLVParams, _DLVParams, void, MethodGuard> {
public:
    explicit ParamsObject(DLVParams params = {}) : params_(std::move(params)) {}

    STDMETHODIMP get_BUID(BSTR* value) override { return Get(params_.BUID, value); }
    STDMETHODIMP put_BUID(BSTR value) override { return Put(params_.BUID, value); }
    STDMETHODIMP get_JobType(BSTR* value) override { return Get(params_.JobType, value); }
    STDMETHODIMP put_JobType(BSTR value) override { return Put(params_.JobType, value); }
    STDMETHODIMP get_JobClass(BSTR* value) override { return Get(params_.JobClass, value); }
    STDMETHODIMP put_JobClass(BSTR value) override { return Put(params_.JobClass, value); }
    STDMETHODIMP get_JobStatus(BSTR* value) override { return Get(params_.JobStatus, value); }
    STDMETHODIMP put_JobStatus(BSTR value) override { return Put(params_.JobStatus, value); }
    STDMETHODIMP get_Info(BSTR* value) override { return Get(params_.Info, value); }
    STDMETHODIMP put_Info(BSTR value) override { return Put(params_.Info, value); }
    STDMETHODIMP get_JeopardyThreshold(BSTR* value) override { return Get(params_.JeopardyThreshold, value); }
    STDMETHODIMP put_JeopardyThreshold(BSTR value) override { return Put(params_.JeopardyThreshold, value); }
    STDMETHODIMP get_ProfileName(BSTR* value) override { return Get(params_.ProfileName, value); }
    STDMETHODIMP put_ProfileName(BSTR value) override { return Put(params_.ProfileName, value); }
    STDMETHODIMP get_UserID(BSTR* value) override { return Get(params_.UserID, value); }
    STDMETHODIMP put_UserID(BSTR value) override { return Put(params_.UserID, value); }
    STDMETHODIMP get_ApplicationID(BSTR* value) override { return Get(params_.ApplicationID, value); }
    STDMETHODIMP put_ApplicationID(BSTR value) override { return Put(params_.ApplicationID, value); }
    STDMETHODIMP get_ProfilesXML(BSTR* value) override { return Get(params_.ProfilesXML, value); }
    STDMETHODIMP put_ProfilesXML(BSTR value) override { return Put(params_.ProfilesXML, value); }
    STDMETHODIMP get_ResultXML(BSTR* value) override { return Get(params_.ResultXML, value); }
    STDMETHODIMP put_ResultXML(BSTR value) override { return Put(params_.ResultXML, value); }

private:
    HRESULT Get(const std::string& text, BSTR* value);
    HRESULT Put(std::string& text, BSTR value);

    DLVParams params_;
};

}  // namespace dlv
