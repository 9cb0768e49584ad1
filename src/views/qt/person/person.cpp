// The person who drives the real widgets.
#include "views/qt/person/person.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QProgressBar>
#include <QStyle>
#include <QStyleOption>
#include <QTabBar>
#include <QTabWidget>

#include "platform/forms/named_control.h"
#include "views/qt/boxes.h"
#include "views/qt/convert.h"
#include "views/qt/help.h"
#include "views/qt/person/hands.h"
#include "views/qt/person/sight.h"
#include "views/qt/waiting.h"
#include "views/qt/widgets.h"
#include "wynconfig/key_holder.h"

namespace wynconfig::desktop {

namespace {

/// Where a mouse has to hit: of a check box or option the mark, since beside its caption it is
/// deaf.
QPoint spotOf(const QAbstractButton& button) {
    const auto markOf = [&](QStyle::SubElement mark) {
        QStyleOptionButton option;
        option.initFrom(&button);
        return button.style()->subElementRect(mark, &option, &button).center();
    };
    if (button.inherits("QCheckBox")) return markOf(QStyle::SE_CheckBoxIndicator);
    if (button.inherits("QRadioButton")) return markOf(QStyle::SE_RadioButtonIndicator);
    return button.rect().center();
}

void settle(FormWindow& window) {
    window.sync();
    QCoreApplication::sendPostedEvents();
}

}  // namespace

FormWindow* Screen::top() const {
    for (auto each = forms.rbegin(); each != forms.rend(); ++each) {
        if ((*each)->live()) return *each;
    }
    return nullptr;
}

void Person::meet(FormWindow& window) {
    formCameUp(window.name());
    if (!window.live()) return;
    blame("the form " + window.name() + " was left open");
    window.giveUp();
}

void Person::answer(QMessageBox& box, const MessageRequest& shown) {
    const int number = boxCameUp(shown);
    bringUp(box);
    if (QAbstractButton* button = buttonOf(box, number)) {
        mouseClick(*button, spotOf(*button));
        return;
    }
    blame("the box \"" + shown.text + "\" has no button " + std::to_string(number));
    keyClick(box, Qt::Key_Escape);
}

void Person::pickPath(QFileDialog& dialog, const BrowseRequest& request) {
    const std::string path = browseCameUp(request);
    if (!path.empty()) {
        // Asked before, since the dialog tells of a path that is not there by a box of its own.
        const QFileInfo there(toQt(path));
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (name && there.exists() && (request.files ? there.isFile() : there.isDir())) {
            // Not by the keyboard: the list of completions would come up in between.
            name->setText(QDir::fromNativeSeparators(toQt(path)));
            mouseFocus(*name);
            keyClick(dialog, Qt::Key_Return, Qt::NoModifier, "\r");
        }
        if (!dialog.isVisible()) return;
        blame("the browse dialog \"" + request.title + "\" does not take \"" + path + "\"");
    }
    dialog.reject();
}

void Person::watch(Progress::Stage stage, const ProgressPanel* panel) {
    const QCursor* cursor = QGuiApplication::overrideCursor();
    const bool waits = cursor && cursor->shape() == Qt::WaitCursor;
    const bool isThere = panel && panel->isVisible();
    SeenProgress sign{stage, {}, {}, 0, 0};
    switch (stage) {
        case Progress::Stage::Begins:
            if (waits && !isThere) progressSeen(sign);
            return;
        case Progress::Stage::Lasts:
            if (!waits || !isThere) return;
            sign.title = fromQt(panel->title());
            sign.text = fromQt(panel->text());
            sign.done = static_cast<std::size_t>(panel->bar().value());
            sign.all = static_cast<std::size_t>(panel->bar().maximum());
            return progressSeen(sign);
        case Progress::Stage::Ends:
            if (!waits && !isThere) progressSeen(sign);
            return;
    }
}

FormWindow& Person::top() const {
    FormWindow* window = m_screen.top();
    if (!window) throw UserError("there is no form on the screen");
    settle(*window);
    if (!window->live()) return top();
    return *window;
}

FormWindow& Person::inHand() const {
    FormWindow& window = top();
    bringUp(window);
    return window;
}

Control& Person::there(std::string_view name) const {
    return namedControl(*top().form(), name);
}

template <class W>
W& Person::usable(std::string_view name) const {
    const Control& control = there(name);
    const FormWindow& window = inHand();
    const Binding* binding = window.binding(control);
    if (!binding || !binding->widget()->isVisible())
        throw UserError(std::string(name) + " is hidden");
    if (!binding->widget()->isEnabled()) throw UserError(std::string(name) + " is disabled");
    auto* widget = dynamic_cast<W*>(binding->widget());
    if (!widget) throw UserError("this can't be done with " + std::string(name));
    return *widget;
}

std::string Person::formName() const {
    const FormWindow* window = m_screen.top();
    return window ? window->name() : std::string();
}

std::string Person::formTitle() const {
    return fromQt(top().windowTitle());
}

void Person::click(std::string_view name) {
    auto& button = usable<QAbstractButton>(name);
    mouseClick(button, spotOf(button));
}

void Person::bareClick(std::string_view name) {
    usable<QAbstractButton>(name).click();
}

void Person::pressEnter() {
    keyClick(inHand(), Qt::Key_Return, Qt::NoModifier, "\r");
}

void Person::pressEscape() {
    keyClick(inHand(), Qt::Key_Escape);
}

void Person::pressDelete() {
    // One character goes, not a text that is selected since the dialog opened.
    if (auto* box = dynamic_cast<TextBox*>(inHand().focusWidget()); box && box->hasSelectedText())
        box->setCursorPosition(box->caret());
    keyClick(inHand(), Qt::Key_Delete, Qt::NoModifier, QStringLiteral("\x7f"));
}

void Person::pressF2() {
    keyClick(inHand(), Qt::Key_F2);
}

void Person::pressTab() {
    keyClick(inHand(), Qt::Key_Tab, Qt::NoModifier, "\t");
}

void Person::pressMnemonic(std::string_view key) {
    FormWindow& window = inHand();
    const auto look = [&](const Control& control) { return desktop::look(window, control); };
    holderOf(window.form()->layout().body, key, look);
    if (!shortcut(window, toQt(key)))
        throw UserError("the window does not take Alt+" + std::string(key));
}

void Person::focus(std::string_view name) {
    auto& widget = usable<QWidget>(name);
    if (!(widget.focusPolicy() & Qt::ClickFocus))
        throw UserError(std::string(name) + " takes no focus");
    mouseFocus(widget);
}

void Person::type(std::string_view name, const std::string& text) {
    auto& box = usable<TextBox>(name);
    mouseFocus(box);
    keyClick(*box.window(), Qt::Key_A, Qt::ControlModifier);
    if (text.empty())
        keyClick(*box.window(), Qt::Key_Delete);
    else
        typeText(*box.window(), toQt(text));
    if (fromQt(box.text()) != text)
        throw UserError(std::string(name) + " does not take \"" + text + "\"");
}

void Person::setCaret(std::string_view name, std::size_t caret) {
    auto& box = usable<TextBox>(name);
    mouseFocus(box);
    box.setCursorPosition(static_cast<int>(offsetOf(box.text(), caret)));
}

QPersistentModelIndex Person::reach(RowList& list, const std::string& text) const {
    const auto find = [&]() -> QPersistentModelIndex {
        const QAbstractItemModel& rows = *list.model();
        const QModelIndexList found = rows.match(rows.index(0, 0), Qt::DisplayRole, toQt(text), 1,
                                                 Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (!found.isEmpty()) return found.front();
        throw UserError(fromQt(list.objectName()) + " has no row \"" + text + "\"");
    };
    find();
    mouseFocus(list);
    settle(static_cast<FormWindow&>(*list.window()));
    QPersistentModelIndex row = find();
    list.scrollTo(row);
    return row;
}

void Person::pick(std::string_view name, const std::string& text) {
    auto& list = usable<RowList>(name);
    const QPersistentModelIndex row = reach(list, text);
    mouseClick(*list.viewport(), list.visualRect(row).center());
}

void Person::doubleClick(std::string_view name, const std::string& text) {
    pick(name, text);
    auto& list = usable<RowList>(name);
    const QPersistentModelIndex row = reach(list, text);
    mouseDoubleClick(*list.viewport(), list.visualRect(row).center());
}

void Person::typeAhead(std::string_view name, const std::string& letters) {
    auto& widget = usable<QWidget>(name);
    auto* list = dynamic_cast<RowList*>(&widget);
    auto* combo = dynamic_cast<ChoiceBox*>(&widget);
    if (!list && !combo) throw UserError("nothing is found by letters in " + std::string(name));
    mouseFocus(widget);
    (list ? list->typing : combo->typing).stop();
    typeText(*widget.window(), toQt(letters));
    settle(static_cast<FormWindow&>(*widget.window()));
}

void Person::choose(std::string_view name, const std::string& text) {
    auto& combo = usable<QComboBox>(name);
    const int index = combo.findText(toQt(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0) throw UserError(std::string(name) + " has no item \"" + text + "\"");
    mouseFocus(combo);
    combo.showPopup();
    combo.view()->setCurrentIndex(combo.model()->index(index, combo.modelColumn()));
    keyClick(*combo.view(), Qt::Key_Return, Qt::NoModifier, "\r");
}

void Person::changeTab(std::string_view name, int index) {
    QTabBar& bar = *usable<QTabWidget>(name).tabBar();
    if (index < 0 || index >= bar.count())
        throw UserError(std::string(name) + " has no tab " + std::to_string(index));
    mouseClick(bar, bar.tabRect(index).center());
}

void Person::resize(int width, int height) {
    inHand().pullTo({toPixels(width), toPixels(height)});
}

void Person::closeByFrame() {
    inHand().close();
}

Sight Person::see(std::string_view name) {
    const Control& control = there(name);
    return look(top(), control);
}

std::string Person::help(std::string_view name) {
    const Control& control = there(name);
    const Binding* binding = inHand().binding(control);
    if (!binding || !binding->widget()->isVisible())
        throw UserError(std::string(name) + " is hidden");
    return helpOn(*binding->widget());
}

std::vector<std::string> Person::readHelp() {
    FormWindow& window = inHand();
    keyClick(window, Qt::Key_F1);
    auto* help = window.findChild<HelpWindow*>();
    if (!help || !help->isVisible()) return {};
    bringUp(*help);
    std::vector<std::string> lines;
    for (const QString& line : help->lines()) lines.push_back(fromQt(line));
    keyClick(*help, Qt::Key_Escape);
    if (help->isVisible()) throw UserError("Escape does not close the help");
    return lines;
}

}  // namespace wynconfig::desktop
