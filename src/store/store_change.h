// A change of several files of a store, of which all comes about or nothing.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/file_system.h"
#include "wynconfig/item_path.h"

namespace wynconfig {

/// Files that are to be written, and files that are to go. Until `commit` the disk has the old
/// ones; when that fails, they are put back. What else is saved on this thread meanwhile waits for
/// the commit as well. All operations raise `Error` when the disk fails them.
class StoreChange {
  public:
    StoreChange() : m_batch(fileSystem()) {}

    /// Remembers a file as it is; to be called before somebody else saves it.
    void remember(const ItemPath& file);
    void save(const ItemPath& file, std::string_view content);
    /// The file goes behind all saves: at no moment its content is nowhere.
    void remove(const ItemPath& file);
    /// Does all of it. Raises the failure after which it was taken back; the description names the
    /// files, if any, that could not be put back.
    void commit();

  private:
    /// A file as it was before; without a text when there was none.
    struct Former {
        ItemPath file;
        std::optional<std::string> text;
    };

    std::string takeBack() const;

    SaveBatch m_batch;
    std::vector<Former> m_former;
    std::vector<ItemPath> m_leaving;
};

}  // namespace wynconfig
