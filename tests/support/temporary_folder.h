// A folder on the disk for tests.
#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace wynconfig {

/// A folder of its own, which goes with the object and all that is in it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        namespace fs = std::filesystem;
        const fs::path above = fs::canonical(fs::temp_directory_path());
        fs::path folder;
        do {
            folder = above / ("test-" + std::to_string(std::random_device{}()));
        } while (!fs::create_directory(folder));
        fs::permissions(folder, fs::perms::owner_all);
        m_path = folder.generic_string();
    }
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// Absolute, with `/` between its parts, without links, and without a separator at its end.
    const std::string& path() const { return m_path; }
    std::filesystem::path operator/(const std::string& name) const {
        return std::filesystem::path(m_path) / name;
    }

  private:
    std::string m_path;
};

}  // namespace wynconfig
