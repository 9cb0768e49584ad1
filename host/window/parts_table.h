// A table of parts whose quantities are typed at once, whichever column is current.
#pragma once

#include <QPersistentModelIndex>
#include <QString>
#include <QTableView>

class QSortFilterProxyModel;

namespace host {

class CatalogueModel;

/// Shows rows of a `CatalogueModel` through a proxy. Digits are the quantity of the current part,
/// plus and minus one piece more or less, Delete none; the space bar turns its tick. Keys that
/// follow each other mean the same part, also where it left the table in between: who presses minus
/// once too often changes no other one.
class PartsTable : public QTableView {
    Q_OBJECT

  public:
    explicit PartsTable(QSortFilterProxyModel& rows, QWidget* parent = nullptr);

  signals:
    /// What came of a key: a sentence for the user.
    void told(const QString& sentence, bool isFailure);
    /// The key that goes up was pressed in the first row.
    void leftAtTop();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    bool enter(const QKeyEvent& event);
    void typeDigit(int digit);
    void put(int pieces, int entry);
    /// Says that the tick of the part that keys mean was turned.
    void announceTick();
    /// Whether there is a part that keys mean; begins a new entry where the last one has ended.
    bool begin();
    void end();
    CatalogueModel& parts() const;
    int pieces() const;

    QSortFilterProxyModel& m_rows;
    QPersistentModelIndex m_part;  ///< in the catalogue; the one that keys mean; none: the current
    QString m_digits;              ///< typed so far
    int m_entry = 0;               ///< what is taken back as one
    bool m_isPutting = false;
};

}  // namespace host
