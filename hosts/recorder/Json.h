// The document type that sessions are written in.
#pragma once

#include <nlohmann/json.hpp>

namespace dlv::recorder {

using Json = nlohmann::ordered_json;

}  // namespace dlv::recorder
