#include "hosts/container/EventRecord.h"

#include <utility>

namespace dlv::container {

std::vector<EventField> FilledFields(_DLVParams& record) {
    const std::pair<const char*, HRESULT (STDMETHODCALLTYPE _DLVParams::*)(BSTR*)> members[] = {
        {"BUID", &_DLVParams::get_BUID},
        {"JobType", &_DLVParams::get_JobType},
        {"JobClass", &_DLVParams::get_JobClass},
        {"JobStatus", &_DLVParams::get_JobStatus},
        {"Info", &_DLVParams::get_Info},
        {"JeopardyThreshold", &_DLVParams::get_JeopardyThreshold},
        {"ProfileName", &_DLVParams::get_ProfileName},
        {"UserID", &_DLVParams::get_UserID},
        {"ApplicationID", &_DLVParams::get_ApplicationID},
        {"ProfilesXML", &_DLVParams::get_ProfilesXML},
        {"ResultXML", &_DLVParams::get_ResultXML}};
    std::vector<EventField> fields;
    for (const auto& [name, get] : members) {
        BSTR text = nullptr;
        if (SUCCEEDED((record.*get)(&text)) && SysStringLen(text) > 0)
            fields.push_back({name, std::wstring(text, SysStringLen(text))});
        SysFreeString(text);
    }
    return fields;
}

}  // namespace dlv::container
