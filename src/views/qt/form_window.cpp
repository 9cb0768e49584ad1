// The window of one form: shows what the form's controls are, and runs until the form unloads.
#include "views/qt/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QShortcutEvent>
#include <QStyle>
#include <QTabBar>
#include <algorithm>
#include <optional>

#include "views/qt/convert.h"
#include "views/qt/finding.h"
#include "views/qt/help.h"
#include "views/qt/list_menu.h"
#include "views/qt/widgets.h"
#include "wynconfig/qt_view.h"
#include "wynconfig/view.h"

namespace wynconfig::desktop {

namespace {

/// The room that a window has on its screen beside its frame, of which nobody can tell before the
/// window is there.
QSize roomOnScreen(const QWidget& window) {
    const QStyle& style = *window.style();
    const int title = style.pixelMetric(QStyle::PM_TitleBarHeight);
    const int edge = style.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    return window.screen()->availableSize() - QSize(2 * edge, title + 2 * edge);
}

}  // namespace

FormWindow::FormWindow(Form& form, UserInput input, QWidget* parent)
    : QDialog(parent),
      m_form(&form),
      m_name(form.name()),
      m_door(input, [this] { m_loop.quit(); }),
      m_fixed(form.width() > 0 || form.height() > 0) {
    setObjectName(toQt(m_name));
    setWindowModality(Qt::ApplicationModal);
    // A dialog of the component must not end a host that has no other window.
    setAttribute(Qt::WA_QuitOnClose, false);
    if (m_fixed) {
        setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                       Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                       Qt::MSWindowsFixedSizeDialogHint);
    }
    m_built = FormBuilder(this, m_door).build(form.layout().body);
    clarify(*this);
    m_leastWidth = new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Fixed);
    layout()->addItem(m_leastWidth);
    watch();
    markDefaultButton();
    form.observe(this);
    sync();
}

FormWindow::~FormWindow() {
    m_door.shut();
    if (m_form) m_form->observe(nullptr);
}

void FormWindow::watch() {
    for (const ListHelp& each : m_built.listHelps) {
        // A part of the list, for which the form knows no other place.
        m_byWidget[each.filter] = each.list;
        each.filter->installEventFilter(this);
    }
    for (const auto& binding : m_built.bindings) {
        m_byControl[&binding->control()] = binding.get();
        m_byWidget[binding->focusWidget()] = &binding->control();
        binding->focusWidget()->installEventFilter(this);
        // What the mouse finds of a list is its viewport.
        if (auto* area = qobject_cast<QAbstractScrollArea*>(binding->widget())) {
            m_byWidget[area->viewport()] = &binding->control();
            area->viewport()->installEventFilter(this);
        }
        if (auto* rows = dynamic_cast<RowList*>(binding->widget()))
            tieRows(static_cast<ListView&>(binding->control()), *rows);
    }
}

void FormWindow::tieRows(ListView& list, RowList& rows) {
    rows.doubleClicked = [this, &list] {
        const KeyAct act = m_form ? actOfDoubleClick(*m_form, list) : KeyAct{};
        obey(act);
        return static_cast<bool>(act);
    };
    const Layout& body = m_form->layout().body;
    for (Control* each : controlsOf(body)) {
        if (each->kind() != ControlKind::ListView) continue;
        const auto& other = static_cast<const ListView&>(*each);
        if (moverOf(body, list, other)) rows.letRowsGo();
        if (moverOf(body, other, list)) rows.takeRows();
    }
    const auto mover = [this, &list](const RowList& from) -> Button* {
        const auto found = m_byWidget.find(&from);
        if (!m_form || found == m_byWidget.end()) return nullptr;
        const Layout& whole = m_form->layout().body;
        Button* button = moverOf(whole, static_cast<const ListView&>(*found->second), list);
        return button && isUsable(whole, *button) ? button : nullptr;
    };
    rows.takes = [mover](const RowList& from) { return mover(from) != nullptr; };
    rows.putDown = [this, mover](const RowList& from) {
        if (Button* button = mover(from)) pressLater(*button);
    };
}

void FormWindow::markDefaultButton() {
    Button* button = m_form->layout().defaultButton;
    for (const auto& binding : m_built.bindings) {
        auto* widget = qobject_cast<QPushButton*>(binding->widget());
        if (!widget) continue;
        // With a default button the mark moves to the button that has the focus, and Enter with it.
        widget->setAutoDefault(button != nullptr);
        widget->setDefault(&binding->control() == button);
    }
}

void FormWindow::run(const std::function<void()>& cameUp) {
    focusFirst();
    sync();
    if (m_form) {
        const Control* first = m_form->focused();
        if (Binding* there = first ? binding(*first) : nullptr) there->offerContent();
        applySize();
        show();
        QMetaObject::invokeMethod(this, cameUp, Qt::QueuedConnection);
    }
    if (m_form && !m_door.failure()) m_loop.exec();
    // Something failed, or the host told all event loops to end: the form can't stay either way.
    m_door([this](const UserInput& input) { input.closeByFrame(*m_form); });
    if (m_door.failure()) std::rethrow_exception(m_door.failure());
}

Binding* FormWindow::binding(const Control& control) const {
    const auto found = m_byControl.find(&control);
    return found == m_byControl.end() ? nullptr : found->second;
}

void FormWindow::changed(Control* control) {
    if (!control || control->kind() == ControlKind::FormCaption)
        m_formChanged = true;
    else if (Binding* changed = binding(*control))
        changed->dirty = true;
    if (control && m_form->loaded()) m_refusal.changed(*control);
    showRefused();
    syncLater();
}

void FormWindow::syncLater() {
    if (std::exchange(m_syncPending, true)) return;
    QMetaObject::invokeMethod(
        this, [this] { sync(); }, Qt::QueuedConnection);
}

void FormWindow::sync() {
    m_syncPending = false;
    if (!m_form || m_syncing) return;
    m_door([this](const UserInput&) {
        bool any = m_formChanged;
        {
            const QScopedValueRollback syncing(m_syncing, true);
            for (const auto& binding : m_built.bindings) {
                if (!binding->dirty) continue;
                binding->show();
                any = true;
            }
            if (!any) return;
            showSpokenNames();
            showMovers();
            showListHelps();
            const bool formChanged = std::exchange(m_formChanged, false);
            if (formChanged) showForm();
            evenOut();
            if (formChanged) applySize();
            if (m_fixed) applySize();
        }
        settleFocus();
    });
}

void FormWindow::showForm() {
    setWindowTitle(toQtPlain(m_form->title()));
    if (std::shared_ptr<const Font> font = m_form->font(); font != m_font) {
        m_font = std::move(font);
        setFont(m_font ? toQt(*m_font) : QFont());
    }
    applyLeastWidth();
}

void FormWindow::applyLeastWidth() {
    constexpr int kComfortable = 45;
    const QMargins edges = layout()->contentsMargins();
    const int most = roomOnScreen(*this).width() - edges.left() - edges.right();
    const int least =
        std::min(std::max(titleWidth(windowTitle()), charsWide(fontMetrics(), kComfortable)), most);
    if (m_leastWidth->sizeHint().width() == least) return;
    m_leastWidth->changeSize(least, 0, QSizePolicy::Minimum, QSizePolicy::Fixed);
    layout()->invalidate();
}

void FormWindow::measureAnew() {
    for (QWidget* each : findChildren<QWidget*>()) {
        each->ensurePolished();
        each->updateGeometry();
    }
    for (QLayout* each : findChildren<QLayout*>()) each->invalidate();
}

void FormWindow::showSpokenNames() {
    for (const SpokenName& each : m_built.spokenNames) {
        const QString name = each.caption ? toQtPlain(each.caption->caption())
                                          : toQt(viewWord(std::string(each.word)));
        if (each.widget->accessibleName() != name) each.widget->setAccessibleName(name);
    }
}

void FormWindow::showMovers() {
    for (const Mover& each : m_built.movers) {
        // Its caption is but an arrow, so that it goes by the lists between which it moves rows.
        const QString arrow = isRightToLeft() ? QStringLiteral(" ← ") : QStringLiteral(" → ");
        const QString name =
            toQtPlain(each.from->caption()) + arrow + toQtPlain(each.into->caption());
        if (each.button->accessibleName() == name) continue;
        each.button->setAccessibleName(name);
        each.button->setToolTip(toToolTip(name, Lines::One));
        // Else a screen reader would be told the tool tip, markup and all.
        each.button->setAccessibleDescription(name);
    }
}

void FormWindow::showListHelps() {
    for (const ListHelp& each : m_built.listHelps) {
        each.filter->follow();
        each.note->follow();
    }
}

void FormWindow::evenOut() {
    for (const Mover& each : m_built.movers) {
        const int side = each.button->sizeHint().height() * 5 / 4;
        each.button->setFixedSize(side, side);
    }
    for (const std::vector<QPushButton*>& row : m_built.buttonRows) {
        int width = 0;
        for (const QPushButton* button : row) {
            // Some air on both sides of the longest word, which styles leave little of.
            const int air = 2 * button->fontMetrics().averageCharWidth();
            const int text = button->fontMetrics().horizontalAdvance(button->text());
            width = std::max({width, button->sizeHint().width(), text + 2 * air});
        }
        for (QPushButton* button : row) button->setMinimumWidth(width);
    }
    for (const std::vector<QGridLayout*>& column : m_built.fieldColumns) {
        int width = 0;
        for (const QGridLayout* grid : column) {
            for (int row = 0; row < grid->rowCount(); ++row) {
                if (const QLayoutItem* label = grid->itemAtPosition(row, 0))
                    width = std::max(width, label->sizeHint().width());
            }
        }
        for (QGridLayout* grid : column) grid->setColumnMinimumWidth(0, width);
    }
    // What grows does so in proportion to what it asks for, buttons and all.
    for (QBoxLayout* row : m_built.listRows) {
        for (int i = 0; i < row->count(); ++i) {
            if (row->stretch(i) > 0) row->setStretch(i, row->itemAt(i)->sizeHint().width());
        }
    }
}

void FormWindow::applySize() {
    if (!isVisible()) {
        measureAnew();
        evenOut();
        fitScreen();
    }
    layout()->activate();
    const QSize asked(toPixels(m_form->width()), toPixels(m_form->height()));
    const QSize room = roomOnScreen(*this);
    if (m_fixed) {
        // Never so small that something would be cut off.
        m_ownSize = m_scrolled ? asked.expandedTo(sizeHint()).boundedTo(room)
                               : asked.expandedTo(minimumSizeHint());
        setFixedSize(m_ownSize);
        return;
    }
    const QSize twips(m_form->width(), m_form->height());
    // The size that the person just chose; there may be a later one under way by now.
    if (m_ownSize.isValid() && twips == m_pulledTo) return;
    const QSize wanted = twips.isEmpty() ? sizeHint() : asked;
    m_ownSize = wanted.boundedTo(room).expandedTo(minimumSizeHint());
    resize(m_ownSize);
}

void FormWindow::fitScreen() {
    layout()->activate();
    const QSize room = roomOnScreen(*this);
    if (m_scrolled || minimumSizeHint().boundedTo(room) == minimumSizeHint()) return;
    m_scrolled = new ScrolledContent(m_built.content, this);
    auto& outer = static_cast<QBoxLayout&>(*layout());
    outer.insertWidget(0, m_scrolled, 1);
    outer.setAlignment({});
}

void FormWindow::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (m_syncing || !isVisible() || event->size() == m_ownSize) return;
    if (!m_fixed) m_ownSize = event->size();
    m_pulledTo = {toTwips(event->size().width()), toTwips(event->size().height())};
    m_door([this](const UserInput& input) {
        input.resize(*m_form, m_pulledTo.width(), m_pulledTo.height());
    });
}

void FormWindow::pullTo(const QSize& size) {
    if (m_fixed) {
        // The limits of the window would swallow a call of resize().
        QResizeEvent event(size, this->size());
        QCoreApplication::sendEvent(this, &event);
    } else {
        resize(size);
    }
}

void FormWindow::markRefused(const std::string& why) {
    m_refusal.told();
    m_whyRefused = toQt(why).simplified();
    QMetaObject::invokeMethod(
        this, [this] { m_refusal.actEnded(); }, Qt::QueuedConnection);
}

void FormWindow::showRefused() {
    const Control* const marked = m_refusal.marked();
    if (m_refused && m_refused != marked) binding(*m_refused)->setRefused(false);
    if (marked) binding(*marked)->setRefused(true, m_whyRefused);
    m_refused = marked;
}

void FormWindow::focusMoved(Control& control) {
    m_refusal.turnedTo(control);
    showRefused();
    if (m_syncing) return;
    sync();
    // Not to the control of the argument: a handler of the focus may have moved it on by now.
    settleFocus();
}

bool FormWindow::canFocus(const QWidget& widget) const {
    return widget.isEnabled() && widget.isVisibleTo(this);
}

/// Has the focus where the form has it; where it can't stay there, the form learns where it went.
void FormWindow::settleFocus() {
    if (!m_form) return;
    const Control* wanted = m_form->focused();
    Binding* there = wanted ? binding(*wanted) : nullptr;
    if (there && canFocus(*there->focusWidget())) {
        const auto at = m_byWidget.find(focusWidget());
        if (at == m_byWidget.end() || at->second != wanted)
            there->focusWidget()->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (!isVisible()) return;
    const auto actual = m_byWidget.find(focusWidget());
    if (actual == m_byWidget.end()) return;
    m_door([&](const UserInput& input) { input.focus(*actual->second); });
}

void FormWindow::focusFirst() {
    const Control* wanted = m_form->focused();
    const Binding* there = wanted ? binding(*wanted) : nullptr;
    if (there && canFocus(*there->focusWidget())) return;
    std::vector<Control*> order = tabOrder(m_form->layout().body);
    std::erase_if(order, [](const Control* each) { return each->kind() == ControlKind::Tabs; });
    if (const Binding* first = stopAfter(order, nullptr, true)) {
        m_door([&](const UserInput& input) { input.focus(first->control()); });
        settleFocus();
    }
}

const Binding* FormWindow::stopAfter(const std::vector<Control*>& order, const Control* from,
                                     bool forward) const {
    const auto stops = [this](const Control& control) {
        const QWidget& widget = *binding(control)->focusWidget();
        return canFocus(widget) && (widget.focusPolicy() & Qt::TabFocus);
    };
    const Control* next = nextStop(order, from, forward, stops);
    return next ? binding(*next) : nullptr;
}

bool FormWindow::focusNextPrevChild(bool next) {
    const auto found = m_byWidget.find(focusWidget());
    const Control* from = found == m_byWidget.end() ? nullptr : found->second;
    const Binding* to = m_form ? stopAfter(m_built.tabOrder, from, next) : nullptr;
    if (!to) return false;
    to->focusWidget()->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

namespace {

std::optional<FormKey> formKey(const QKeyEvent& key) {
    const bool ctrl = key.modifiers() & Qt::ControlModifier;
    const bool shift = key.modifiers() & Qt::ShiftModifier;
    switch (key.key()) {
        case Qt::Key_Enter:
        case Qt::Key_Return:
            return FormKey::Enter;
        case Qt::Key_Escape:
            return FormKey::Escape;
        case Qt::Key_Delete:
            return FormKey::Delete;
        case Qt::Key_F1:
            // With Shift it is what the widget with the focus tells of itself.
            if (!shift) return FormKey::F1;
            break;
        case Qt::Key_F2:
            return FormKey::F2;
        case Qt::Key_Tab:
            if (ctrl) return shift ? FormKey::PreviousPane : FormKey::NextPane;
            break;
        case Qt::Key_PageDown:
            if (ctrl) return FormKey::NextPane;
            break;
        case Qt::Key_Backtab:
        case Qt::Key_PageUp:
            if (ctrl) return FormKey::PreviousPane;
            break;
        default:
            break;
    }
    return std::nullopt;
}

}  // namespace

bool FormWindow::takeFindKey(const QKeyEvent& key) {
    if (!key.matches(QKeySequence::Find)) return false;
    const auto focused = m_byWidget.find(focusWidget());
    FilterLine* found = nullptr;
    for (const ListHelp& each : m_built.listHelps) {
        if (!each.filter->isVisible() || !each.filter->isEnabled()) continue;
        const bool inIt = focused != m_byWidget.end() && focused->second == each.list;
        if (!found || inIt) found = each.filter;
    }
    if (found) found->begin();
    return found != nullptr;
}

bool FormWindow::takeKeyIn(FilterLine& filter, const QKeyEvent& key) {
    if (takeFindKey(key)) return true;
    switch (key.key()) {
        case Qt::Key_Escape:
            if (filter.text().isEmpty()) return takeKey(key);
            filter.clear();
            return true;
        case Qt::Key_Down:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            filter.list().enter();
            return true;
        case Qt::Key_Delete:
        case Qt::Key_F2:
            return false;
        default:
            return takeKey(key);
    }
}

bool FormWindow::takeKey(const QKeyEvent& key) {
    const std::optional<FormKey> wanted = formKey(key);
    if (!wanted || !m_form) return false;
    const auto* list = dynamic_cast<const RowList*>(focusWidget());
    const KeyAct act = actOfKey(*m_form, *wanted, list ? list->marked() : 0);
    obey(act);
    return static_cast<bool>(act);
}

bool FormWindow::offerMenu(QObject* watched, const QPoint* at) {
    auto* rows = dynamic_cast<RowList*>(watched);
    if (!rows && watched) rows = dynamic_cast<RowList*>(watched->parent());
    const auto found = m_byWidget.find(rows);
    if (!rows || !m_form || found == m_byWidget.end() || QApplication::activePopupWidget())
        return false;
    auto* menu =
        new ListMenu(*m_form, static_cast<ListView&>(*found->second), isRightToLeft(), this);
    if (menu->isEmpty()) {
        delete menu;
        return false;
    }
    menu->setFont(rows->font());
    menu->chosen = [this](Button& button) { pressLater(button); };
    menu->popup(at ? *at : rows->placeOfMenu());
    return true;
}

bool FormWindow::takeMenuKey(QObject* watched, const QKeyEvent& key) {
    const bool asks = key.key() == Qt::Key_Menu ||
                      (key.key() == Qt::Key_F10 && key.modifiers() == Qt::ShiftModifier);
    return asks && offerMenu(watched, nullptr);
}

void FormWindow::pressLater(Button& button) {
    QMetaObject::invokeMethod(
        this,
        [this, &button] {
            if (m_form) obey({KeyAct::Kind::Press, &button});
        },
        Qt::QueuedConnection);
}

void FormWindow::obey(const KeyAct& act) {
    if (act.kind == KeyAct::Kind::Help) return showHelp();
    const bool moves = act.takesFocus || act.kind == KeyAct::Kind::Focus;
    if (const Binding* there = moves ? binding(*act.control) : nullptr)
        takeFocusTo(*there->focusWidget(), Qt::ShortcutFocusReason);
    m_door([&](const UserInput& input) { carryOut(act, input); });
}

void FormWindow::showHelp() {
    m_door([this](const UserInput&) {
        if (!m_help) m_help = new HelpWindow(*this);
        m_help->setFont(font());
        m_help->show(helpPage(*m_form, isRightToLeft()));
    });
}

/// A key that is marked twice only moves the focus around, which Qt does by itself, and so does a
/// bar turn its tabs.
bool FormWindow::followKey(const QObject* marked, const QShortcutEvent& key) {
    const auto found = m_byWidget.find(marked);
    if (!m_form || key.isAmbiguous() || found == m_byWidget.end()) return false;
    if (found->second->kind() == ControlKind::Tabs) return false;
    obey(actOfMark(*m_form, {found->second}));
    return true;
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    if (m_form && asksForHelp(*event)) {
        const auto found = m_byWidget.find(watched);
        const Binding* asked = found == m_byWidget.end() ? nullptr : binding(*found->second);
        if (asked) provideHelp(*asked->widget(), m_form->help(&asked->control()));
    }
    // Before the widget takes it: a list would turn its own pages, and a button press itself.
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        auto* const filter = dynamic_cast<FilterLine*>(watched);
        if (filter ? takeKeyIn(*filter, key)
                   : takeFindKey(key) || takeMenuKey(watched, key) || takeKey(key))
            return true;
    }
    if (event->type() == QEvent::ContextMenu) {
        const auto& asked = static_cast<const QContextMenuEvent&>(*event);
        const bool byMouse = asked.reason() == QContextMenuEvent::Mouse;
        if (offerMenu(watched, byMouse ? &asked.globalPos() : nullptr)) return true;
    }
    if (event->type() == QEvent::Shortcut &&
        followKey(watched, static_cast<const QShortcutEvent&>(*event)))
        return true;
    // Focus that goes away is never told, so that boxes, other windows and closing raise nothing.
    if (event->type() == QEvent::FocusIn && !m_syncing) {
        const auto found = m_byWidget.find(watched);
        if (m_scrolled) m_scrolled->ensureWidgetVisible(static_cast<QWidget*>(watched));
        if (found != m_byWidget.end()) {
            m_refusal.wentTo(*found->second);
            showRefused();
            m_door([&](const UserInput& input) { input.focus(*found->second); });
        }
    }
    return QDialog::eventFilter(watched, event);
}

/// Without a control that has the focus a key goes to the window; what it has no use for must not
/// go on to QDialog, which would press buttons of its own choice.
void FormWindow::keyPressEvent(QKeyEvent* event) {
    event->setAccepted(takeFindKey(*event) || takeKey(*event));
}

void FormWindow::takeFocusTo(QWidget& widget, Qt::FocusReason reason) {
    const auto found = m_byWidget.find(&widget);
    if (found == m_byWidget.end()) return;
    m_door([&](const UserInput& input) { input.focus(*found->second); });
    if (m_form) widget.setFocus(reason);
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    m_door([this](const UserInput& input) { input.closeByFrame(*m_form); });
}

void FormWindow::giveUp() {
    m_door([this](const UserInput& input) {
        if (Button* cancel = m_form->layout().cancelButton) input.click(*cancel);
    });
    m_door([this](const UserInput& input) { input.closeByFrame(*m_form); });
}

void FormWindow::unloaded() {
    m_door.shut();
    m_form = nullptr;
    m_loop.quit();
    if (m_help) m_help->hide();
    hide();
}

}  // namespace wynconfig::desktop
