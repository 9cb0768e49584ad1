// The page "Deleted items": what lies in the `deleted` folders, and the button that brings it back.
#pragma once

#include <QWidget>
#include <vector>

#include "sample/deleted_items.h"
#include "sample/sample_store.h"

class QPushButton;
class QTableWidget;

namespace host {

class SentenceLabel;

class DeletedPanel : public QWidget {
    Q_OBJECT

  public:
    /// @param store  the folders to read; has to outlive the panel, which follows its changes
    explicit DeletedPanel(const StoreFolders& store, QWidget* parent = nullptr);

    /// Looks into the folders anew.
    void readStore();

  signals:
    /// An item is back in the store.
    void restored();
    /// What came of an action: a sentence for the user.
    void told(const QString& sentence, bool isFailure);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void restore();

    const StoreFolders& m_store;
    std::vector<DeletedItem> m_items;
    QTableWidget* m_table;
    QPushButton* m_restore;
    SentenceLabel* m_outcome;
};

}  // namespace host
