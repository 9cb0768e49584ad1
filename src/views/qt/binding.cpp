// How each kind of control is shown, and what is reported of it.
#include "views/qt/binding.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <cmath>
#include <utility>

#include "views/qt/convert.h"
#include "views/qt/widgets.h"
#include "wynconfig/error.h"
#include "wynconfig/layout.h"

namespace wynconfig::desktop {

Binding::Binding(Control& control, QWidget* widget) : m_control(control), m_widget(widget) {
    const std::string_view name = control.name();
    widget->setObjectName(toQt(name));
    m_takesFocus = widget->focusPolicy() != Qt::NoFocus;
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
    QPalette palette;
    if (background == Background::InactiveBorder)
        palette.setColor(QPalette::Base, inactiveColour());
    m_widget->setPalette(palette);
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

/// A colour between two, which has `share` of the first.
QColor mix(const QColor& one, const QColor& other, double share) {
    const auto between = [share](int a, int b) {
        return static_cast<int>(std::lround(share * a + (1.0 - share) * b));
    };
    return {between(one.red(), other.red()), between(one.green(), other.green()),
            between(one.blue(), other.blue())};
}

/// The luminance of a colour as the contrast of texts is reckoned with.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

}  // namespace

QColor inactiveColour() {
    const QPalette palette = QGuiApplication::palette();
    const QColor grey = palette.color(QPalette::Active, QPalette::Window);
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    return grey == base ? mix(palette.color(QPalette::Active, QPalette::Text), base, 0.15) : grey;
}

QPalette readable(QPalette palette) {
    constexpr double enough = 4.5;
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::Text, QPalette::Base},
        {QPalette::WindowText, QPalette::Window},
        {QPalette::ButtonText, QPalette::Button}};
    for (const auto& [text, ground] : pairs) {
        const QColor shown = palette.color(QPalette::Disabled, text);
        const QColor behind = palette.color(QPalette::Disabled, ground);
        if (contrast(shown, behind) >= enough) continue;
        palette.setColor(QPalette::Disabled, text,
                         mix(palette.color(QPalette::Active, text), behind, 0.6));
    }
    return palette;
}

namespace {

/// The text goes to the model only when the person edits it: a text that the box can't show as it
/// stands survives there as long as nobody touches it.
class EditBinding : public Binding {
  public:
    EditBinding(Edit& edit, QWidget* parent, Door& door)
        : Binding(edit, new TextBox(parent)), m_edit(edit), m_door(door) {
        QObject::connect(&box(), &QLineEdit::textEdited, &box(), [this] { reportText(); });
        QObject::connect(&box(), &QLineEdit::cursorPositionChanged, &box(),
                         [this] { reportCaret(); });
        QObject::connect(&box(), &QLineEdit::selectionChanged, &box(), [this] { reportCaret(); });
    }

  private:
    TextBox& box() const { return static_cast<TextBox&>(*widget()); }
    std::size_t caret() const { return charsBefore(box().text(), box().caret()); }
    void reportText() {
        m_shown = fromQt(box().text());
        m_door([this](const UserInput& input) { input.type(m_edit, m_shown, caret()); });
    }
    void reportCaret() {
        m_door([this](const UserInput& input) { input.moveCaret(m_edit, caret()); });
    }
    void showContent() override {
        const QSignalBlocker quiet(&box());
        if (m_edit.text() != m_shown) {
            m_shown = m_edit.text();
            box().setText(toQt(m_shown));
        }
        if (caret() != m_edit.caret())
            box().setCursorPosition(static_cast<int>(offsetOf(box().text(), m_edit.caret())));
    }

    Edit& m_edit;
    Door& m_door;
    std::string m_shown;
};

class ListBinding : public Binding {
  public:
    ListBinding(ListView& list, QWidget* parent, Door& door, bool headed)
        : Binding(list, new RowList(parent)), m_list(list), m_headed(headed) {
        rowList().picked = [this, &door](std::size_t number) {
            door([&](const UserInput& input) { input.pick(m_list, number); });
            // The widget may have let the row go (a click with Ctrl) that the model keeps.
            if (door.isOpen() && m_list.revision() == m_shownRevision)
                rowList().showSelected(m_list.selectedNumber());
        };
    }

  private:
    RowList& rowList() const { return static_cast<RowList&>(*widget()); }
    void showContent() override {
        if (m_list.revision() != m_shownRevision) {
            m_shownRevision = m_list.revision();
            showHeading();
            rowList().rows().setRows(m_list.rows());
        }
        rowList().showSelected(m_list.selectedNumber());
    }
    void showHeading() {
        const std::vector<ListColumn>& columns = m_list.columns();
        const QString heading = columns.empty() ? QString() : toQt(columns.front().text);
        // Under a label of its own the list would say the same twice.
        rowList().setHeaderHidden(m_headed || heading.isEmpty());
        rowList().rows().setHeading(heading);
        if (!columns.empty()) rowList().setWidthHint(toPixels(columns.front().width));
    }

    ListView& m_list;
    bool m_headed;
    std::size_t m_shownRevision = static_cast<std::size_t>(-1);
};

class ComboBinding : public Binding {
  public:
    ComboBinding(ComboBox& combo, QWidget* parent, Door& door)
        : Binding(combo, new ChoiceBox(parent)), m_combo(combo) {
        QObject::connect(&box(), &QComboBox::activated, &box(), [this, &door](int index) {
            door([&](const UserInput& input) { input.choose(m_combo, index); });
        });
    }

  private:
    QComboBox& box() const { return static_cast<QComboBox&>(*widget()); }
    void showContent() override {
        const QSignalBlocker quiet(&box());
        if (m_combo.revision() != m_shownRevision) {
            m_shownRevision = m_combo.revision();
            QStringList items;
            for (const std::string& item : m_combo.items()) items.push_back(toQt(item));
            box().clear();
            box().addItems(items);
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

class OptionBinding : public Binding {
  public:
    OptionBinding(OptionButton& option, QWidget* parent, Door& door)
        : Binding(option, new OptionBox(parent)), m_option(option) {
        QObject::connect(&box(), &QRadioButton::clicked, &box(), [this, &door] {
            door([this](const UserInput& input) { input.choose(m_option); });
        });
    }

  private:
    OptionBox& box() const { return static_cast<OptionBox&>(*widget()); }
    void showContent() override {
        const QSignalBlocker quiet(&box());
        showCaption(box(), m_option);
        box().setChecked(m_option.value());
    }
    OptionButton& m_option;
};

class CheckBinding : public Binding {
  public:
    CheckBinding(CheckBox& check, QWidget* parent, Door& door)
        : Binding(check, new QCheckBox(parent)), m_check(check) {
        QObject::connect(&box(), &QCheckBox::clicked, &box(), [this, &door](bool on) {
            door([&](const UserInput& input) { input.tick(m_check, on); });
        });
    }

  private:
    QCheckBox& box() const { return static_cast<QCheckBox&>(*widget()); }
    void showContent() override {
        const QSignalBlocker quiet(&box());
        showCaption(box(), m_check);
        box().setChecked(m_check.value());
    }
    CheckBox& m_check;
};

class ButtonBinding : public Binding {
  public:
    ButtonBinding(Button& button, QWidget* parent, Door& door)
        : Binding(button, new QPushButton(parent)), m_button(button) {
        QObject::connect(&box(), &QPushButton::clicked, &box(), [this, &door] {
            door([this](const UserInput& input) { input.click(m_button); });
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
        : Binding(label, standing.labelledBy ? new ValueLabel(parent) : new QLabel(parent)),
          m_label(label),
          m_labels(standing.labels) {
        static_cast<QLabel*>(widget())->setTextFormat(Qt::PlainText);
    }

  private:
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
        : Binding(frame, new QGroupBox(parent)), m_frame(frame) {}

  private:
    void showContent() override {
        static_cast<QGroupBox*>(widget())->setTitle(toQtCaption(m_frame.caption()));
        widget()->setAccessibleName(toQtPlain(m_frame.caption()));
    }
    Frame& m_frame;
};

/// The bar tells only what the person wants; the model decides, and only then the page changes.
/// Else the focus would go with the page before the form has heard of the click.
class TabsBinding : public Binding {
  public:
    TabsBinding(Tabs& tabs, QWidget* parent, Door& door)
        : Binding(tabs, new QTabWidget(parent)),
          m_tabs(tabs),
          m_pages(box().findChild<QStackedWidget*>()) {
        QObject::disconnect(box().tabBar(), &QTabBar::currentChanged, &box(), nullptr);
        QObject::connect(box().tabBar(), &QTabBar::currentChanged, &box(),
                         [this, &door](int index) {
                             door([&](const UserInput& input) { input.changeTab(m_tabs, index); });
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
            return std::make_unique<EditBinding>(static_cast<Edit&>(control), parent, door);
        case ControlKind::ListView:
            return std::make_unique<ListBinding>(static_cast<ListView&>(control), parent, door,
                                                 standing.labelledBy != nullptr);
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
