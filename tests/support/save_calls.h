// The system calls of a save, so that a test counts them, lets them fail or does something at one
// of them. A test program that has save_calls.cpp makes all of these calls through it.
#pragma once

#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace wynconfig {

/// The calls that have been made, and what they do besides their work.
struct SaveCalls {
    bool skipSync = false;        ///< a sync returns at once, for tests of many saves
    int failingSync = 0;          ///< the sync of this number, from 1, fails; 0: none
    std::string failingName;      ///< a rename to this name fails
    bool failingListing = false;  ///< the disk fails behind the first names of a folder
    bool claimNoLength = false;   ///< a file that is open tells no length of its own
    std::string unseenName;       ///< nobody can tell what lies at a name that holds this
    int makeError = 0;            ///< no new file can be made, but fails like this; 0: each can
    int lockError = 0;            ///< every lock fails like this; 0: none
    int ownerError = 0;           ///< no file gets other owners, but fails like this; 0: each does
    int modeError = 0;            ///< no file gets another mode, but fails like this; 0: each does
    bool breakUpWrites = false;   ///< every other write is broken off, the others take 7 bytes
    int closeError = 0;           ///< the file written last is closed, but fails like this; 0: none
    int written = -1;             ///< number of the file written last, until it is closed
    std::optional<timespec> now;  ///< the time of day, in place of the system's
    std::optional<timespec> changed;  ///< when every file and folder changed last, for `stat`
    int syncs = 0;
    int renames = 0;
    int writes = 0;
    int locks = 0;
    int closesOfNothing = 0;                  ///< of numbers by which no file is open
    std::vector<unsigned> modesBeforeOwners;  ///< of the files that were given other owners
    std::vector<std::string> log;             ///< the calls that order a save
    std::function<void()> beforeLock = [] {};
    std::function<void()> beforeSync = [] {};
    std::function<void()> beforeRename = [] {};
    std::function<void()> beforeWrite = [] {};
};
inline SaveCalls saveCalls;

}  // namespace wynconfig
