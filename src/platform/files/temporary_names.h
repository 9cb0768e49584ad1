// How the temporaries of saves are named, so that every program tells them, and their writers, by
// their names.
//
// They are named .wyn-WRITER-NUMBER.tmp when their writer holds them, and
// .wyn-WRITER-NUMBER-FOLLOWER.tmp when they live as long as the former does. WRITER is the process
// number and eight hexadecimal digits by chance, since process numbers come again.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wynconfig {

/// What the names of all temporaries begin with.
inline constexpr std::string_view kTemporaryPrefix = ".wyn-";

/// What the names of a process's temporaries begin with.
/// @param process  its number. After a fork it is another one.
std::string temporariesOf(unsigned long process);

/// A name for a temporary of this process that it has not used yet.
std::string newTemporaryName(unsigned long process);

/// The name of a temporary that lives as long as another one.
std::string followerOf(const std::string& leader, unsigned number);

/// The temporary that tells whether the one of this name lives, itself or another one; nothing for
/// a name that is no temporary's.
std::optional<std::string> leaderOf(std::string_view name);

}  // namespace wynconfig
