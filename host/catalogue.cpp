// The parts of the sample catalogue and their two tables on the screen.
#include "catalogue.h"

#include <QHBoxLayout>
#include <QHeaderView>
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
#include <QTableView>
#include <QVBoxLayout>
#include <array>
#include <stdexcept>

#include "heading.h"

namespace host {

namespace {

constexpr const char* kConnection = "catalogue";
constexpr int kMostPieces = 999;

struct Part {
    const char* number;
    const char* description;
    int cents;
    int stock;
};

constexpr Part kParts[] = {
    {"04E 115 561 T", "Oil filter", 1289, 64},
    {"06L 115 562 B", "Oil filter insert with seal", 1745, 38},
    {"11 42 7 953 129", "Oil filter kit", 1890, 22},
    {"1K0 129 620 D", "Air filter element", 2215, 31},
    {"13 71 8 513 944", "Air filter element", 2840, 17},
    {"5Q0 819 653", "Cabin filter, activated carbon", 3190, 26},
    {"64 11 9 237 555", "Cabin filter, fine dust", 2460, 12},
    {"1K0 127 434 C", "Fuel filter", 4330, 9},
    {"101 905 631 H", "Spark plug", 1420, 96},
    {"12 12 0 040 551", "Spark plug, high power", 1875, 48},
    {"N 108 130 05", "Glow plug", 2390, 40},
    {"06H 905 110 G", "Ignition coil", 5480, 14},
    {"5Q0 698 151 E", "Brake pads, front axle, set", 9860, 11},
    {"5Q0 698 451 P", "Brake pads, rear axle, set", 7425, 13},
    {"34 11 6 860 912", "Brake disc, front, ventilated", 12150, 8},
    {"1K0 615 601 AA", "Brake disc, rear", 6690, 10},
    {"1K0 609 525 B", "Brake shoe set", 5830, 4},
    {"B 000 750 M3", "Brake fluid DOT 4, 1 l", 1595, 52},
    {"G 052 167 M2", "Engine oil 5W-40, 1 l", 1340, 180},
    {"G 13A 8J1 G", "Coolant additive, 1.5 l", 1780, 75},
    {"N 013 815 7", "Drain plug seal", 145, 240},
    {"N 908 132 02", "Oil drain plug", 390, 130},
    {"03L 109 119 F", "Timing belt kit", 21450, 5},
    {"03L 121 011 J", "Water pump with seal", 11990, 6},
    {"04L 260 849 C", "V-ribbed belt", 3675, 19},
    {"1K0 121 251 DM", "Radiator", 24800, 2},
    {"1K0 955 425 F", "Wiper blade, driver side", 2145, 33},
    {"1K0 955 426 G", "Wiper blade, passenger side", 1965, 35},
    {"5G0 941 005", "Headlight, left, halogen", 31200, 1},
    {"5G0 941 006", "Headlight, right, halogen", 31200, 2},
    {"N 017 762 8", "Bulb H7, 12 V 55 W", 985, 88},
    {"5G0 857 507", "Door mirror, left, heated", 18740, 3},
    {"1K0 407 151 BC", "Track control arm, front left", 9280, 4},
    {"1K0 411 315 R", "Coupling rod, front", 3540, 16},
    {"1K0 413 031 BL", "Shock absorber, front", 14360, 6},
    {"5Q0 407 621 C", "Wheel bearing unit", 13220, 5},
    {"1K0 601 173", "Wheel bolt M14 x 1.5", 310, 260},
    {"000 915 105 DG", "Battery 70 Ah AGM", 22390, 7},
    {"1K0 837 015 E", "Door lock, front left", 11675, 0},
    {"5G0 807 217 GRU", "Bumper cover, front, primed", 38950, 1},
};

void run(QSqlQuery& query) {
    if (!query.exec())
        throw std::runtime_error("The catalogue can't be made: " +
                                 query.lastError().text().toStdString());
}

QSqlDatabase openCatalogue() {
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), kConnection);
    database.setDatabaseName(QStringLiteral(":memory:"));
    if (!database.open())
        throw std::runtime_error("The catalogue can't be opened: " +
                                 database.lastError().text().toStdString());
    QSqlQuery query(database);
    query.prepare(
        QStringLiteral("CREATE TABLE part (number TEXT PRIMARY KEY, description TEXT, "
                       "cents INTEGER, stock INTEGER, quantity INTEGER)"));
    run(query);
    query.prepare(QStringLiteral("INSERT INTO part VALUES (?, ?, ?, ?, 0)"));
    for (const Part& part : kParts) {
        query.addBindValue(QString::fromUtf8(part.number));
        query.addBindValue(QString::fromUtf8(part.description));
        query.addBindValue(part.cents);
        query.addBindValue(part.stock);
        run(query);
    }
    return database;
}

QString money(qlonglong cents) {
    return QLocale().toString(static_cast<double>(cents) / 100.0, 'f', 2);
}

/// Edits a quantity in a spin box.
class QuantityDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex&) const override {
        auto* box = new QSpinBox(parent);
        box->setRange(0, kMostPieces);
        box->setFrame(false);
        return box;
    }
};

QTableView* makeTable(QAbstractItemModel& model) {
    auto* table = new QTableView;
    table->setModel(&model);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->setTabKeyNavigation(false);
    table->setItemDelegateForColumn(CatalogueModel::Quantity, new QuantityDelegate(table));
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 8);
    QHeaderView& header = *table->horizontalHeader();
    header.setHighlightSections(false);
    // Both tables get the same widths, so that their columns stand below each other.
    const auto width = [&](const char* widest) {
        return table->fontMetrics().horizontalAdvance(QString::fromUtf8(widest)) + 30;
    };
    header.resizeSection(CatalogueModel::PartNumber, width("00 00 0 000 000 WW"));
    header.resizeSection(CatalogueModel::Price, width("Price (EUR)"));
    header.resizeSection(CatalogueModel::Stock, width("Stock"));
    header.resizeSection(CatalogueModel::Quantity, width("Quantity"));
    header.setSectionResizeMode(CatalogueModel::Description, QHeaderView::Stretch);
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    return table;
}

}  // namespace

CatalogueModel::CatalogueModel(QObject* parent) : QSqlTableModel(parent, openCatalogue()) {
    setTable(QStringLiteral("part"));
    setEditStrategy(OnFieldChange);
    const std::array<QString, ColumnCount> headings = {
        tr("Part number"), tr("Description"), tr("Price (EUR)"), tr("Stock"), tr("Quantity")};
    for (int column = 0; column < ColumnCount; ++column)
        setHeaderData(column, Qt::Horizontal, headings[static_cast<std::size_t>(column)]);
    if (!select())
        throw std::runtime_error("The catalogue can't be read: " +
                                 lastError().text().toStdString());
}

QVariant CatalogueModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal)
        return QVariant::fromValue((section < Price ? Qt::AlignLeft : Qt::AlignRight) |
                                   Qt::AlignVCenter);
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
    if (role == Qt::TextAlignmentRole && column >= Price)
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
    if (!QSqlTableModel::setData(field, pieces, Qt::EditRole)) return false;
    const QModelIndex first = index.siblingAtColumn(PartNumber);
    emit dataChanged(first, field);
    emit quantitiesChanged();
    return true;
}

void CatalogueModel::clearQuantities() {
    for (int row = 0; row < rowCount(); ++row) {
        if (quantity(row) > 0) setData(index(row, Quantity), 0, Qt::EditRole);
    }
}

bool PickedParts::filterAcceptsRow(int row, const QModelIndex&) const {
    return static_cast<const CatalogueModel*>(sourceModel())->quantity(row) > 0;
}

CatalogueWidget::CatalogueWidget(QWidget* parent)
    : QWidget(parent),
      m_parts(new CatalogueModel(this)),
      m_found(new QSortFilterProxyModel(this)),
      m_picked(new PickedParts(this)) {
    m_found->setSourceModel(m_parts);
    m_found->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_found->setFilterKeyColumn(-1);
    m_found->setSortRole(Qt::EditRole);
    m_picked->setSourceModel(m_parts);

    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(makeCatalogue());
    splitter->addWidget(makePartsList());
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(12);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);

    connect(m_parts, &CatalogueModel::quantitiesChanged, this, &CatalogueWidget::tell);
    tell();
}

QWidget* CatalogueWidget::makeCatalogue() {
    m_search = new QLineEdit;
    m_search->setPlaceholderText(tr("Part number or description"));
    m_search->setClearButtonEnabled(true);
    auto* searchLabel = new QLabel(tr("Sea&rch:"));
    searchLabel->setBuddy(m_search);
    m_count = new QLabel;
    m_catalogueView = makeTable(*m_found);
    m_catalogueView->setSortingEnabled(true);
    m_catalogueView->sortByColumn(CatalogueModel::Description, Qt::AscendingOrder);
    m_catalogueView->selectRow(0);
    QLabel* title = makeHeading(tr("Parts catalog&ue"), *m_catalogueView);

    auto* line = new QHBoxLayout;
    line->addWidget(searchLabel);
    line->addWidget(m_search, 1);
    line->addWidget(m_count);
    auto* widget = new QWidget;
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(title);
    column->addLayout(line);
    column->addWidget(m_catalogueView, 1);

    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_found->setFilterFixedString(text.trimmed());
        tell();
    });
    connect(m_search, &QLineEdit::returnPressed, m_catalogueView, [this] {
        m_catalogueView->selectRow(0);
        m_catalogueView->setFocus();
    });
    return widget;
}

QWidget* CatalogueWidget::makePartsList() {
    QTableView* table = makeTable(*m_picked);
    QLabel* title = makeHeading(tr("Parts l&ist"), *table);
    m_total = new QLabel;
    m_clear = new QPushButton(tr("C&lear list"));
    connect(m_clear, &QPushButton::clicked, this, &CatalogueWidget::clearPartsList);

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

void CatalogueWidget::clearPartsList() {
    m_parts->clearQuantities();
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
    m_count->setText(tr("%1 of %2 parts").arg(m_found->rowCount()).arg(m_parts->rowCount()));
    m_total->setText(pieces == 0 ? tr("Tick a part, or enter its quantity, to put it here.")
                                 : tr("Pieces: %1, total: EUR %2").arg(pieces).arg(money(cents)));
    m_clear->setEnabled(pieces > 0);
}

}  // namespace host
