// Listing the names of a store.
#include "database/names.h"

namespace host {

namespace fs = std::filesystem;

std::set<std::string> itemNames(const fs::path& folder) {
    std::set<std::string> names;
    if (!fs::exists(folder)) return names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.is_regular_file() && upperName(entry.path().extension().string()) == ".VLA")
            names.insert(upperName(entry.path().stem().string()));
    }
    return names;
}

}  // namespace host
