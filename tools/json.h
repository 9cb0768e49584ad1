// JSON as the program writes and reads it: the fields of an object stay in their order.
#pragma once

#include <nlohmann/json.hpp>

namespace tool {

using Json = nlohmann::ordered_json;

}  // namespace tool
