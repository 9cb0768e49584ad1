// Qt's widgets where the dialogs need them to behave a little differently.
#pragma once

#include <QAbstractListModel>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPointer>
#include <QRadioButton>
#include <QScrollArea>
#include <QStringListModel>
#include <QTreeView>
#include <functional>
#include <string>
#include <vector>

#include "platform/forms/shown_rows.h"
#include "views/qt/typing.h"
#include "wynconfig/controls.h"

namespace wynconfig::desktop {

/// A one-line box whose caret stays where it is when the focus comes or goes: what is inserted at
/// the caret by code must not depend on how the box was left.
class TextBox : public QLineEdit {
  public:
    explicit TextBox(QWidget* parent);
    /// Where the selection starts, or the caret when nothing is selected, in UTF-16 units.
    int caret() const;
    /// Has the text run in its own direction, as paths and names do in a window that runs the other
    /// way. It stands where those of the other boxes do.
    void followDirection();
    /// From here on it has room for so many characters; for few it is no wider than that.
    void setChars(int chars);
    QSize sizeHint() const override;

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void restore(int start, int length);

    int m_chars = 0;
};

/// A frame around other widgets, of which nothing is seen while it has no caption: an outline that
/// says nothing would only take room.
class FrameBox : public QGroupBox {
  public:
    using QGroupBox::QGroupBox;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// An option that a click never turns off. It does not exclude others: the models do. The arrow
/// keys choose the option before or behind it within the same frame.
class OptionBox : public QRadioButton {
  public:
    explicit OptionBox(QWidget* parent);
    /// Whether a click turns it now, and not something else.
    bool inClick() const { return m_inClick; }

  protected:
    void nextCheckState() override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool m_inClick = false;
};

/// Options that stand together, of which a screen reader tells by the name of them all.
class OptionSet : public QWidget {
  public:
    using QWidget::QWidget;
};

/// A check box that knows what turns it.
class TickBox : public QCheckBox {
  public:
    using QCheckBox::QCheckBox;
    /// Whether a click turns it now, and not something else.
    bool inClick() const { return m_inClick; }

  protected:
    void nextCheckState() override;

  private:
    bool m_inClick = false;
};

/// A drop-down list whose width doesn't follow its items, whose number and length know no bound.
/// What does not fit ends in an ellipsis, and the tool tip shows it whole in place of the help. Of
/// many items some are seen at a time, in every style.
class ChoiceBox : public QComboBox {
  public:
    explicit ChoiceBox(QWidget* parent);

    /// Takes these items in place of those that it has.
    void setItems(const QStringList& items) { m_items.setStringList(items); }
    void showPopup() override;

    /// Letters that are typed while it is closed.
    Typing typing;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void initStyleOption(QStyleOptionComboBox* option) const override;

  private:
    QString shortened() const;
    void dropScrollers();

    QStringListModel m_items;
    bool m_opening = false;
};

/// A label whose text may mark a key. The marked letter is drawn by itself, which ends the kerning
/// around it, and in Arabic what brings joined letters together, so that the text is wider than its
/// font says.
class MarkedLabel : public QLabel {
  public:
    using QLabel::QLabel;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  private:
    QSize withRoom(const QSize& size) const;
};

/// A label for a value of any length: what does not fit ends in an ellipsis, and the tool tip shows
/// it whole.
class ValueLabel : public QLabel {
  public:
    explicit ValueLabel(QWidget* parent);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

/// Lets what is larger than the screen be moved about. It asks for the room of all of it, but does
/// with less.
class ScrolledContent : public QScrollArea {
  public:
    /// Takes the content over.
    ScrolledContent(QWidget* content, QWidget* parent);
    QSize sizeHint() const override;
};

/// The rows of a list as they were when they were last shown, or those of them that contain a text.
/// Rows go by their numbers in the whole list, from 1, whatever is shown of it.
class RowModel : public QAbstractListModel {
  public:
    static constexpr int kKeyRole = Qt::UserRole;

    using QAbstractListModel::QAbstractListModel;
    void setRows(const std::vector<ListRow>& rows);
    /// Shows the rows that contain a text, in whatever case; all when it is empty.
    void setFilter(const QString& text);
    /// How many rows there are, shown or not.
    std::size_t total() const { return m_rows.size(); }
    const ShownRows& shown() const { return m_shown; }
    /// Whether a row contains the text, and was not just revealed.
    bool matches(std::size_t number) const;
    int placeOf(std::size_t number) const { return m_shown.placeOf(number); }
    std::size_t numberAt(int place) const { return m_shown.numberAt(place); }
    /// Shows a row that contains no such text as well.
    void reveal(std::size_t number);
    void setHeading(const QString& heading);
    int rowCount(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    struct Row {
        QString text;
        std::string key;
        std::shared_ptr<const Font> font;
    };
    void applyFilter();

    std::vector<Row> m_rows;
    ShownRows m_shown;
    QString m_filter;
    QString m_heading;
};

class RowList;

/// A row that the mouse has picked up, for the lists of the same program.
class TakenRow : public QMimeData {
  public:
    explicit TakenRow(const RowList& from);
    /// Where it comes from; null once that has gone.
    const RowList* from() const;
    QStringList formats() const override;

  private:
    QPointer<const QWidget> m_from;
};

/// A list of one column. Tells of each row that the person picks, also of the selected one when it
/// is clicked again, once for each act; what the view shows as selected it doesn't tell. By the
/// keyboard the arrow keys and letters pick; with Ctrl, or where picks are to be deliberate, the
/// arrow keys only move to a row, which the space bar then picks.
class RowList : public QTreeView {
  public:
    explicit RowList(QWidget* parent);

    RowModel& rows() { return m_rows; }
    const RowModel& rows() const { return m_rows; }
    /// Shows the rows that contain a text, and the selected one.
    void setFilter(const QString& text);
    /// Goes into the list from above: to its first row with the text that is looked for, unless the
    /// selected one has it.
    void enter();
    /// Does with so much less height, which something above it takes.
    void leaveRoom(int pixels);
    /// Selects a row by its number from 1; 0 selects none.
    void showSelected(std::size_t number);
    /// Number of the selected row, or 0.
    std::size_t selected() const;
    /// Number of the row that the keyboard is at, or 0.
    std::size_t marked() const;
    void setWidthHint(int pixels) { m_widthHint = pixels; }
    /// From here on nothing but a click and the space bar picks.
    void setDeliberate() { m_deliberate = true; }
    /// Goes to a row as an arrow key does.
    void goTo(std::size_t number);
    /// While no row is selected the keyboard is at this one, or at the last one where there are
    /// fewer.
    void mark(std::size_t number);
    /// Where a menu comes up that a key asks for: at the selected row, else at the first one.
    QPoint placeOfMenu() const;
    /// From here on the mouse takes rows along that it picks up.
    void letRowsGo() { setDragEnabled(true); }
    /// From here on rows can be put down here.
    void takeRows() { setAcceptDrops(true); }
    void keyboardSearch(const QString&) override {}

    /// Gets the number of the row, from 1.
    std::function<void(std::size_t)> picked;
    /// The selected row was let go, by something else than the mouse, and perhaps for another one.
    std::function<void()> letGo;
    /// A row was clicked twice. False: nothing came of it, and the second click is one more pick.
    std::function<bool()> doubleClicked;
    /// The person went up from the first row. False: there is nowhere to go.
    std::function<bool()> leftUpwards;
    /// Whether a row of another list can be put down here now.
    std::function<bool(const RowList& from)> takes;
    /// The person put the selected row of another list down here.
    std::function<void(const RowList& from)> putDown;
    Typing typing;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    bool viewportEvent(QEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void weigh(QDropEvent& event) const;
    int heightFor(int rows) const;
    bool picksCurrent(const QKeyEvent& event) const;
    bool leavesUpwards(const QKeyEvent& event) const;
    void pickCurrent();

    RowModel m_rows;
    int m_widthHint = 0;
    int m_roomAbove = 0;
    bool m_showing = false;
    bool m_moving = false;  ///< the mark of the focus comes along with the selection
    bool m_pressing = false;
    bool m_doubled = false;
    bool m_deliberate = false;
};

}  // namespace wynconfig::desktop
