// How each kind of control is shown, and what is reported of it.
#include "views/qt/binding.h"

#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <optional>
#include <utility>

#include "views/qt/colours.h"
#include "views/qt/convert.h"
#include "views/qt/help.h"
#include "views/qt/widgets.h"
#include "wynconfig/error.h"
#include "wynconfig/keyboard.h"

namespace wynconfig::desktop {

Binding::Binding(Control& control, QWidget* widget) : m_control(control), m_widget(widget) {
    const std::string_view name = control.name();
    widget->setObjectName(toQt(name));
    m_takesFocus = widget->focusPolicy() != Qt::NoFocus;
}

bool inReach(const QWidget& widget) {
    const QWidget* modal = QApplication::activeModalWidget();
    return widget.isEnabled() && widget.isVisible() && (!modal || modal == widget.window());
}

void Binding::show() {
    dirty = false;
    showFont();
    showBackground();
    showContent();
    m_widget->setEnabled(m_control.enabled());
    m_widget->setVisible(m_control.visible());
    showTabStop();
}

void Binding::showFont() {
    std::shared_ptr<const Font> font = m_control.font();
    if (font == m_font) return;
    m_font = std::move(font);
    m_widget->setFont(m_font ? toQt(*m_font) : QFont());
}

void Binding::showBackground() {
    const Background background = m_control.background();
    if (background == m_background) return;
    m_background = background;
    showColours();
}

void Binding::setRefused(bool refused, const QString& why) {
    if (std::exchange(m_isRefused, refused) != refused) showColours();
    tellRefusal(*focusWidget(), refused ? why : QString());
}

void Binding::showColours() {
    if (m_isRefused)
        m_widget->setPalette(refusedPalette());
    else
        m_widget->setPalette(m_background == Background::InactiveBorder ? inactivePalette()
                                                                        : QPalette());
}

void Binding::showTabStop() {
    if (!m_takesFocus) return;
    // What the Tab key passes over is still in reach of the mouse.
    const bool tabs = m_control.kind() == ControlKind::Tabs;
    const Qt::FocusPolicy reachable = tabs ? Qt::TabFocus : Qt::StrongFocus;
    const Qt::FocusPolicy passedOver = tabs ? Qt::NoFocus : Qt::ClickFocus;
    focusWidget()->setFocusPolicy(m_control.tabStop() ? reachable : passedOver);
}

namespace {

/// A control that a person acts on. Whatever moves its widget is the person's doing, be it keys, a
/// pointer, an input method, a drop or a screen reader, unless the binding itself shows something.
class ActingBinding : public Binding {
  protected:
    ActingBinding(Control& control, QWidget* widget, Door& door)
        : Binding(control, widget), m_door(door) {}

    /// Reports an act that takes the focus first, as one of the mouse does.
    template <class Report>
    void act(const Report& report) {
        if (inReach(*widget())) {
            m_door([this](const UserInput& input) { input.focus(control()); });
            if (m_door.isOpen()) focusWidget()->setFocus(Qt::OtherFocusReason);
        }
        actInPlace(report);
    }
    /// Reports an act that leaves the focus where it is.
    template <class Report>
    void actInPlace(const Report& report) {
        m_door([&](const UserInput& input) {
            // Leaving the control before may have changed what can be used.
            if (inReach(*widget()) && control().enabled() && control().visible())
                report(input);
            else
                showLater();
        });
    }
    /// Has the widget show the control again, as soon as what moved it is done.
    void showLater() {
        const auto again = [this] { m_door([this](const UserInput&) { show(); }); };
        QMetaObject::invokeMethod(widget(), again, Qt::QueuedConnection);
    }

  private:
    Door& m_door;
};

/// The text goes to the model only when the person edits it: a text that the box can't show as it
/// stands survives there as long as nobody touches it.
class EditBinding : public ActingBinding {
  public:
    EditBinding(Edit& edit, QWidget* parent, Door& door, const Standing& standing)
        : ActingBinding(edit, new TextBox(parent), door), m_edit(edit) {
        if (standing.chars > 0) box().setChars(standing.chars);
        QObject::connect(&box(), &QLineEdit::textChanged, &box(), [this] { reportText(); });
        QObject::connect(&box(), &QLineEdit::cursorPositionChanged, &box(),
                         [this] { reportCaret(); });
        QObject::connect(&box(), &QLineEdit::selectionChanged, &box(), [this] { reportCaret(); });
    }
    /// A caret that code has set stays where it is. For the model it is where the selection starts.
    void offerContent() override {
        const QSignalBlocker quiet(&box());
        if (m_edit.caret() == 0) box().setSelection(0, static_cast<int>(box().text().size()));
    }

  private:
    TextBox& box() const { return static_cast<TextBox&>(*widget()); }
    std::size_t caret() const { return charsBefore(box().text(), box().caret()); }
    void reportText() {
        m_shown = fromQt(box().text());
        box().followDirection();
        act([this, text = m_shown, caret = caret()](const UserInput& input) {
            input.type(m_edit, text, caret);
        });
    }
    void reportCaret() {
        actInPlace([this](const UserInput& input) { input.moveCaret(m_edit, caret()); });
    }
    void showContent() override {
        const QSignalBlocker quiet(&box());
        if (m_edit.text() != m_shown) {
            m_shown = m_edit.text();
            box().setText(toQt(m_shown));
        }
        box().followDirection();
        if (caret() != m_edit.caret())
            box().setCursorPosition(static_cast<int>(offsetOf(box().text(), m_edit.caret())));
    }

    Edit& m_edit;
    std::string m_shown;
};

class ListBinding : public ActingBinding {
  public:
    ListBinding(ListView& list, QWidget* parent, Door& door, const Standing& standing)
        : ActingBinding(list, new RowList(parent), door),
          m_list(list),
          m_headed(standing.labelledBy != nullptr) {
        rowList().picked = [this, &door](std::size_t number) {
            act([&](const UserInput& input) { input.pick(m_list, number); });
            // The widget may have let the row go (a click with Ctrl) that the model keeps.
            if (door.isOpen() && m_list.revision() == m_shownRevision)
                rowList().showSelected(m_list.selectedNumber());
        };
        rowList().letGo = [this] { showLater(); };
        if (standing.acts.deliberate)
            rowList().setDeliberate();
        else
            rowList().typing.typed = [this, &door](TypeAhead& ahead, const std::string& letter) {
                door([&](const UserInput&) { typed(ahead, letter); });
            };
    }

  private:
    RowList& rowList() const { return static_cast<RowList&>(*widget()); }
    void typed(TypeAhead& ahead, const std::string& letter) {
        // Rows that are not on the screen yet can't be gone to.
        if (m_list.revision() != m_shownRevision) return;
        const ShownRows& shown = rowList().rows().shown();
        std::size_t number = 0;
        // The form knows all rows; letters find those that are seen.
        if (shown.isFiltered())
            number = rowAmongShown(shown, m_list, ahead, letter, rowList().selected());
        else if (const KeyAct act = actOfLetter(m_list.form(), m_list, ahead, letter))
            number = act.number;
        if (number > 0) rowList().goTo(number);
    }
    void showContent() override {
        const std::size_t marked = rowList().marked();
        const bool isAnew = m_list.revision() != m_shownRevision;
        if (isAnew) {
            m_shownRevision = m_list.revision();
            showHeading();
            rowList().rows().setRows(m_list.rows());
        }
        rowList().showSelected(m_list.selectedNumber());
        // Where the selected row has gone, keys go on from its place.
        if (isAnew) rowList().mark(marked);
    }
    void showHeading() {
        const std::vector<ListColumn>& columns = m_list.columns();
        const QString heading = columns.empty() ? QString() : toQt(columns.front().text);
        // Under a label of its own the list would say the same twice, for the eye as for the ear.
        rowList().setHeaderHidden(m_headed || heading.isEmpty());
        rowList().rows().setHeading(m_headed ? QString() : heading);
        if (!columns.empty()) rowList().setWidthHint(toPixels(columns.front().width));
    }

    ListView& m_list;
    bool m_headed;
    std::size_t m_shownRevision = static_cast<std::size_t>(-1);
};

class ComboBinding : public ActingBinding {
  public:
    ComboBinding(ComboBox& combo, QWidget* parent, Door& door)
        : ActingBinding(combo, new ChoiceBox(parent), door), m_combo(combo) {
        QObject::connect(&box(), &QComboBox::currentIndexChanged, &box(), [this](int index) {
            // The person chooses one of the items that are on the screen.
            if (index >= 0 && m_combo.revision() == m_shownRevision)
                act([&](const UserInput& input) { input.choose(m_combo, index); });
            else
                showLater();
        });
        box().typing.typed = [this, &door](TypeAhead& ahead, const std::string& letter) {
            door([&](const UserInput& input) {
                carryOut(actOfLetter(m_combo.form(), m_combo, ahead, letter), input);
            });
        };
    }

  private:
    ChoiceBox& box() const { return static_cast<ChoiceBox&>(*widget()); }
    void showContent() override {
        const QSignalBlocker quiet(&box());
        if (m_combo.revision() != m_shownRevision) {
            m_shownRevision = m_combo.revision();
            QStringList items;
            for (const std::string& item : m_combo.items()) items.push_back(toQt(item));
            box().setItems(items);
        }
        box().setCurrentIndex(m_combo.selectedIndex());
    }

    ComboBox& m_combo;
    std::size_t m_shownRevision = static_cast<std::size_t>(-1);
};

/// Screen readers get the words, since they would read the marks in other ways.
void showCaption(QAbstractButton& button, const CaptionedControl& control) {
    button.setText(toQtCaption(control.caption()));
    button.setAccessibleName(toQtPlain(control.caption()));
}

class OptionBinding : public ActingBinding {
  public:
    OptionBinding(OptionButton& option, QWidget* parent, Door& door)
        : ActingBinding(option, new OptionBox(parent), door), m_option(option) {
        QObject::connect(&box(), &QRadioButton::clicked, &box(), [this] { actInPlace(choice()); });
        QObject::connect(&box(), &QRadioButton::toggled, &box(), [this](bool on) {
            if (box().inClick()) return;
            // The person turns one off by turning on another.
            on ? act(choice()) : showLater();
        });
    }

  private:
    std::function<void(const UserInput&)> choice() {
        return [this](const UserInput& input) { input.choose(m_option); };
    }
    OptionBox& box() const { return static_cast<OptionBox&>(*widget()); }
    void showContent() override {
        const QSignalBlocker quiet(&box());
        showCaption(box(), m_option);
        box().setChecked(m_option.value());
    }
    OptionButton& m_option;
};

class CheckBinding : public ActingBinding {
  public:
    CheckBinding(CheckBox& check, QWidget* parent, Door& door)
        : ActingBinding(check, new TickBox(parent), door), m_check(check) {
        QObject::connect(&box(), &QCheckBox::clicked, &box(),
                         [this](bool on) { actInPlace(turn(on)); });
        QObject::connect(&box(), &QCheckBox::toggled, &box(), [this](bool on) {
            // A click ends with a signal of its own, when the box has been painted.
            if (!box().inClick()) act(turn(on));
        });
    }

  private:
    TickBox& box() const { return static_cast<TickBox&>(*widget()); }
    std::function<void(const UserInput&)> turn(bool on) {
        return [this, on](const UserInput& input) { input.tick(m_check, on); };
    }
    void showContent() override {
        const QSignalBlocker quiet(&box());
        showCaption(box(), m_check);
        box().setChecked(m_check.value());
    }
    CheckBox& m_check;
};

class ButtonBinding : public ActingBinding {
  public:
    ButtonBinding(Button& button, QWidget* parent, Door& door)
        : ActingBinding(button, new QPushButton(parent), door), m_button(button) {
        QObject::connect(&box(), &QPushButton::clicked, &box(), [this] {
            actInPlace([this](const UserInput& input) { input.click(m_button); });
        });
    }

  private:
    QPushButton& box() const { return static_cast<QPushButton&>(*widget()); }
    void showContent() override { showCaption(box(), m_button); }
    Button& m_button;
};

/// A caption is text and no markup: "<Part#>" stands there as it is, and so does a value.
class LabelBinding : public Binding {
  public:
    LabelBinding(Label& label, QWidget* parent, const Standing& standing)
        : Binding(label, makeLabel(parent, standing)), m_label(label), m_labels(standing.labels) {
        static_cast<QLabel*>(widget())->setTextFormat(Qt::PlainText);
    }

  private:
    static QLabel* makeLabel(QWidget* parent, const Standing& standing) {
        if (standing.labelledBy) return new ValueLabel(parent);
        return new MarkedLabel(parent);
    }
    QString text() const {
        if (!m_labels) return toQt(m_label.caption());
        return takesFocus(*m_labels) ? toQtCaption(m_label.caption())
                                     : toQtUnmarked(m_label.caption());
    }
    void showContent() override {
        static_cast<QLabel*>(widget())->setText(text());
        widget()->setAccessibleName(m_labels ? toQtPlain(m_label.caption())
                                             : toQt(m_label.caption()));
    }
    Label& m_label;
    const Control* m_labels;
};

class FrameBinding : public Binding {
  public:
    FrameBinding(Frame& frame, QWidget* parent)
        : Binding(frame, new FrameBox(parent)), m_frame(frame) {}

  private:
    void showContent() override {
        static_cast<QGroupBox*>(widget())->setTitle(toQtCaption(m_frame.caption()));
        widget()->setAccessibleName(toQtPlain(m_frame.caption()));
        QLayout* const inside = widget()->layout();
        if (!m_edges) m_edges = inside->contentsMargins();
        inside->setContentsMargins(m_frame.caption().empty() ? QMargins() : *m_edges);
    }
    Frame& m_frame;
    std::optional<QMargins> m_edges;  ///< those of a frame with a caption
};

/// The bar tells only what the person wants; the model decides, and only then the page changes.
/// Else the focus would go with the page before the form has heard of the click.
class TabsBinding : public ActingBinding {
  public:
    TabsBinding(Tabs& tabs, QWidget* parent, Door& door)
        : ActingBinding(tabs, new QTabWidget(parent), door),
          m_tabs(tabs),
          m_pages(box().findChild<QStackedWidget*>()) {
        QObject::disconnect(box().tabBar(), &QTabBar::currentChanged, &box(), nullptr);
        QObject::connect(box().tabBar(), &QTabBar::currentChanged, &box(), [this](int index) {
            actInPlace([&](const UserInput& input) { input.changeTab(m_tabs, index); });
        });
    }
    QWidget* focusWidget() const override { return box().tabBar(); }

  private:
    QTabWidget& box() const { return static_cast<QTabWidget&>(*widget()); }
    void showContent() override {
        const QSignalBlocker quiet(box().tabBar());
        for (int i = 0; i < std::min(box().count(), m_tabs.count()); ++i) {
            box().setTabText(i, toQtCaption(m_tabs.caption(i)));
            box().tabBar()->setAccessibleTabName(i, toQtPlain(m_tabs.caption(i)));
        }
        box().tabBar()->setCurrentIndex(m_tabs.tab());
        m_pages->setCurrentIndex(m_tabs.tab());
    }
    Tabs& m_tabs;
    QStackedWidget* m_pages;
};

/// A pane has nothing to show by itself; the tabs put it on top.
class PaneBinding : public Binding {
  public:
    PaneBinding(Container& container, QWidget* parent) : Binding(container, new QWidget(parent)) {}

  private:
    void showContent() override {}
};

}  // namespace

std::unique_ptr<Binding> bind(Control& control, QWidget* parent, Door& door,
                              const Standing& standing) {
    switch (control.kind()) {
        case ControlKind::Edit:
            return std::make_unique<EditBinding>(static_cast<Edit&>(control), parent, door,
                                                 standing);
        case ControlKind::ListView:
            return std::make_unique<ListBinding>(static_cast<ListView&>(control), parent, door,
                                                 standing);
        case ControlKind::ComboBox:
            return std::make_unique<ComboBinding>(static_cast<ComboBox&>(control), parent, door);
        case ControlKind::Tabs:
            return std::make_unique<TabsBinding>(static_cast<Tabs&>(control), parent, door);
        case ControlKind::OptionButton:
            return std::make_unique<OptionBinding>(static_cast<OptionButton&>(control), parent,
                                                   door);
        case ControlKind::CheckBox:
            return std::make_unique<CheckBinding>(static_cast<CheckBox&>(control), parent, door);
        case ControlKind::Button:
            return std::make_unique<ButtonBinding>(static_cast<Button&>(control), parent, door);
        case ControlKind::Label:
            return std::make_unique<LabelBinding>(static_cast<Label&>(control), parent, standing);
        case ControlKind::Frame:
            return std::make_unique<FrameBinding>(static_cast<Frame&>(control), parent);
        case ControlKind::Container:
            return std::make_unique<PaneBinding>(static_cast<Container&>(control), parent);
        default:
            throw Error(errc::InvalidCall,
                        "A layout names " + std::string(control.name()) + ", which has no face.");
    }
}

}  // namespace wynconfig::desktop
