// What the commands share: the store, and how they answer.
#pragma once

#include <memory>
#include <string>

#include "json.h"
#include "progress.h"
#include "wynconfig/store.h"

namespace tool {

/// The options of every command, and what comes of them.
class Workplace {
  public:
    // As the command line says.
    std::string root;
    bool asJson = false;
    bool showsProgress = false;

    /// The store, which is there. Raises `UsageError` when none is named, and `wynconfig::Error`
    /// when there is none.
    wynconfig::Store store() const;
    /// The same for a root that is named otherwise.
    static wynconfig::Store storeAt(const std::string& root);
    /// The named root with its separator, whether a store is there or not. Raises `UsageError`.
    std::string namedRoot() const;

    /// Prints what a command has to say, in the form that is wanted.
    void answer(const Json& json, const std::string& text) const;
    /// Says something beside the answer, on the standard error stream; not in JSON, which tells it
    /// in a field.
    void remark(const std::string& sentence) const;
    /// How far work has come; what it returns lives as long as the work.
    wynconfig::StoreProgress progress(const std::string& what) const;
};

/// Prints why a command came to nothing: a sentence on the standard error stream, or
/// {"error": {"kind": ..., "number": ..., "message": ...}} on the standard output.
/// @param kind    "usage" or "failure"
/// @param number  as `wynconfig::errc` has it; 0 for none
void printError(bool asJson, const std::string& kind, long number, const std::string& message);

}  // namespace tool
