// The database on the screen.
#include "window/database_panel.h"

#include <QAction>
#include <QDateTime>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <stdexcept>

#include "window/action_buttons.h"
#include "window/direction.h"
#include "window/sentence_label.h"
#include "window/wording.h"

namespace host {

using wynconfig::ItemKind;

namespace {

/// The columns of the list.
struct Column {
    enum { Name, Kind, Origin, Count };
};
constexpr int kItemRole = Qt::UserRole;  ///< number of the item; factory items have none

QString wordFor(ItemKind kind) {
    return wording(kind == ItemKind::Session ? "DATABASE_SESSION" : "DATABASE_FORMAT");
}

QString originOf(const wynconfig::ListedItem& item) {
    const auto at = QDateTime::fromString(QString::fromStdString(item.changedAt), Qt::ISODate);
    return wording("JOIN_COMMA", {momentText(at), QString::fromStdString(item.changedBy)});
}

QTreeWidgetItem* addRow(QTreeWidget* list, const QString& name, ItemKind kind,
                        const QString& origin) {
    constexpr int kPadding = 6;
    auto* row = new QTreeWidgetItem(list, {name, wordFor(kind), origin});
    const QFontMetrics metrics = list->fontMetrics();
    row->setSizeHint(Column::Kind,
                     {metrics.horizontalAdvance(row->text(Column::Kind)) + 2 * kPadding,
                      metrics.height() + kPadding});
    row->setToolTip(Column::Origin, origin);
    return row;
}

}  // namespace

DatabasePanel::DatabasePanel(Workplace& workplace, const QList<QAction*>& actions,
                             QAction* configure, QWidget* parent)
    : QWidget(parent),
      m_workplace(workplace),
      m_list(new QTreeWidget),
      m_place(new SentenceLabel),
      m_again(withText(new QPushButton, "DATABASE_AGAIN")),
      m_takeOwn(withText(new QPushButton, "DATABASE_OWN")) {
    withName(m_list, "DATABASE_TITLE");
    m_list->setColumnCount(Column::Count);
    for (const int column : {Column::Name, Column::Origin})
        m_list->setItemDelegateForColumn(column, new DirectionDelegate(m_list));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_place->setWordWrap(true);
    m_place->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &DatabasePanel::selectionChanged);
    connect(m_list, &QTreeWidget::itemActivated, configure, &QAction::trigger);
    for (QAction* each : actions) {
        if (each->objectName() != QStringLiteral("remove-from-database")) continue;
        new QShortcut(QKeySequence::Delete, m_list, each, &QAction::trigger, Qt::WidgetShortcut);
    }

    auto* line = new QHBoxLayout;
    line->addWidget(m_list, 1);
    QLayout* buttons = makeActionButtons(actions);
    line->addLayout(buttons);
    offerButtons(*m_list, *buttons);
    auto* column = new QVBoxLayout(this);
    column->addLayout(line, 1);
    column->addWidget(m_place);
    column->addLayout(makeWaysOn());
    worded(this, [this] {
        m_list->setHeaderLabels(
            {wording("DATABASE_NAME"), wording("DATABASE_KIND"), wording("DATABASE_CHANGE")});
        // It is not asked before somebody wants to see it.
        if (m_wasAsked) refresh({});
    });
}

QLayout* DatabasePanel::makeWaysOn() {
    auto* line = new QHBoxLayout;
    m_again->setObjectName(QStringLiteral("databaseAgain"));
    m_takeOwn->setObjectName(QStringLiteral("takeOwnDatabase"));
    for (QPushButton* each : {m_again, m_takeOwn}) {
        each->hide();
        line->addWidget(each);
    }
    line->addStretch();
    connect(m_again, &QPushButton::clicked, this, [this] { refresh({}); });
    connect(m_takeOwn, &QPushButton::clicked, this, [this] {
        m_workplace.takeOwnDatabase();
        refresh({});
    });
    return line;
}

void DatabasePanel::offerWaysOn(bool isUnreachable) {
    m_again->setVisible(isUnreachable);
    m_takeOwn->setVisible(isUnreachable && !m_workplace.hasOwnDatabase());
}

void DatabasePanel::refresh(const std::string& select) {
    m_wasAsked = true;
    const auto before = selected();
    m_list->clear();
    m_items.clear();
    try {
        list();
        m_place->tell(wording("DATABASE_PLACE", {isolated(m_workplace.databaseText())}));
        offerWaysOn(false);
    } catch (const std::runtime_error& error) {  // of the database, or of the store's folders
        m_list->clear();
        m_items.clear();
        m_place->tell(isolatedIn(QString::fromUtf8(error.what()),
                                 {QString::fromStdString(m_workplace.databaseText())}));
        offerWaysOn(true);
    }
    m_list->setCurrentItem(m_list->topLevelItem(0));
    if (before) this->select(before->kind, before->item.name);
    if (!select.empty()) this->select(ItemKind::Session, select);
}

void DatabasePanel::list() {
    for (const ItemKind kind : {ItemKind::Session, ItemKind::PartFormat})
        for (const wynconfig::ListedItem& item : m_workplace.database().list(kind))
            addItem(kind, item);
    for (const std::string& name : m_workplace.store().names(ItemKind::Session))
        addFactory(ItemKind::Session, name);
    for (const std::string& name : m_workplace.store().names(ItemKind::PartFormat))
        addFactory(ItemKind::PartFormat, name);
}

void DatabasePanel::addItem(ItemKind kind, const wynconfig::ListedItem& item) {
    QTreeWidgetItem* row = addRow(m_list, QString::fromStdString(item.name), kind, originOf(item));
    row->setData(Column::Name, kItemRole, static_cast<int>(m_items.size()));
    m_items.push_back({kind, item});
}

void DatabasePanel::addFactory(ItemKind kind, const std::string& name) {
    QTreeWidgetItem* row =
        addRow(m_list, QString::fromStdString(name), kind, wording("DATABASE_FACTORY"));
    makePale(*row);
}

void DatabasePanel::makePale(QTreeWidgetItem& row) const {
    for (int column = 0; column < Column::Count; ++column)
        row.setForeground(column, palette().brush(QPalette::PlaceholderText));
}

void DatabasePanel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) {
        for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
            QTreeWidgetItem& row = *m_list->topLevelItem(i);
            if (!row.data(Column::Name, kItemRole).isValid()) makePale(row);
        }
    }
    QWidget::changeEvent(event);
}

std::optional<SelectedItem> DatabasePanel::selected() const {
    const QTreeWidgetItem* row = m_list->currentItem();
    const QVariant number = row ? row->data(Column::Name, kItemRole) : QVariant();
    if (!number.isValid()) return std::nullopt;
    return m_items[static_cast<std::size_t>(number.toInt())];
}

void DatabasePanel::select(ItemKind kind, const std::string& name) {
    for (int i = 0; i < static_cast<int>(m_items.size()); ++i) {
        const SelectedItem& each = m_items[static_cast<std::size_t>(i)];
        if (each.kind == kind && each.item.name == name)
            m_list->setCurrentItem(m_list->topLevelItem(i));
    }
}

}  // namespace host
