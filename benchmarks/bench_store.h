// Stores to measure on: sessions and part formats as a parts department has them, in a folder of
// the disk that goes away with the object.
#pragma once

#include <filesystem>
#include <string>

#include "wynconfig/dataset.h"

namespace wynconfig::bench {

/// A session of 26 rows, which has six part formats; the second is called `format`.
void fillSession(Dataset& record, const std::string& name, const std::string& format);

/// The name of the session with this number, from 0, in a store.
std::string sessionName(int number);

/// The part format that a store has under this number, from 0.
void fillFormat(Dataset& record, int number);

/// A store on disk.
class BenchStore {
  public:
    /// Fills it with so many sessions and part formats.
    BenchStore(int sessions, int formats);
    ~BenchStore();
    BenchStore(const BenchStore&) = delete;
    BenchStore& operator=(const BenchStore&) = delete;

    /// Makes it the component's store.
    void use() const;
    std::string root() const { return m_root.string() + "/"; }
    std::filesystem::path sessions() const { return m_root / "MORAM"; }

  private:
    std::filesystem::path m_root;
};

/// A store that is kept for the life of the process, by a label of its own: making and deleting
/// thousands of files before each run would slow the runs themselves on some file systems. It is
/// the component's store when this returns.
BenchStore& keptStore(const std::string& label, int sessions, int formats);

}  // namespace wynconfig::bench
