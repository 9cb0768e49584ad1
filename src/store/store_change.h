// A change of several files of a store, of which all comes about or nothing.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/file_system.h"
#include "wynconfig/item_path.h"

namespace wynconfig {

/// Files that are to be written, and files that are to go. Until `commit` the disk has the old
/// ones; when that fails, they are put back, but for those that another program has changed again
/// by then. What else is saved on this thread meanwhile waits for the commit as well. All
/// operations raise `Error` when the disk fails them.
class StoreChange {
  public:
    StoreChange() : m_batch(fileSystem()) {}

    void save(const ItemPath& file, std::string_view content);
    /// The file goes behind all saves: at no moment its content is nowhere.
    void remove(const ItemPath& file);
    /// Does all of it. Raises the failure after which it was taken back; the description names the
    /// files, if any, that could not be put back. Only `GroupLost` takes nothing back: it is raised
    /// when all is done.
    /// @param again  saves those files once more that another program changed meanwhile, see
    ///               `SaveBatch::commit`
    void commit(const SaveBatch::Again& again);

  private:
    /// What becomes of a file.
    struct Step {
        ItemPath file;
        std::optional<std::string> former;  ///< its text before, if there was a file
        std::optional<std::size_t> saved;   ///< the hash of its new text; nothing: it is to go
        bool removed = false;
    };

    Step& stepFor(const ItemPath& file);
    std::string takeBack() const;

    SaveBatch m_batch;
    std::map<std::string, Step> m_steps;  ///< by path
};

}  // namespace wynconfig
