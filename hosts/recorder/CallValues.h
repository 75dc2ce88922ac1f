// The arguments of a host's calls as the values of steps.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "hosts/recorder/Json.h"

namespace dlv::recorder {

Json MessageCall(const VARIANT& data, const VARIANT& dataType, const VARIANT& tag);
Json UnitsCall(SAFEARRAY* ids);
Json AnswerCall(std::string_view resultXml, std::string_view functionName);
Json LanguageCall(std::string_view languageId);

/// A late-bound call; null for one that is not among a session's steps.
Json LateCall(DISPID id, const DISPPARAMS& arguments);

/// The fields of an event that are not empty.
Json EventFields(DISPID id, const DISPPARAMS& arguments);
/// Null for an event that the control does not have.
const char* EventName(DISPID id);

}  // namespace dlv::recorder
