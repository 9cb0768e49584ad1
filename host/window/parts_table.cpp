// What the keys do to quantities.
#include "window/parts_table.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QSortFilterProxyModel>

#include "window/catalogue.h"
#include "window/wording.h"

namespace host {

PartsTable::PartsTable(QSortFilterProxyModel& rows, QWidget* parent)
    : QTableView(parent), m_rows(rows) {
    setModel(&rows);
}

CatalogueModel& PartsTable::parts() const {
    return *static_cast<CatalogueModel*>(m_rows.sourceModel());
}

int PartsTable::pieces() const {
    return parts().quantity(m_part.row());
}

void PartsTable::keyPressEvent(QKeyEvent* event) {
    const auto chord = event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (chord == Qt::NoModifier && enter(*event)) return;
    // A key that only goes along with another one ends nothing.
    if (event->key() != Qt::Key_Shift) end();
    if (event->key() == Qt::Key_Up && chord == Qt::NoModifier && currentIndex().row() <= 0)
        emit leftAtTop();
    else
        QTableView::keyPressEvent(event);
}

bool PartsTable::enter(const QKeyEvent& event) {
    const QChar key = event.text().size() == 1 ? event.text().front() : QChar();
    const bool isDelete = event.key() == Qt::Key_Delete;
    const bool isTick = event.key() == Qt::Key_Space;
    const bool isMore = key == u'+';
    const bool isLess = key == u'-' || key == QChar(0x2212);
    if (!key.isDigit() && !isDelete && !isTick && !isMore && !isLess) return false;
    if (!begin()) return true;
    if (key.isDigit()) {
        typeDigit(key.digitValue());
        return true;
    }
    m_digits.clear();
    if (isTick)
        put(pieces() > 0 ? 0 : 1, 0);
    else
        put(isDelete ? 0 : pieces() + (isMore ? 1 : -1), 0);
    return true;
}

void PartsTable::typeDigit(int digit) {
    if (m_digits.isEmpty()) m_entry = parts().beginEntry();
    const QString digits = m_digits + QString::number(digit);
    const int wanted = digits.toInt();
    if (wanted <= CatalogueModel::kMostPieces) m_digits = digits;
    put(wanted, m_entry);
}

void PartsTable::put(int pieces, int entry) {
    if (pieces > CatalogueModel::kMostPieces) {
        emit told(wording("LIST_MOST", {numberText(CatalogueModel::kMostPieces)}), true);
        return;
    }
    if (pieces < 0) return;
    const bool wasTicked = this->pieces() > 0;
    m_isPutting = true;
    parts().enter(m_part.row(), pieces, entry);
    // Its row may have gone, come back, or moved to where it is sorted.
    const QModelIndex shown = m_rows.mapFromSource(m_part);
    if (shown.isValid()) {
        setCurrentIndex(shown.siblingAtColumn(currentIndex().isValid() ? currentIndex().column()
                                                                       : shown.column()));
        scrollTo(currentIndex());
    }
    m_isPutting = false;
    if (wasTicked != (this->pieces() > 0)) announceTick();
}

void PartsTable::announceTick() {
    const QModelIndex shown = m_rows.mapFromSource(m_part);
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(this);
    if (!shown.isValid() || !table || !table->tableInterface()) return;
    const QAccessibleInterface* cell = table->tableInterface()->cellAt(shown.row(), 0);
    QAccessible::State turned;
    turned.checked = true;
    QAccessibleStateChangeEvent event(this, turned);
    event.setChild(table->indexOfChild(cell));
    QAccessible::updateAccessibility(&event);
}

bool PartsTable::begin() {
    if (!m_part.isValid()) m_part = m_rows.mapToSource(currentIndex());
    return m_part.isValid();
}

void PartsTable::end() {
    m_part = QPersistentModelIndex();
    m_digits.clear();
}

void PartsTable::mousePressEvent(QMouseEvent* event) {
    end();
    QTableView::mousePressEvent(event);
}

void PartsTable::focusOutEvent(QFocusEvent* event) {
    end();
    QTableView::focusOutEvent(event);
}

void PartsTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    if (!m_isPutting) end();
    QTableView::currentChanged(current, previous);
}

}  // namespace host
