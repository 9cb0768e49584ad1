// The operations that write to a store, each as one piece of work that a test has done under
// trying conditions: on a store of its own on the disk, by a played person.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace wynconfig {

/// The files of a store: their texts by their paths from its root.
using StoreFiles = std::map<std::string, std::string>;

/// What somebody does to the store.
struct StoreWork {
    std::string name;
    std::function<void(const std::string& root)> run;
    /// The procedures that may tell a failure, as their boxes name them; `error` is what the call
    /// raises, where it is none of the component's own operations.
    std::set<std::string> tags;
    /// The files that the work is about, from the root: what it may lose when a box tells so, since
    /// a deletion goes on behind a copy that failed.
    std::set<std::string> subjects;
    bool onFreshRoot = false;  ///< there is no store yet
};

/// All of them.
const std::vector<StoreWork>& storeWorks();
/// The one of this name.
const StoreWork& storeWork(const std::string& name);

/// What work left and told.
struct StoreOutcome {
    StoreFiles files;
    std::vector<std::string> temporaries;  ///< paths of files that are to go again
    std::vector<std::string> boxes;        ///< the texts of all that came up
    int descriptors = 0;                   ///< how many more are open than before
};
std::string written(const StoreOutcome& outcome);
StoreOutcome readOutcome(const std::string& text);

struct WorkDesk;

/// One process at work on one store, which lies in a folder of its own together with a program that
/// its sessions name.
class StoreWorker {
  public:
    /// @param folder  is there
    explicit StoreWorker(std::string folder);
    StoreWorker(const StoreWorker&) = delete;
    StoreWorker& operator=(const StoreWorker&) = delete;
    ~StoreWorker();

    /// The root of the store, with its separator.
    std::string root() const { return m_folder + "/store/"; }
    /// Puts the store where it was before any work, as somebody who copies files would.
    void putStore(bool fresh) const;
    /// Makes the component ready: texts, view, store.
    void begin(const StoreWork& work);
    void run(const StoreWork& work);
    /// How things stand; the boxes are those since it was asked last.
    StoreOutcome outcome();

  private:
    std::string m_folder;
    std::unique_ptr<WorkDesk> m_desk;
};

}  // namespace wynconfig
