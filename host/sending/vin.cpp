// The two rules of a VIN's form.
#include "sending/vin.h"

#include "sending/characters.h"

namespace host {

namespace {

constexpr std::size_t kVinLength = 17;
constexpr std::string_view kVinCharacters =
    "0123456789ABCDEFGHJKLMNPRSTUVWXYZabcdefghjklmnprstuvwxyz";

}  // namespace

std::string vinHint(std::string_view vin) {
    if (vin.empty()) return {};
    const std::size_t bad = vin.find_first_not_of(kVinCharacters);
    if (bad != std::string_view::npos)
        return "A VIN has no \"" + std::string(firstCharacters(vin.substr(bad), 1)) + "\".";
    const std::size_t count = characterCount(vin);
    if (count == kVinLength) return {};
    return "A VIN has 17 characters; this has " + std::to_string(count) + ".";
}

}  // namespace host
