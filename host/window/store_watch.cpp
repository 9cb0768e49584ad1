// The watch, and the pause in which changes become one.
#include "window/store_watch.h"

#include <system_error>
#include <utility>

namespace host {

namespace fs = std::filesystem;

namespace {

constexpr int kPauseMilliseconds = 250;

/// A folder, or the nearest one above it that is there: in that it will come back.
QString nearestThere(fs::path folder) {
    std::error_code failure;
    while (!fs::is_directory(folder, failure) && folder.has_relative_path())
        folder = folder.parent_path();
    return QString::fromStdString(folder.string());
}

/// Which of the folders are there.
std::vector<bool> thereOf(const std::vector<fs::path>& folders) {
    std::vector<bool> there;
    std::error_code failure;
    for (const fs::path& each : folders) there.push_back(fs::is_directory(each, failure));
    return there;
}

}  // namespace

StoreWatch::StoreWatch(std::function<bool()> isBusy, QObject* parent)
    : QObject(parent), m_isBusy(std::move(isBusy)) {
    m_soon.setSingleShot(true);
    m_soon.setInterval(kPauseMilliseconds);
    connect(&m_soon, &QTimer::timeout, this, &StoreWatch::settle);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &StoreWatch::hear);
}

void StoreWatch::hear(const QString& folder) {
    if (!m_inside.contains(folder)) {
        // Much happens in the folders above that is nobody's concern here. But one that is to come
        // back may do so step by step.
        const std::vector<bool> before = m_there;
        follow();
        if (m_there == before) return;
    }
    // A change that follows another one does not put it off: some folders never rest.
    if (!m_soon.isActive()) m_soon.start();
}

void StoreWatch::watch(const std::vector<fs::path>& folders) {
    if (m_folders == folders) return;
    m_folders = folders;
    follow();
}

void StoreWatch::follow() {
    m_inside.clear();
    m_there = thereOf(m_folders);
    QSet<QString> wanted;
    for (const fs::path& each : m_folders) {
        // A folder does not hear of it itself when it is moved.
        wanted << nearestThere(each) << nearestThere(each.parent_path());
        m_inside << QString::fromStdString(each.string());
    }
    const QStringList before = m_watcher.directories();
    for (const QString& each : before)
        if (!wanted.remove(each)) m_watcher.removePath(each);
    if (!wanted.isEmpty()) m_watcher.addPaths(wanted.values());
}

void StoreWatch::settle() {
    m_soon.stop();
    if (m_isBusy()) return m_soon.start();
    follow();  // first, so that nothing is missed between the two
    emit changed();
}

}  // namespace host
