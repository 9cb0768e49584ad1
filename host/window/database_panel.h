// The list of the database: its sessions and part formats, and the factory items of the store.
#pragma once

#include <QList>
#include <QWidget>
#include <optional>

#include "window/operations.h"

class QAction;
class QLayout;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace host {

class SentenceLabel;

class DatabasePanel : public QWidget {
    Q_OBJECT

  public:
    /// @param actions    each gets a button
    /// @param configure  what a double click does
    DatabasePanel(Workplace& workplace, const QList<QAction*>& actions, QAction* configure,
                  QWidget* parent = nullptr);

    /// Lists everything anew. A database that can't be reached is told instead.
    /// @param select  name of the session to select; empty: the item selected so far
    void refresh(const std::string& select);
    /// The selected item of the database; none when it is a factory item.
    std::optional<SelectedItem> selected() const;
    void select(wynconfig::ItemKind kind, const std::string& name);

  signals:
    void selectionChanged();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    QLayout* makeWaysOn();
    void offerWaysOn(bool isUnreachable);
    void list();
    void addItem(wynconfig::ItemKind kind, const wynconfig::ListedItem& item);
    void addFactory(wynconfig::ItemKind kind, const std::string& name);
    /// Sets a row apart that can only be looked at.
    void makePale(QTreeWidgetItem& row) const;

    Workplace& m_workplace;
    QTreeWidget* m_list;
    SentenceLabel* m_place;
    // Ways on while the database can't be reached.
    QPushButton* m_again;
    QPushButton* m_takeOwn;
    std::vector<SelectedItem> m_items;
    bool m_wasAsked = false;  ///< the database
};

}  // namespace host
