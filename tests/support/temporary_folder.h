// A folder on the disk for tests.
#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace wynconfig {

/// A folder of its own, which goes with the object and all that is in it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        namespace fs = std::filesystem;
        std::string pattern = (fs::canonical(fs::temp_directory_path()) / "test-XXXXXX").string();
        if (!mkdtemp(pattern.data())) throw std::system_error(errno, std::generic_category());
        m_path = pattern;
    }
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// Absolute, without links, and without a separator at its end.
    const std::string& path() const { return m_path; }
    std::filesystem::path operator/(const std::string& name) const {
        return std::filesystem::path(m_path) / name;
    }

  private:
    std::string m_path;
};

}  // namespace wynconfig
