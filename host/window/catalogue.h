// The parts catalogue: what a user of the host looks through, and the parts list picked from it.
#pragma once

#include <QSortFilterProxyModel>
#include <QSqlTableModel>
#include <QStringList>
#include <QUndoStack>
#include <QWidget>
#include <vector>

#include "sending/parts_list.h"

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace host {

class PartsTable;

/// The parts as a table in a database in memory. A tick in front of a part number puts one piece
/// into the parts list; the quantity can be edited.
class CatalogueModel : public QSqlTableModel {
    Q_OBJECT

  public:
    enum Column { PartNumber, Description, Price, Stock, Quantity, Group, ColumnCount };

    static constexpr int kMostPieces = 999;  ///< of one part

    /// Opens the database and fills it. Raises `std::runtime_error` when that fails.
    explicit CatalogueModel(QObject* parent = nullptr);

    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    int quantity(int row) const;
    QString group(int row) const;
    /// All groups, in the order of their first parts.
    QStringList groups() const;
    void clearQuantities();
    /// Sets the quantities of these parts, as far as there are such parts, and those of all others
    /// to none. There is no way back behind it.
    void restoreQuantities(const std::vector<PickedPart>& parts);
    /// Begins a quantity that is typed in several keys.
    /// @return what names it, from 1
    int beginEntry() { return ++m_entries; }
    /// Sets the quantity of a part. Changes of the same part by one entry are taken back as one.
    /// @param entry  0: by itself
    void enter(int row, int pieces, int entry);
    /// The changes of quantities that can be taken back.
    QUndoStack& history() { return m_history; }

  signals:
    void quantitiesChanged();

  private:
    friend class QuantityChange;
    /// The quantity that a part is to have.
    struct Wanted {
        int row;
        int pieces;
    };
    void change(const QString& what, const std::vector<Wanted>& wanted, int entry = 0);
    void put(const std::vector<Wanted>& wanted);

    QUndoStack m_history;
    int m_entries = 0;
};

/// The rows of the catalogue that the user looks for, by text and by group.
class FoundParts : public QSortFilterProxyModel {
    Q_OBJECT

  public:
    using QSortFilterProxyModel::QSortFilterProxyModel;
    /// @param group  the empty string for all
    void setGroup(const QString& group);
    /// Looks for a text in all columns. What fits it best stands first, in any order of sorting,
    /// until the user asks for another one.
    void setSearch(const QString& text);
    void sort(int column, Qt::SortOrder order) override;
    /// As with `PickedParts`.
    bool submit() override { return true; }

  protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool filterAcceptsColumn(int column, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

  private:
    /// How well a part fits the text; 0 is best.
    int rank(int row) const;

    QString m_group;
    QString m_search;
    bool m_bestFirst = false;
};

/// The rows of the catalogue that were picked.
class PickedParts : public QSortFilterProxyModel {
    Q_OBJECT

  public:
    using QSortFilterProxyModel::QSortFilterProxyModel;
    /// Nothing is ever left to be stored. A table whose current row goes asks for it in the midst
    /// of a change, which would then begin once more.
    bool submit() override { return true; }

  protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool filterAcceptsColumn(int column, const QModelIndex& parent) const override;
};

/// Search box and catalogue above, the parts list below.
class CatalogueWidget : public QWidget {
    Q_OBJECT

  public:
    explicit CatalogueWidget(QWidget* parent = nullptr);

    void goToSearch();
    /// Puts a part into the parts list, or takes it out with 0 pieces.
    /// @return whether there is such a part
    bool pick(const QString& partNumber, int pieces);
    void clearPartsList();
    /// Shows a list of an earlier start.
    void restorePartsList(const std::vector<PickedPart>& parts);
    /// Take changes of the parts list back, and make them again.
    QAction* undoAction() const { return m_undo; }
    QAction* redoAction() const { return m_redo; }
    /// The parts list, in the order in which it is shown.
    std::vector<PickedPart> partsList() const;

  signals:
    void partsListChanged();
    /// What came of an action: a sentence for the user.
    void told(const QString& sentence, bool isFailure);

  private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    QWidget* makeCatalogue();
    QWidget* makePartsList();
    PartsTable* makeTable(QSortFilterProxyModel& rows);
    void goToBest();
    void makeActions();
    void tell();

    CatalogueModel* m_parts;
    FoundParts* m_found;
    PickedParts* m_picked;
    QLineEdit* m_search = nullptr;
    QComboBox* m_group = nullptr;
    PartsTable* m_catalogueView = nullptr;
    QLabel* m_count = nullptr;
    QLabel* m_total = nullptr;
    QPushButton* m_clear = nullptr;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
};

}  // namespace host
