// The one walk that writes the sessions of a store anew.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/files/file_system.h"
#include "platform/forms/working.h"
#include "store/item_names.h"
#include "wynconfig/dataset.h"

namespace wynconfig {

/// Loads a session of a walk.
/// @return false for one that somebody deleted since it was listed: it is no more to be written,
/// and no failure, unless the whole folder is gone.
inline bool loadListed(Dataset& record, const ItemPath& file) {
    try {
        record.Load(file, 0);
        return true;
    } catch (const Error& error) {
        if (error.number() != errc::FileNotFound || !fileSystem().folderExists(file.folder)) throw;
        return false;
    }
}

/// Loads sessions one after the other and hands each on.
/// @param files   the session files
/// @param record  serves all of them: where the guard lets the walk go on behind a load that
///                failed, it holds what it held before
/// @param guard   runs each statement that may fail; what it raises ends the walk
/// @param change  is given a session's file and record, and saves it if it is to be written
template <class Guard, class Change>
void walkSessions(const std::vector<ItemPath>& files, Dataset& record, Guard&& guard,
                  Change&& change) {
    for (const ItemPath& file : files) {
        bool isThere = true;
        guard([&] { isThere = loadListed(record, file); });
        if (isThere) change(file, record);
    }
}

/// The files of all sessions of a folder.
/// @param folder  the session folder, with its trailing separator
inline std::vector<ItemPath> sessionFiles(const std::string& folder) {
    std::vector<ItemPath> files;
    for (const std::string& name : listItemNames(folder))
        files.push_back(ItemPath::item(folder, name));
    return files;
}

/// Writes sessions anew in one batch. Before anybody is told of a failure, what was saved by then
/// is put in place: whoever is told finds it done, and may call any operation.
template <class Guard, class Change>
class SessionRewriting {
  public:
    /// Arguments are those of `rewriteSessions`, and outlive this object.
    SessionRewriting(Guard& guard, Change& change, Working::Wording updating)
        : m_guard(guard), m_change(change), m_updating(updating) {}

    void run(const std::vector<ItemPath>& files, Working::Wording saving) {
        walk(files);
        Working work(saving, files.size() - std::min(m_placed, files.size() - 1));
        m_isCommitting = true;
        m_guard([&] {
            m_batch.commit([this](const std::vector<ItemPath>& overtaken) { walk(overtaken); },
                           [&] { work.step(); });
        });
    }

  private:
    void walk(const std::vector<ItemPath>& files) {
        Working work(m_updating, files.size());
        const auto guard = [this](const auto& statement) { this->guarded(statement); };
        walkSessions(files, m_record, guard, [&](const ItemPath& file, Dataset& session) {
            m_change(session);
            guard([&] { session.Save(file); });
            work.step();
        });
    }
    template <class Statement>
    void guarded(const Statement& statement) {
        bool isToGoOn = false;
        m_guard([&] {
            try {
                statement();
            } catch (...) {
                isToGoOn = !m_isCommitting;
                if (isToGoOn) settle();
                throw;
            }
        });
        if (isToGoOn) m_batch.goOn();
    }
    /// Puts in place what was saved by now. The record stays as it is.
    void settle() {
        m_isCommitting = true;
        m_guard([this] {
            const auto again = [this](const std::vector<ItemPath>& overtaken) {
                Document held;
                m_record.Save(held);
                walk(overtaken);
                m_record.Load(held, 0);
            };
            m_batch.settle(again, [this] { ++m_placed; });
        });
        m_isCommitting = false;
    }

    Guard& m_guard;
    Change& m_change;
    Working::Wording m_updating;
    Dataset m_record;
    SaveBatch m_batch{fileSystem()};
    bool m_isCommitting = false;
    std::size_t m_placed = 0;  ///< how many files are in place before the end
};

/// Goes through all sessions of a folder and writes them anew: all files with one flush of the
/// disk, each wholly old or wholly new at any moment; a failure costs one more, since those before
/// it are in place by the time that it is told. What another program saved meanwhile is loaded and
/// changed once more before it is replaced, and what it deleted stays deleted.
/// @param guard   as for `walkSessions`
/// @param change  is given a session's record, which is saved behind it
/// @param updating, saving  tell a person who waits what is being done
template <class Guard, class Change>
void rewriteSessions(const std::string& folder, Guard&& guard, Change&& change,
                     Working::Wording updating = nullptr, Working::Wording saving = nullptr) {
    const Working wait;
    std::vector<ItemPath> files;
    guard([&] { files = sessionFiles(folder); });
    if (!files.empty()) SessionRewriting(guard, change, updating).run(files, saving);
}

}  // namespace wynconfig
