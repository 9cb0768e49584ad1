// The page "For developers": what the last operation of the component gave back and left on disk.
#pragma once

#include <QList>
#include <QWidget>
#include <filesystem>

#include "sample/store_snapshot.h"
#include "window/outcome.h"

class QAction;
class QPlainTextEdit;

namespace host {

class SentenceLabel;

class DeveloperPanel : public QWidget {
    Q_OBJECT

  public:
    /// @param actions  each gets a button
    explicit DeveloperPanel(const QList<QAction*>& actions, QWidget* parent = nullptr);

    /// Shows what an operation gave back, and which files differ behind it.
    /// @param root  of the store
    /// @param more  what the user was told besides
    void show(const Outcome& outcome, const QString& more, const Snapshot& before,
              const Snapshot& after, const std::filesystem::path& root);

  private:
    void showResult(const Outcome& outcome, const QString& more);
    void showChanges(const Snapshot& before, const Snapshot& after,
                     const std::filesystem::path& root);

    SentenceLabel* m_result;
    SentenceLabel* m_changes;
    QString m_lastChange;
    bool m_wasCalled = false;  ///< an operation
    QPlainTextEdit* m_text;
};

}  // namespace host
