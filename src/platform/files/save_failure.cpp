// How failures of saves are told, on every system.
#include "platform/files/save_failure.h"

#include <utility>

namespace wynconfig {

SaveFailureWords wordsOf(const SaveFailure& failure) {
    using What = SaveFailure::What;
    const bool many = failure.of == SaveFailure::Of::Folder;
    const std::string kind = many ? "files in" : "file";
    if (failure.what == What::NotWritten) return {kind, "written"};
    if (failure.what == What::GroupLost) return {kind, "kept in its group, though it is written"};
    return {kind, many ? "confirmed on the disk, though they are written"
                       : "confirmed on the disk, though it is written"};
}

void keepFirst(std::optional<SaveFailure>& first, SaveFailure failure) {
    constexpr auto kLeast = SaveFailure::What::GroupLost;
    if (!first || (first->what == kLeast && failure.what != kLeast)) first = std::move(failure);
}

}  // namespace wynconfig
