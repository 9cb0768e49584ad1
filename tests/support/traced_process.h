// Work done in a process of its own, whose every system call is seen: counted, recorded, or failed
// at a test's wish. It is the kernel that tells of the calls, so that none can be left out unseen.
#pragma once

#include <sys/types.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace wynconfig {

/// A kind of system call that has to do with files, and how it may fail.
struct FileCall {
    long number;  ///< as the kernel counts its calls
    const char* name;
    std::vector<int> errors;  ///< with which one may meet it
};

/// All of them, as far as this component or the libraries below it could make any.
const std::vector<FileCall>& fileCalls();
/// Null for a call that has nothing to do with files, or is unknown.
const FileCall* fileCall(long number);

/// A call concerning files, as it was made.
struct TracedCall {
    long number = 0;
    std::array<std::uint64_t, 6> arguments{};
    std::int64_t result = 0;  ///< as the kernel gave it: a negative one is an error
    std::string path;         ///< the first path among its arguments
    std::string newPath;      ///< the other one, of a rename or a link
    std::string bytes;        ///< what a write wrote
};

/// With which errors this very call may meet, as `errno` numbers them: one that makes nothing finds
/// neither a full disk nor a name too long.
std::vector<int> errorsOf(const TracedCall& call);

/// A failure of one call.
struct CallFault {
    long number;           ///< kind of the call
    std::size_t nth;       ///< which of its kind, from 0
    int error;             ///< as `errno` numbers it
    bool forGood = false;  ///< all later ones of the kind fail as well
};

/// What came of a traced process.
struct TracedRun {
    std::vector<TracedCall> calls;  ///< those concerning files, in order, up to a single fault
    std::set<long> unknown;         ///< numbers of calls of which nobody said what they are
    std::string report;             ///< what the process handed back
    bool ended = false;             ///< it came to its own end, and not by a signal
};

/// Forks and has the child do three things in turn, the second one under trace.
/// @param prepare  done before the trace begins
/// @param work     whose calls are traced; a sync of a file, folder or disk costs nothing there
/// @param tell     done behind the trace; gives the report
TracedRun traced(const std::function<void()>& prepare, const std::function<void()>& work,
                 const std::function<std::string()>& tell, std::optional<CallFault> fault = {});

}  // namespace wynconfig
