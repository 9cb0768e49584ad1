// Why a save to the disk failed, and how that is told.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace wynconfig {

/// Why a save failed, for a message.
struct SaveFailure {
    enum class Of { File, Folder };
    enum class What {
        NotWritten,
        NotConfirmed,  ///< the new content is in place, but may not outlast a crash
        GroupLost,     ///< the new content is in place, but not in the old file's group
    };
    Of of;             ///< Folder: all files of the batch that lie in it
    std::string path;  ///< of the file, or of the folder
    What what;
    int error;  ///< as the system numbers it
};

/// The words of a refusal: the `kind` of what can't be `verb`.
struct SaveFailureWords {
    std::string kind;
    std::string verb;
};
SaveFailureWords wordsOf(const SaveFailure& failure);

/// Keeps a failure to be told unless there is one. That a file lost its group is told only when
/// nothing worse happened.
void keepFirst(std::optional<SaveFailure>& first, SaveFailure failure);

/// Asked for each file right before its temporary is put in place: false leaves the old one.
using MayReplace = std::function<bool(const std::string& path)>;

}  // namespace wynconfig
