// Follows what others do to the folders of a store.
#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <vector>

namespace host {

/// Watches folders, also such that are not there yet or went away. Many changes are told as one,
/// and none while the user is at something that must not change under him.
class StoreWatch : public QObject {
    Q_OBJECT

  public:
    /// @param isBusy  whether nothing is to be told for now
    explicit StoreWatch(std::function<bool()> isBusy, QObject* parent = nullptr);

    /// The folders to watch from now on.
    void watch(const std::vector<std::filesystem::path>& folders);
    /// Whether something changed that was not told yet.
    bool isPending() const { return m_soon.isActive(); }
    /// Tells it now, unless the user is busy.
    void settle();

  signals:
    void changed();

  private:
    void hear(const QString& folder);
    void follow();

    std::function<bool()> m_isBusy;
    QFileSystemWatcher m_watcher;
    QTimer m_soon;
    std::vector<std::filesystem::path> m_folders;
    QSet<QString> m_inside;     ///< the same as texts: what changes in them is to be told
    std::vector<bool> m_there;  ///< which of them were there when they were looked at last
};

}  // namespace host
