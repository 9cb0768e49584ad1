// The two rules of a VIN's form.
#include "sending/vin.h"

#include "sending/characters.h"
#include "texts/phrase.h"

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
        return phrase("VIN_BAD", {std::string(firstCharacters(vin.substr(bad), 1))});
    const std::size_t count = characterCount(vin);
    if (count == kVinLength) return {};
    return phrase("VIN_LENGTH", {wholeText(static_cast<long long>(count))});
}

}  // namespace host
