// Names joined by commas, without any quoting: the host's list of sessions, and the part formats of
// a session that is read from another store.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace wynconfig {

/// The parts between the commas, empty ones included. An empty list has none. They are views of the
/// list, which must outlive them: a list may be a megabyte of next to nothing.
std::vector<std::string_view> splitAtCommas(std::string_view list);

/// The list with a name at its end, or as it is when it holds the name already.
std::string withName(const std::string& list, const std::string& name);

/// The list without every occurrence of some names; the others keep their order. Empty parts at its
/// start go as well.
std::string withoutNames(std::string_view list, const std::unordered_set<std::string_view>& names);

}  // namespace wynconfig
