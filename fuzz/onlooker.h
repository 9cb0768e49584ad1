// Looking at a file system past its resolver.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "input.h"
#include "platform/files/faulty_file_system.h"

namespace wynconfig::fuzz {

/// Every file by its path, and every folder with the empty text behind its path and a separator.
using Tree = std::map<std::string, std::string>;

/// Sees exactly what is there.
class Onlooker : public FaultyFileSystem {
  public:
    using FaultyFileSystem::FaultyFileSystem;
    /// All that lies below a folder.
    Tree tree(const std::string& folder) {
        Tree all;
        std::vector<Entry> entries;
        require(entriesOf(folder, entries), folder);
        for (const Entry& entry : entries) {
            const std::string path = join(folder, entry.name);
            if (entry.plainFile) {
                all[path] = readFile(path);
            } else {
                all[path + "/"];
                all.merge(tree(path));
            }
        }
        return all;
    }
};

}  // namespace wynconfig::fuzz
