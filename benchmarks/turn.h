// The two names that a part format has by turns.
#pragma once

#include <string>

namespace wynconfig::bench {

inline const std::string formatNames[] = {"OLD NAME", "NEW NAME"};

/// Two names take turns, so that every walk has all the work and leaves the store as it found it
/// after the next one.
struct Turn {
    bool odd = false;
    const std::string& from() const { return formatNames[odd ? 1 : 0]; }
    const std::string& to() const { return formatNames[odd ? 0 : 1]; }
    void next() { odd = !odd; }
};

}  // namespace wynconfig::bench
