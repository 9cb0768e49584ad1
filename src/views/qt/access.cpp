// What assistive programs are told of the widgets that Qt would speak of wrongly, and what their
// actions do.
#include "views/qt/access.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPushButton>

#include "views/qt/form_window.h"
#include "views/qt/waiting.h"
#include "views/qt/widgets.h"

namespace wynconfig::desktop {

namespace {

/// A button, check box or option of a form. Qt takes an option for a check box when it leaves it to
/// others to exclude others, and has actions press without moving the focus: the box that a person
/// comes from would never hear that it was left.
class ButtonAccess : public QAccessibleWidget {
  public:
    ButtonAccess(QAbstractButton* button, QAccessible::Role role)
        : QAccessibleWidget(button, role), m_button(button) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = m_button->isCheckable();
        state.checked = m_button->isChecked();
        state.pressed = m_button->isDown();
        if (const auto* button = qobject_cast<QPushButton*>(m_button))
            state.defaultButton = button->isDefault();
        return state;
    }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Accelerator ? shortcut() : QAccessibleWidget::text(kind);
    }
    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (m_button->isEnabled()) names.prepend(ownAction());
        return names;
    }
    void doAction(const QString& action) override {
        if (!m_button->isEnabled()) return;
        if (action != pressAction() && action != toggleAction())
            QAccessibleWidget::doAction(action);
        else if (m_button->isCheckable())
            press(*m_button);
        else
            // Not at once: it may open a dialog, for which whoever asks would have to wait.
            QMetaObject::invokeMethod(
                m_button, [button = m_button] { press(*button); }, Qt::QueuedConnection);
    }
    QStringList keyBindingsForAction(const QString& action) const override {
        return action == ownAction() ? QStringList{shortcut()} : QStringList{};
    }

  private:
    static void press(QAbstractButton& button) {
        if (!inReach(button)) return;
        static_cast<FormWindow&>(*button.window()).takeFocusTo(button);
        button.click();
    }
    const QString& ownAction() const {
        return role() == QAccessible::CheckBox ? toggleAction() : pressAction();
    }
    QString shortcut() const { return m_button->shortcut().toString(QKeySequence::NativeText); }

    QAbstractButton* m_button;
};

QAccessibleInterface* accessOf(const QString&, QObject* object) {
    if (auto* set = dynamic_cast<OptionSet*>(object))
        return new QAccessibleWidget(set, QAccessible::Grouping);
    if (auto* panel = dynamic_cast<ProgressPanel*>(object))
        return new QAccessibleWidget(panel, QAccessible::AlertMessage);
    auto* button = qobject_cast<QAbstractButton*>(object);
    if (!button || !dynamic_cast<FormWindow*>(button->window())) return nullptr;
    if (dynamic_cast<OptionBox*>(button)) return new ButtonAccess(button, QAccessible::RadioButton);
    if (dynamic_cast<TickBox*>(button)) return new ButtonAccess(button, QAccessible::CheckBox);
    return qobject_cast<QPushButton*>(button) ? new ButtonAccess(button, QAccessible::Button)
                                              : nullptr;
}

}  // namespace

void correctSpeech() {
    QAccessible::installFactory(accessOf);
}

}  // namespace wynconfig::desktop
