// The parts list that a user of the catalogue picked.
#pragma once

#include <string>
#include <vector>

namespace host {

/// One part of the list. Texts are UTF-8.
struct PickedPart {
    std::string number;
    long quantity = 1;
    std::string description;
    bool operator==(const PickedPart&) const = default;
};

struct PartsList {
    std::string vin;  ///< of the vehicle that the parts are for; may be empty
    std::vector<PickedPart> parts;
};

}  // namespace host
