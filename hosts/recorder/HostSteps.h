// The calls of a host as steps of a session.
#pragma once

#include <string>

#include "hosts/recorder/Json.h"
#include "webdata/MessageSource.h"

namespace dlv::recorder {

/// A call without fields, or with fields that the caller adds.
Json Step(const char* op);

/// A call of ReceiveMessage at a clock time "HH:MM:SS". Of a message it holds all that the control reads: the
/// name, two properties, the columns that it looks for in the tables that it looks for. A null `dataType` or
/// `tag` is a Null variant; a discarded one is left out.
Json MessageStep(const HostObject& data, const Json& dataType, const Json& tag, const std::string& clock);

}  // namespace dlv::recorder
