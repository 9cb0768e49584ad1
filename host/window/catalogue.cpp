// The parts of the sample catalogue and their two tables on the screen.
#include "window/catalogue.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>
#include <QSplitter>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStyledItemDelegate>
#include <QUndoCommand>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "sample/parts.h"
#include "window/action_buttons.h"
#include "window/direction.h"
#include "window/heading.h"
#include "window/parts_table.h"
#include "window/wording.h"

namespace host {

namespace {

constexpr const char* kConnection = "catalogue";

/// Of the columns, in their order.
constexpr std::array<const char*, CatalogueModel::ColumnCount> kHeadings = {
    "COLUMN_NUMBER", "COLUMN_DESCRIPTION", "COLUMN_PRICE",
    "COLUMN_STOCK",  "COLUMN_QUANTITY",    "COLUMN_GROUP"};

void run(QSqlQuery& query) {
    if (!query.exec())
        throw std::runtime_error("The catalogue can't be made: " +
                                 query.lastError().text().toStdString());
}

QSqlDatabase openCatalogue() {
    QSqlDatabase::removeDatabase(kConnection);  // that of an earlier window
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), kConnection);
    database.setDatabaseName(QStringLiteral(":memory:"));
    if (!database.open())
        throw std::runtime_error("The catalogue can't be opened: " +
                                 database.lastError().text().toStdString());
    QSqlQuery query(database);
    query.prepare(
        QStringLiteral("CREATE TABLE part (number TEXT PRIMARY KEY, description TEXT, "
                       "cents INTEGER, stock INTEGER, quantity INTEGER, part_group TEXT)"));
    run(query);
    query.prepare(QStringLiteral("INSERT INTO part VALUES (?, ?, ?, ?, 0, ?)"));
    for (const CataloguePart& part : catalogueParts()) {
        query.addBindValue(part.number);
        query.addBindValue(part.description);
        query.addBindValue(part.cents);
        query.addBindValue(part.stock);
        query.addBindValue(part.group);
        run(query);
    }
    return database;
}

QString money(qlonglong cents) {
    return QLocale().toString(static_cast<double>(cents) / 100.0, 'f', 2);
}

/// Whether a column stands in the tables. The others are not there at all, rather than hidden: a
/// screen reader would read them.
bool isShown(int column) {
    return column != CatalogueModel::Group;
}

/// Edits a quantity in a spin box.
class QuantityDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex&) const override {
        auto* box = new QSpinBox(parent);
        box->setRange(0, CatalogueModel::kMostPieces);
        box->setFrame(false);
        return box;
    }
};

}  // namespace

/// Quantities before and after a change.
class QuantityChange : public QUndoCommand {
  public:
    using Quantities = std::vector<CatalogueModel::Wanted>;

    /// @param entry  of what is typed in several keys; 0: by itself
    QuantityChange(CatalogueModel& parts, const QString& what, Quantities before, Quantities after,
                   int entry)
        : QUndoCommand(what),
          m_parts(parts),
          m_before(std::move(before)),
          m_after(std::move(after)),
          m_entry(entry) {}

    int id() const override { return m_entry == 0 ? -1 : m_entry; }
    bool mergeWith(const QUndoCommand* next) override {
        m_after = static_cast<const QuantityChange*>(next)->m_after;
        return true;
    }

    void undo() override { m_parts.put(m_before); }
    void redo() override { m_parts.put(m_after); }

  private:
    CatalogueModel& m_parts;
    Quantities m_before;
    Quantities m_after;
    int m_entry;
};

CatalogueModel::CatalogueModel(QObject* parent) : QSqlTableModel(parent, openCatalogue()) {
    setTable(QStringLiteral("part"));
    setEditStrategy(OnFieldChange);
    worded(this, [this] {
        for (int column = 0; column < ColumnCount; ++column)
            setHeaderData(column, Qt::Horizontal,
                          wording(kHeadings[static_cast<std::size_t>(column)]));
    });
    if (!select())
        throw std::runtime_error("The catalogue can't be read: " +
                                 lastError().text().toStdString());
    // The database gives its rows in portions; the parts list is made from all of them.
    while (canFetchMore()) fetchMore();
}

QVariant CatalogueModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal)
        return QVariant::fromValue((section < Price ? Qt::AlignLeft : Qt::AlignRight) |
                                   Qt::AlignVCenter);
    // A screen reader would read the numbers of rows out, which nobody sees.
    if (role == Qt::DisplayRole && orientation == Qt::Vertical) return {};
    return QSqlTableModel::headerData(section, orientation, role);
}

int CatalogueModel::quantity(int row) const {
    return QSqlTableModel::data(index(row, Quantity), Qt::EditRole).toInt();
}

Qt::ItemFlags CatalogueModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags readOnly = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    switch (index.column()) {
        case PartNumber:
            return readOnly | Qt::ItemIsUserCheckable;
        case Quantity:
            return readOnly | Qt::ItemIsEditable;
        default:
            return readOnly;
    }
}

QVariant CatalogueModel::data(const QModelIndex& index, int role) const {
    const int column = index.column();
    if (role == Qt::CheckStateRole && column == PartNumber)
        return quantity(index.row()) > 0 ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::TextAlignmentRole && column >= Price && column <= Quantity)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    if (role == Qt::DisplayRole && column == Price)
        return money(QSqlTableModel::data(index, Qt::EditRole).toLongLong());
    if (role == Qt::DisplayRole && column == Quantity && quantity(index.row()) == 0)
        return QString();
    return QSqlTableModel::data(index, role);
}

bool CatalogueModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const bool tick = role == Qt::CheckStateRole && index.column() == PartNumber;
    const int pieces = tick ? (value.toInt() == Qt::Checked ? 1 : 0) : value.toInt();
    const QModelIndex field = index.siblingAtColumn(Quantity);
    if (!tick && index != field) return false;
    enter(index.row(), pieces, 0);
    return quantity(index.row()) == pieces;
}

void CatalogueModel::enter(int row, int pieces, int entry) {
    const QModelIndex number = index(row, PartNumber);
    change(isolated(QSqlTableModel::data(number, Qt::EditRole).toString()), {{row, pieces}}, entry);
}

void CatalogueModel::change(const QString& what, const std::vector<Wanted>& wanted, int entry) {
    std::vector<Wanted> before;
    std::vector<Wanted> after;
    for (const Wanted& each : wanted) {
        if (quantity(each.row) == each.pieces) continue;
        before.push_back({each.row, quantity(each.row)});
        after.push_back(each);
    }
    if (!after.empty()) m_history.push(new QuantityChange(*this, what, before, after, entry));
}

void CatalogueModel::put(const std::vector<Wanted>& wanted) {
    for (const auto& [row, pieces] : wanted) {
        QSqlTableModel::setData(index(row, Quantity), pieces, Qt::EditRole);
        emit dataChanged(index(row, PartNumber), index(row, Quantity));
    }
    emit quantitiesChanged();
}

void CatalogueModel::clearQuantities() {
    std::vector<Wanted> none;
    for (int row = 0; row < rowCount(); ++row) none.push_back({row, 0});
    change(plainWording("LIST_CLEAR"), none);
}

void CatalogueModel::restoreQuantities(const std::vector<PickedPart>& parts) {
    std::vector<Wanted> wanted;
    for (int row = 0; row < rowCount(); ++row) {
        const std::string number =
            QSqlTableModel::data(index(row, PartNumber), Qt::EditRole).toString().toStdString();
        const auto found = std::ranges::find(parts, number, &PickedPart::number);
        const long pieces = found == parts.end() ? 0 : found->quantity;
        wanted.push_back({row, static_cast<int>(std::clamp<long>(pieces, 0, kMostPieces))});
    }
    std::erase_if(wanted, [&](const Wanted& each) { return quantity(each.row) == each.pieces; });
    put(wanted);
    m_history.clear();
}

QStringList CatalogueModel::groups() const {
    QStringList groups;
    for (int row = 0; row < rowCount(); ++row) groups << group(row);
    groups.removeDuplicates();
    return groups;
}

QString CatalogueModel::group(int row) const {
    return QSqlTableModel::data(index(row, Group), Qt::EditRole).toString();
}

void FoundParts::setGroup(const QString& group) {
    m_group = group;
    invalidateFilter();
}

void FoundParts::setSearch(const QString& text) {
    m_search = text;
    m_bestFirst = !text.isEmpty();
    setFilterFixedString(text);
    invalidate();
}

void FoundParts::sort(int column, Qt::SortOrder order) {
    if (m_bestFirst && (column != sortColumn() || order != sortOrder())) {
        m_bestFirst = false;
        invalidate();
    }
    QSortFilterProxyModel::sort(column, order);
}

int FoundParts::rank(int row) const {
    enum { Same, NumberBegins, TextBegins, WordBegins, Anywhere };
    const auto text = [&](int column) {
        return sourceModel()->index(row, column).data(Qt::EditRole).toString();
    };
    const QString number = text(CatalogueModel::PartNumber);
    if (number.compare(m_search, Qt::CaseInsensitive) == 0) return Same;
    if (number.startsWith(m_search, Qt::CaseInsensitive)) return NumberBegins;
    const QString description = text(CatalogueModel::Description);
    if (description.startsWith(m_search, Qt::CaseInsensitive)) return TextBegins;
    return description.contains(' ' + m_search, Qt::CaseInsensitive) ? WordBegins : Anywhere;
}

bool FoundParts::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    if (m_bestFirst) {
        const int ofLeft = rank(left.row());
        const int ofRight = rank(right.row());
        // The view turns the order around where it falls.
        if (ofLeft != ofRight) return (ofLeft < ofRight) == (sortOrder() == Qt::AscendingOrder);
    }
    return QSortFilterProxyModel::lessThan(left, right);
}

bool FoundParts::filterAcceptsRow(int row, const QModelIndex& parent) const {
    const auto& parts = *static_cast<const CatalogueModel*>(sourceModel());
    return (m_group.isEmpty() || parts.group(row) == m_group) &&
           QSortFilterProxyModel::filterAcceptsRow(row, parent);
}

bool FoundParts::filterAcceptsColumn(int column, const QModelIndex&) const {
    return isShown(column);
}

bool PickedParts::filterAcceptsColumn(int column, const QModelIndex&) const {
    return isShown(column);
}

bool PickedParts::filterAcceptsRow(int row, const QModelIndex&) const {
    return static_cast<const CatalogueModel*>(sourceModel())->quantity(row) > 0;
}

CatalogueWidget::CatalogueWidget(QWidget* parent)
    : QWidget(parent),
      m_parts(new CatalogueModel(this)),
      m_found(new FoundParts(this)),
      m_picked(new PickedParts(this)) {
    m_found->setSourceModel(m_parts);
    m_found->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_found->setFilterKeyColumn(-1);
    m_found->setSortRole(Qt::EditRole);
    m_picked->setSourceModel(m_parts);

    makeActions();
    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->setObjectName(QStringLiteral("catalogueSplitter"));
    splitter->addWidget(makeCatalogue());
    splitter->addWidget(makePartsList());
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(12);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);

    connect(m_parts, &CatalogueModel::quantitiesChanged, this, [this] {
        tell();
        emit partsListChanged();
    });
    worded(this, [this] { tell(); });
}

void CatalogueWidget::makeActions() {
    QUndoStack& history = m_parts->history();
    m_undo = withTip(new QAction(this), "UNDO_TIP");
    m_undo->setObjectName(QStringLiteral("undo"));
    m_undo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
    m_redo = withTip(new QAction(this), "REDO_TIP");
    m_redo->setObjectName(QStringLiteral("redo"));
    m_redo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+Z")));
    connect(m_undo, &QAction::triggered, &history, &QUndoStack::undo);
    connect(m_redo, &QAction::triggered, &history, &QUndoStack::redo);
    // The toolkit's own actions would keep the words that they began with. The history ends with
    // the widget, and tells so: then there are the actions alone.
    const auto show = [undo = m_undo, redo = m_redo, &history] {
        const QString undone = history.undoText();
        const QString redone = history.redoText();
        undo->setText(undone.isEmpty() ? wording("UNDO") : wording("UNDO_WHAT", {undone}));
        redo->setText(redone.isEmpty() ? wording("REDO") : wording("REDO_WHAT", {redone}));
        undo->setEnabled(history.canUndo());
        redo->setEnabled(history.canRedo());
    };
    for (const auto changed : {&QUndoStack::undoTextChanged, &QUndoStack::redoTextChanged})
        connect(&history, changed, m_redo, show);
    for (const auto changed : {&QUndoStack::canUndoChanged, &QUndoStack::canRedoChanged})
        connect(&history, changed, m_redo, show);
    worded(m_redo, show);
    // Both have done their work by then: what was undone can be redone.
    connect(m_undo, &QAction::triggered, this,
            [&] { emit told(wording("UNDO_DONE", {history.redoText()}), false); });
    connect(m_redo, &QAction::triggered, this,
            [&] { emit told(wording("REDO_DONE", {history.undoText()}), false); });
}

PartsTable* CatalogueWidget::makeTable(QSortFilterProxyModel& rows) {
    auto* table = new PartsTable(rows);
    connect(table, &PartsTable::told, this, &CatalogueWidget::told);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->setTabKeyNavigation(false);
    using Reads = DirectionDelegate::Reads;
    table->setItemDelegateForColumn(CatalogueModel::PartNumber, new DirectionDelegate(table));
    table->setItemDelegateForColumn(CatalogueModel::Description,
                                    new DirectionDelegate(table, Reads::AsItBegins));
    table->setItemDelegateForColumn(CatalogueModel::Quantity, new QuantityDelegate(table));
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 8);
    QHeaderView& header = *table->horizontalHeader();
    header.setHighlightSections(false);
    // Both tables get the same widths, so that their columns stand below each other.
    worded(table, [table, &header] {
        const auto fit = [&](int column, const QString& widest) {
            const QString heading = wording(kHeadings[static_cast<std::size_t>(column)]);
            const QFontMetrics metrics = table->fontMetrics();
            header.resizeSection(column, std::max(metrics.horizontalAdvance(widest),
                                                  metrics.horizontalAdvance(heading)) +
                                             30);
        };
        fit(CatalogueModel::PartNumber, QStringLiteral("00-0000-W"));
        for (const int column :
             {CatalogueModel::Price, CatalogueModel::Stock, CatalogueModel::Quantity})
            fit(column, money(0));
    });
    header.setSectionResizeMode(CatalogueModel::Description, QHeaderView::Stretch);
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    return table;
}

QWidget* CatalogueWidget::makeCatalogue() {
    m_search = new QLineEdit;
    withHint(m_search, "CATALOGUE_SEARCH_HINT");
    m_search->setClearButtonEnabled(true);
    auto* searchLabel = withText(new QLabel, "CATALOGUE_SEARCH");
    searchLabel->setBuddy(m_search);
    m_count = new QLabel;
    m_group = new QComboBox;
    m_group->addItem(QString());
    worded(m_group, [this] { m_group->setItemText(0, wording("CATALOGUE_ALL_GROUPS")); });
    m_group->addItems(m_parts->groups());
    auto* groupLabel = withText(new QLabel, "CATALOGUE_GROUP");
    groupLabel->setBuddy(m_group);
    m_catalogueView = makeTable(*m_found);
    m_catalogueView->setSortingEnabled(true);
    m_catalogueView->sortByColumn(CatalogueModel::Description, Qt::AscendingOrder);
    m_catalogueView->selectRow(0);
    m_catalogueView->setObjectName(QStringLiteral("catalogue"));
    QLabel* title = makeHeading("CATALOGUE_TITLE", *m_catalogueView);

    auto* line = new QHBoxLayout;
    line->addWidget(searchLabel);
    line->addWidget(m_search, 1);
    line->addWidget(groupLabel);
    line->addWidget(m_group);
    line->addWidget(m_count);
    auto* widget = new QWidget;
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(title);
    column->addLayout(line);
    column->addWidget(m_catalogueView, 1);

    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_found->setSearch(text.trimmed());
        tell();
    });
    connect(m_group, &QComboBox::currentIndexChanged, this, [this](int chosen) {
        m_found->setGroup(chosen == 0 ? QString() : m_group->currentText());
        tell();
    });
    connect(m_search, &QLineEdit::returnPressed, this, &CatalogueWidget::goToBest);
    m_search->installEventFilter(this);
    connect(m_catalogueView, &PartsTable::leftAtTop, this, &CatalogueWidget::goToSearch);
    return widget;
}

QWidget* CatalogueWidget::makePartsList() {
    PartsTable* table = makeTable(*m_picked);
    table->setObjectName(QStringLiteral("partsList"));
    QLabel* title = makeHeading("LIST_TITLE", *table);
    m_total = new QLabel;
    m_total->setObjectName(QStringLiteral("total"));
    m_clear = withText(new QPushButton, "LIST_CLEAR");
    connect(m_clear, &QPushButton::clicked, this, &CatalogueWidget::clearPartsList);
    offerButtons(*table, {m_clear});

    auto* line = new QHBoxLayout;
    line->addWidget(m_total, 1);
    line->addWidget(m_clear);
    auto* widget = new QWidget;
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(title);
    column->addWidget(table, 1);
    column->addLayout(line);
    return widget;
}

bool CatalogueWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_search && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        goToBest();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void CatalogueWidget::goToBest() {
    if (m_found->rowCount() == 0) {
        emit told(wording("CATALOGUE_NONE"), true);
        return;
    }
    m_catalogueView->selectRow(0);
    m_catalogueView->scrollToTop();
    m_catalogueView->setFocus(Qt::ShortcutFocusReason);
}

void CatalogueWidget::goToSearch() {
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

bool CatalogueWidget::pick(const QString& partNumber, int pieces) {
    const QModelIndex first = m_parts->index(0, CatalogueModel::PartNumber);
    const QModelIndexList found =
        m_parts->match(first, Qt::EditRole, partNumber, 1, Qt::MatchExactly);
    return !found.isEmpty() &&
           m_parts->setData(found.front().siblingAtColumn(CatalogueModel::Quantity), pieces,
                            Qt::EditRole);
}

std::vector<PickedPart> CatalogueWidget::partsList() const {
    std::vector<PickedPart> parts;
    for (int row = 0; row < m_picked->rowCount(); ++row) {
        const auto field = [&](int column) {
            return m_picked->index(row, column).data(Qt::EditRole);
        };
        parts.push_back({field(CatalogueModel::PartNumber).toString().toStdString(),
                         field(CatalogueModel::Quantity).toInt(),
                         field(CatalogueModel::Description).toString().toStdString()});
    }
    return parts;
}

void CatalogueWidget::clearPartsList() {
    const int count = m_picked->rowCount();
    m_parts->clearQuantities();
    emit told(
        count == 0 ? wording("LIST_EMPTY_ALREADY") : wording("LIST_CLEARED", {numberText(count)}),
        false);
}

void CatalogueWidget::restorePartsList(const std::vector<PickedPart>& parts) {
    m_parts->restoreQuantities(parts);
}

void CatalogueWidget::tell() {
    int pieces = 0;
    qlonglong cents = 0;
    for (int row = 0; row < m_parts->rowCount(); ++row) {
        const int quantity = m_parts->quantity(row);
        pieces += quantity;
        cents +=
            quantity * m_parts->index(row, CatalogueModel::Price).data(Qt::EditRole).toLongLong();
    }
    m_count->setText(wording("CATALOGUE_SHOWN",
                             {numberText(m_found->rowCount()), numberText(m_parts->rowCount())}));
    m_total->setText(pieces == 0 ? wording("LIST_HINT")
                                 : wording("LIST_TOTAL", {numberText(pieces), money(cents)}));
    m_clear->setEnabled(pieces > 0);
}

}  // namespace host
