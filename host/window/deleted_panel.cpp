// The table of deleted items.
#include "window/deleted_panel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <exception>

#include "window/action_buttons.h"
#include "window/direction.h"
#include "window/heading.h"
#include "window/sentence_label.h"
#include "window/wording.h"

namespace host {

namespace {

/// The columns of the table.
struct Column {
    enum { Name, Kind, Count };
};

QString kindWord(DeletedItem::Kind kind) {
    return wording(kind == DeletedItem::Kind::Session ? "DELETED_SESSION" : "DELETED_FORMAT");
}

QTableWidget* makeTable() {
    auto* table = new QTableWidget(0, Column::Count);
    table->setObjectName(QStringLiteral("deletedItems"));
    worded(table, [table] {
        table->setHorizontalHeaderLabels({wording("DELETED_NAME"), wording("DELETED_KIND")});
    });
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setItemDelegateForColumn(Column::Name, new DirectionDelegate(table));
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 8);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setSectionResizeMode(Column::Name, QHeaderView::Stretch);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return table;
}

}  // namespace

DeletedPanel::DeletedPanel(const StoreFolders& store, QWidget* parent)
    : QWidget(parent),
      m_store(store),
      m_table(makeTable()),
      m_restore(withTip(withText(new QPushButton, "DELETED_RESTORE"), "DELETED_RESTORE_TIP")),
      m_outcome(new SentenceLabel) {
    m_restore->setObjectName(QStringLiteral("restore"));
    m_outcome->setObjectName(QStringLiteral("restored"));
    m_outcome->setWordWrap(true);
    auto* line = new QHBoxLayout;
    line->addWidget(m_outcome, 1);
    line->addWidget(m_restore, 0, Qt::AlignTop);
    auto* column = new QVBoxLayout(this);
    column->addWidget(makeHeading("DELETED_TITLE", *m_table));
    column->addWidget(m_table, 1);
    column->addLayout(line);
    connect(m_restore, &QPushButton::clicked, this, &DeletedPanel::restore);
    connect(m_table, &QTableWidget::itemActivated, m_restore, &QPushButton::click);
    offerButtons(*m_table, {m_restore});
    worded(this, [this] {
        m_outcome->tell({});
        readStore();
    });
}

void DeletedPanel::showEvent(QShowEvent* event) {
    m_outcome->tell({});
    readStore();
    QWidget::showEvent(event);
}

void DeletedPanel::readStore() {
    const int row = m_table->currentRow();
    m_items.clear();
    try {
        m_items = deletedItems(m_store);
    } catch (const std::exception& failure) {
        m_outcome->tell(QString::fromUtf8(failure.what()));
    }
    m_table->setRowCount(static_cast<int>(m_items.size()));
    for (int at = 0; at < m_table->rowCount(); ++at) {
        const DeletedItem& item = m_items[static_cast<std::size_t>(at)];
        m_table->setItem(at, Column::Name, new QTableWidgetItem(item.name));
        m_table->setItem(at, Column::Kind, new QTableWidgetItem(kindWord(item.kind)));
        // A screen reader would read the numbers of rows out, which nobody sees.
        m_table->setVerticalHeaderItem(at, new QTableWidgetItem);
    }
    m_table->resizeColumnToContents(Column::Kind);
    m_table->setCurrentCell(std::clamp(row, 0, std::max(m_table->rowCount() - 1, 0)), Column::Name);
    m_restore->setEnabled(!m_items.empty());
    const QString nothing = wording("DELETED_NOTHING");
    if (m_items.empty() && m_outcome->told().isEmpty()) m_outcome->tell(nothing);
    if (!m_items.empty() && m_outcome->told() == nothing) m_outcome->tell({});
}

void DeletedPanel::restore() {
    const int row = m_table->currentRow();
    if (row < 0) return;
    const DeletedItem item = m_items[static_cast<std::size_t>(row)];
    const auto tell = [this](const QString& sentence, bool isFailure) {
        m_outcome->tell(sentence);
        emit told(sentence, isFailure);
    };
    try {
        restoreItem(m_store, item);
        tell(wording(item.kind == DeletedItem::Kind::Session ? "DELETED_SESSION_BACK"
                                                             : "DELETED_FORMAT_BACK",
                     {isolated(item.name)}),
             false);
        readStore();
        emit restored();
    } catch (const std::exception& failure) {
        tell(isolatedIn(QString::fromUtf8(failure.what()), {item.name}), true);
    }
}

}  // namespace host
