// Qt's widgets where the dialogs need them to behave a little differently.
#include "views/qt/widgets.h"

#include <QDrag>
#include <QFocusEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <QWhatsThis>
#include <algorithm>
#include <climits>
#include <utility>

#include "views/qt/convert.h"

namespace wynconfig::desktop {

namespace {

/// How many characters a box or value makes room for, in their average width.
constexpr int kUsualChars = 25;
/// How many characters of a value are seen at the least.
constexpr int kLeastChars = 11;
/// The same of a row in a list.
constexpr int kUsualRow = 22;
constexpr int kLeastRow = 18;
/// How many items an open drop-down list shows; the others scroll.
constexpr int kMostChoices = 15;

}  // namespace

TextBox::TextBox(QWidget* parent) : QLineEdit(parent) {
    setMaxLength(INT_MAX);
}

int TextBox::caret() const {
    return hasSelectedText() ? selectionStart() : cursorPosition();
}

void TextBox::followDirection() {
    const bool mirrored = parentWidget()->isRightToLeft();
    setLayoutDirection(text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    setAlignment((mirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute |
                 Qt::AlignVCenter);
}

QSize TextBox::sizeHint() const {
    // Paths and templates are longer than what Qt makes room for.
    const QSize usual = QLineEdit::sizeHint();
    if (m_chars > 0) {
        constexpr int kCharsOfQt = 17;
        const int edges = usual.width() - kCharsOfQt * fontMetrics().horizontalAdvance(u'x');
        return {charsWide(fontMetrics(), m_chars) + edges, usual.height()};
    }
    return {std::max(usual.width(), charsWide(fontMetrics(), kUsualChars)), usual.height()};
}

void TextBox::setChars(int chars) {
    m_chars = chars;
    if (chars < kUsualChars) setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void FrameBox::paintEvent(QPaintEvent* event) {
    if (!title().isEmpty()) QGroupBox::paintEvent(event);
}

void TextBox::restore(int start, int length) {
    if (length > 0)
        setSelection(start, length);
    else
        setCursorPosition(start);
}

void TextBox::focusInEvent(QFocusEvent* event) {
    const int start = caret();
    const int length = selectionLength();
    const QSignalBlocker quiet(this);
    QLineEdit::focusInEvent(event);
    restore(start, length);
}

void TextBox::focusOutEvent(QFocusEvent* event) {
    const int start = caret();
    const QSignalBlocker quiet(this);
    QLineEdit::focusOutEvent(event);
    if (!hasSelectedText()) restore(start, 0);
}

/// With Alt a letter is a key that nothing marks, and no text.
void TextBox::keyPressEvent(QKeyEvent* event) {
    const auto held = event->modifiers() & (Qt::AltModifier | Qt::ControlModifier);
    const QString text = event->text();
    if (held == Qt::AltModifier && !text.isEmpty() && text.front().isPrint())
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}

OptionBox::OptionBox(QWidget* parent) : QRadioButton(parent) {
    setAutoExclusive(false);
}

void OptionBox::nextCheckState() {
    const QScopedValueRollback clicking(m_inClick, true);
    setChecked(true);
}

void OptionBox::keyPressEvent(QKeyEvent* event) {
    const bool mirrored = isRightToLeft();
    int step = 0;
    switch (event->key()) {
        case Qt::Key_Up:
            step = -1;
            break;
        case Qt::Key_Down:
            step = 1;
            break;
        case Qt::Key_Left:
            step = mirrored ? 1 : -1;
            break;
        case Qt::Key_Right:
            step = mirrored ? -1 : 1;
            break;
        default:
            QRadioButton::keyPressEvent(event);
            return;
    }
    QList<OptionBox*> options;
    for (QObject* each : parentWidget()->children()) {
        auto* option = dynamic_cast<OptionBox*>(each);
        if (option && option->isEnabled() && option->isVisible()) options.push_back(option);
    }
    const qsizetype count = options.size();
    OptionBox* next = options[(options.indexOf(this) + step + count) % count];
    if (next == this) return;
    next->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    next->click();
}

void TickBox::nextCheckState() {
    const QScopedValueRollback clicking(m_inClick, true);
    QCheckBox::nextCheckState();
}

ChoiceBox::ChoiceBox(QWidget* parent) : QComboBox(parent) {
    setModel(&m_items);
    setMaxVisibleItems(kMostChoices);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(20);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    view()->setTextElideMode(Qt::ElideRight);
    if (auto* popup = qobject_cast<QListView*>(view())) popup->setUniformItemSizes(true);
    dropScrollers();
}

/// Some styles open a box that can't be written in as a menu: with all items at once, as far as the
/// screen goes, and arrows in place of a scroll bar. Thousands of items are none for a menu.
void ChoiceBox::showPopup() {
    const QScopedValueRollback opening(m_opening, true);
    view()->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    QComboBox::showPopup();
}

void ChoiceBox::initStyleOption(QStyleOptionComboBox* option) const {
    QComboBox::initStyleOption(option);
    if (m_opening) option->editable = true;
}

/// The arrows that Qt puts above and below the items where the style opens a menu.
void ChoiceBox::dropScrollers() {
    for (QObject* each : view()->parentWidget()->children()) {
        if (each->inherits("QComboBoxPrivateScroller"))
            static_cast<QWidget*>(each)->setMaximumHeight(0);
    }
}

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
    if (!typing.take(*event)) QComboBox::keyPressEvent(event);
}

QString ChoiceBox::shortened() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect room =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    // The style keeps a pixel or two on each side for itself.
    return fontMetrics().elidedText(isolated(currentText()), Qt::ElideRight, room.width() - 4);
}

void ChoiceBox::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = shortened();
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

bool ChoiceBox::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const QString text = currentText();
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(),
                           shortened() == isolated(text) ? toolTip() : toToolTip(text), this);
        return true;
    }
    return QComboBox::event(event);
}

QSize MarkedLabel::withRoom(const QSize& size) const {
    const qsizetype mark = text().indexOf(u'&');
    if (mark < 0) return size;
    const auto wide = [this](const QString& part) { return fontMetrics().horizontalAdvance(part); };
    const QString before = text().left(mark);
    const QString letter = text().mid(mark + 1, 1);
    const QString behind = text().mid(mark + 2);
    const int apart = wide(before) + wide(letter) + wide(behind);
    constexpr int kRounding = 2;
    return {size.width() + std::max(apart - wide(before + letter + behind), 0) + kRounding,
            size.height()};
}

QSize MarkedLabel::sizeHint() const {
    return withRoom(QLabel::sizeHint());
}

QSize MarkedLabel::minimumSizeHint() const {
    return withRoom(QLabel::minimumSizeHint());
}

ValueLabel::ValueLabel(QWidget* parent) : QLabel(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

QSize ValueLabel::sizeHint() const {
    const QSize whole = QLabel::sizeHint();
    return {std::min(whole.width(), charsWide(fontMetrics(), kUsualChars)), whole.height()};
}

QSize ValueLabel::minimumSizeHint() const {
    return {charsWide(fontMetrics(), kLeastChars), QLabel::minimumSizeHint().height()};
}

void ValueLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect room = contentsRect();
    style()->drawItemText(
        &painter, room, static_cast<int>(alignment()) | Qt::TextSingleLine, palette(), isEnabled(),
        fontMetrics().elidedText(isolated(text()), Qt::ElideRight, room.width()), foregroundRole());
}

bool ValueLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const bool whole = fontMetrics().horizontalAdvance(text()) <= contentsRect().width();
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), whole ? QString() : toToolTip(text()), this);
        return true;
    }
    return QLabel::event(event);
}

ScrolledContent::ScrolledContent(QWidget* content, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(content);
}

QSize ScrolledContent::sizeHint() const {
    return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
}

void RowModel::setRows(const std::vector<ListRow>& rows) {
    beginResetModel();
    m_rows.clear();
    m_rows.reserve(rows.size());
    for (const ListRow& row : rows) m_rows.push_back({toQt(row.text), row.key, row.font});
    applyFilter();
    endResetModel();
}

void RowModel::setFilter(const QString& text) {
    beginResetModel();
    m_filter = text;
    applyFilter();
    endResetModel();
}

void RowModel::applyFilter() {
    if (m_filter.isEmpty())
        m_shown.showAll(m_rows.size());
    else
        m_shown.showFound(m_rows.size(), [this](std::size_t number) { return matches(number); });
}

bool RowModel::matches(std::size_t number) const {
    return m_rows[number - 1].text.contains(m_filter, Qt::CaseInsensitive);
}

void RowModel::reveal(std::size_t number) {
    const int place = m_shown.placeToReveal(number);
    if (place < 0) return;
    beginInsertRows({}, place, place);
    m_shown.reveal(number);
    endInsertRows();
}

void RowModel::setHeading(const QString& heading) {
    m_heading = heading;
    emit headerDataChanged(Qt::Horizontal, 0, 0);
}

int RowModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid()) return 0;
    return m_shown.count();
}

Qt::ItemFlags RowModel::flags(const QModelIndex& index) const {
    // Whether the mouse takes any along is for the list to say.
    return QAbstractListModel::flags(index) | Qt::ItemIsDragEnabled;
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Row& row = m_rows[numberAt(index.row()) - 1];
    if (role == Qt::DisplayRole) return row.text;
    if (role == kKeyRole) return QByteArray::fromStdString(row.key);
    if (role == Qt::FontRole && row.font) return toQt(*row.font);
    return {};
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (section == 0 && orientation == Qt::Horizontal && role == Qt::DisplayRole) return m_heading;
    return {};
}

namespace {

/// Rows are names and tokens, whose direction is their own. They stand a little apart, so that the
/// mouse hits the one that is meant.
class RowPainter : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize tight = QStyledItemDelegate::sizeHint(option, index);
        return {tight.width(), tight.height() + option.fontMetrics.height() / 6};
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = isolated(option->text);
    }
};

}  // namespace

TakenRow::TakenRow(const RowList& from) : m_from(&from) {}

const RowList* TakenRow::from() const {
    return static_cast<const RowList*>(m_from.data());
}

QStringList TakenRow::formats() const {
    return {QStringLiteral("application/x-wynconfig-row")};
}

RowList::RowList(QWidget* parent) : QTreeView(parent) {
    setModel(&m_rows);
    setItemDelegate(new RowPainter(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setAllColumnsShowFocus(true);
    setTextElideMode(Qt::ElideRight);
    header()->setStretchLastSection(true);
    header()->setSectionsClickable(false);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void RowList::showSelected(std::size_t number) {
    // While the mouse is down on a row, what counts is the pick to come.
    if (m_pressing || number == selected()) return;
    const QScopedValueRollback showing(m_showing, true);
    if (number == 0) {
        clearSelection();
        return;
    }
    goTo(number);
}

std::size_t RowList::marked() const {
    return m_rows.numberAt(currentIndex().row());
}

std::size_t RowList::selected() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? 0 : m_rows.numberAt(rows.front().row());
}

void RowList::setFilter(const QString& text) {
    const QScopedValueRollback showing(m_showing, true);
    const std::size_t kept = selected();
    m_rows.setFilter(text);
    // Which reveals it.
    if (kept > 0) goTo(kept);
}

void RowList::enter() {
    setFocus(Qt::OtherFocusReason);
    if (!m_rows.shown().isFiltered() || (selected() > 0 && m_rows.matches(selected()))) return;
    for (int place = 0; place < m_rows.rowCount(); ++place) {
        const std::size_t number = m_rows.numberAt(place);
        if (!m_rows.matches(number)) continue;
        if (m_deliberate)
            selectionModel()->setCurrentIndex(m_rows.index(place), QItemSelectionModel::NoUpdate);
        else
            goTo(number);
        return;
    }
}

void RowList::leaveRoom(int pixels) {
    if (std::exchange(m_roomAbove, pixels) != pixels) updateGeometry();
}

void RowList::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    // However the focus came, there is a row for the space bar and Enter to pick.
    if (marked() == 0)
        selectionModel()->setCurrentIndex(m_rows.index(0), QItemSelectionModel::NoUpdate);
}

void RowList::mark(std::size_t number) {
    if (number == 0 || selected() > 0) return;
    const std::size_t last = m_rows.numberAt(m_rows.rowCount() - 1);
    const QModelIndex index = m_rows.index(m_rows.placeOf(std::min(number, last)));
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

QPoint RowList::placeOfMenu() const {
    const QModelIndex index = m_rows.index(std::max(m_rows.placeOf(selected()), 0));
    const QRect row = visualRect(index) & viewport()->rect();
    const QPoint corner = isRightToLeft() ? row.bottomRight() : row.bottomLeft();
    return viewport()->mapToGlobal(row.isEmpty() ? viewport()->rect().topLeft() : corner);
}

/// The row is taken as it is picked by a click, so that it is the one that buttons mean.
void RowList::startDrag(Qt::DropActions) {
    m_pressing = false;
    const QModelIndex index = currentIndex();
    pickCurrent();
    if (!index.isValid() || selected() == 0) return;
    auto* drag = new QDrag(this);
    drag->setMimeData(new TakenRow(*this));
    const QRect place = visualRect(index);
    drag->setPixmap(viewport()->grab(place));
    drag->exec(Qt::CopyAction);
}

void RowList::weigh(QDropEvent& event) const {
    const auto* row = dynamic_cast<const TakenRow*>(event.mimeData());
    const bool fits = row && row->from() && takes && takes(*row->from());
    event.setDropAction(fits ? Qt::CopyAction : Qt::IgnoreAction);
    event.setAccepted(fits);
}

void RowList::dragEnterEvent(QDragEnterEvent* event) {
    weigh(*event);
}

void RowList::dragMoveEvent(QDragMoveEvent* event) {
    weigh(*event);
}

void RowList::dropEvent(QDropEvent* event) {
    weigh(*event);
    if (event->isAccepted() && putDown)
        putDown(*static_cast<const TakenRow*>(event->mimeData())->from());
}

void RowList::mousePressEvent(QMouseEvent* event) {
    // A pick that does something at once is for the left button; of other lists the right one asks
    // for what can be done with a row.
    if (event->button() != Qt::LeftButton && m_deliberate) return event->ignore();
    m_pressing =
        event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid();
    QTreeView::mousePressEvent(event);
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
    m_doubled = m_pressing;
}

void RowList::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
    if (!m_pressing || event->button() != Qt::LeftButton) return;
    m_pressing = false;
    if (std::exchange(m_doubled, false) && doubleClicked && doubleClicked()) return;
    // The current row and not the one under the mouse: the button may be let go elsewhere.
    pickCurrent();
}

void RowList::pickCurrent() {
    if (marked() > 0 && picked) picked(marked());
}

bool RowList::picksCurrent(const QKeyEvent& event) const {
    switch (event.key()) {
        case Qt::Key_Space:
            // As a click does, the space bar also picks the row that is selected already.
            return true;
        case Qt::Key_Down:
            // While none is selected, the first step down picks the row with the focus mark instead
            // of passing it.
            return !m_deliberate && selected() == 0 && event.modifiers() == Qt::NoModifier;
        default:
            return false;
    }
}

/// A key that is held down only goes to the top.
bool RowList::leavesUpwards(const QKeyEvent& event) const {
    return event.key() == Qt::Key_Up && event.modifiers() == Qt::NoModifier &&
           !event.isAutoRepeat() && currentIndex().row() <= 0;
}

void RowList::keyPressEvent(QKeyEvent* event) {
    if (typing.take(*event) || (leavesUpwards(*event) && leftUpwards && leftUpwards())) return;
    if (marked() > 0 && picksCurrent(*event)) {
        pickCurrent();
    } else {
        const QScopedValueRollback moving(m_moving, true);
        QTreeView::keyPressEvent(event);
    }
}

void RowList::goTo(std::size_t number) {
    const QScopedValueRollback moving(m_moving, true);
    m_rows.reveal(number);
    const QModelIndex index = m_rows.index(m_rows.placeOf(number));
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    scrollTo(index);
}

QItemSelectionModel::SelectionFlags RowList::selectionCommand(const QModelIndex& index,
                                                              const QEvent* event) const {
    const bool key = event && event->type() == QEvent::KeyPress;
    if (key &&
        (m_deliberate || (static_cast<const QKeyEvent*>(event)->modifiers() & Qt::ControlModifier)))
        return QItemSelectionModel::NoUpdate;
    return QTreeView::selectionCommand(index, event);
}

void RowList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    if (m_showing || m_pressing) return;
    if (selected.isEmpty()) {
        if (letGo) letGo();
        return;
    }
    const int row = selected.front().top();
    if (!m_moving)
        selectionModel()->setCurrentIndex(m_rows.index(row), QItemSelectionModel::NoUpdate);
    if (picked) picked(m_rows.numberAt(row));
}

bool RowList::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex index = indexAt(help->pos());
        const QString text = index.data().toString();
        const bool whole = sizeHintForIndex(index).width() <= visualRect(index).width();
        QToolTip::showText(help->globalPos(), whole ? toolTip() : toToolTip(text), this);
        return true;
    }
    // Else each row would be asked, of which there is nothing to tell.
    if (event->type() == QEvent::QueryWhatsThis) {
        event->setAccepted(!whatsThis().isEmpty());
        return true;
    }
    if (event->type() == QEvent::WhatsThis) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QWhatsThis::showText(help->globalPos(), whatsThis(), this);
        return true;
    }
    return QTreeView::viewportEvent(event);
}

int RowList::heightFor(int rows) const {
    const int row = m_rows.rowCount() > 0 ? sizeHintForRow(0) : fontMetrics().height();
    const int heading = isHeaderHidden() ? 0 : header()->sizeHint().height();
    return heading + rows * row + 2 * frameWidth();
}

QSize RowList::sizeHint() const {
    const int width = std::max(m_widthHint, charsWide(fontMetrics(), kUsualRow));
    const int bar = verticalScrollBar()->sizeHint().width();
    return {width + bar + 2 * frameWidth(), heightFor(10) - m_roomAbove};
}

QSize RowList::minimumSizeHint() const {
    return {charsWide(fontMetrics(), kLeastRow), heightFor(8) - m_roomAbove};
}

}  // namespace wynconfig::desktop
