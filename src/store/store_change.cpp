// Changing several files, and putting them back.
#include "store/store_change.h"

#include "wynconfig/error.h"

namespace wynconfig {

void StoreChange::remember(const ItemPath& file) {
    FileSystem& files = fileSystem();
    Former former{file, std::nullopt};
    if (!files.find(file).empty()) former.text = files.read(file);
    m_former.push_back(std::move(former));
}

void StoreChange::save(const ItemPath& file, std::string_view content) {
    remember(file);
    fileSystem().save(file, content);
}

void StoreChange::remove(const ItemPath& file) {
    remember(file);
    m_leaving.push_back(file);
}

void StoreChange::commit() {
    try {
        m_batch.commit();
        for (const ItemPath& file : m_leaving) fileSystem().remove(file);
    } catch (const Error& error) {
        const std::string left = takeBack();
        if (left.empty()) throw;
        throw Error(error.number(), error.description() + " Not put back could be:" + left + ".");
    }
}

/// Puts all files back as they were, as far as that can be done.
/// @return the files of which it can't, each behind a blank
std::string StoreChange::takeBack() const {
    FileSystem& files = fileSystem();
    std::string left;
    for (const Former& former : m_former) {
        try {
            const bool isThere = !files.find(former.file).empty();
            if (!former.text) {
                if (isThere) files.remove(former.file);
            } else if (!isThere || files.read(former.file) != *former.text) {
                files.save(former.file, *former.text);
            }
        } catch (const Error&) {
            left += " " + former.file.text();
        }
    }
    return left;
}

}  // namespace wynconfig
