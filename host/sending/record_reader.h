// Reads single values of a record whose keys may be missing.
#pragma once

#include <string>

#include "wynconfig/dataset.h"
#include "wynconfig/error.h"

namespace host {

/// The value of a key, or the other text when the record lacks the key.
inline std::string storedText(const wynconfig::Dataset& record, const std::string& key,
                              const std::string& whenMissing = {}) {
    try {
        return record.GetRow(key)[1];
    } catch (const wynconfig::Error&) {
        return whenMissing;
    }
}

}  // namespace host
