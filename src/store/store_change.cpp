// Changing several files, and putting them back.
#include "store/store_change.h"

#include <functional>

#include "wynconfig/error.h"

namespace wynconfig {

namespace {

std::size_t hashOf(std::string_view text) {
    return std::hash<std::string_view>{}(text);
}

}  // namespace

void StoreChange::save(const ItemPath& file, std::string_view content) {
    stepFor(file).saved = hashOf(content);
    fileSystem().save(file, content);
}

void StoreChange::remove(const ItemPath& file) {
    stepFor(file);
}

void StoreChange::commit(const SaveBatch::Again& again) {
    std::optional<GroupLost> lost;
    try {
        try {
            m_batch.commit(again);
        } catch (const GroupLost& told) {
            lost = told;
        }
        for (auto& [path, step] : m_steps) {
            if (step.saved) continue;
            fileSystem().remove(step.file);
            step.removed = true;
        }
    } catch (const Error& error) {
        const std::string left = takeBack();
        if (left.empty()) throw;
        throw Error(error.number(), error.description() + " Not put back could be:" + left + ".");
    }
    if (lost) throw *lost;
}

/// The step for a file, which is remembered as it is now.
StoreChange::Step& StoreChange::stepFor(const ItemPath& file) {
    FileSystem& files = fileSystem();
    Step step{file, std::nullopt, std::nullopt};
    if (!files.find(file).empty()) step.former = files.read(file);
    return m_steps.insert_or_assign(file.text(), std::move(step)).first->second;
}

/// Puts all files back as they were, as far as that can be done. A file that no longer is as this
/// change made it is somebody else's.
/// @return the files of which it can't, each behind a blank
std::string StoreChange::takeBack() const {
    FileSystem& files = fileSystem();
    std::string left;
    for (const auto& [path, step] : m_steps) {
        try {
            const bool isThere = !files.find(step.file).empty();
            const bool isOurs =
                isThere ? step.saved && hashOf(files.read(step.file)) == *step.saved : step.removed;
            if (!isOurs) continue;
            if (step.former) {
                files.save(step.file, *step.former);
            } else if (isThere) {
                files.remove(step.file);
            }
        } catch (const Error&) {
            left += " " + path;
        }
    }
    return left;
}

}  // namespace wynconfig
