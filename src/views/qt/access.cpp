// What screen readers are told of the widgets that Qt would speak of wrongly.
#include "views/qt/access.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "views/qt/widgets.h"

namespace wynconfig::desktop {

namespace {

/// An option. Qt takes one for a check box when it leaves it to others to exclude others.
class OptionAccess : public QAccessibleWidget {
  public:
    explicit OptionAccess(OptionBox* option)
        : QAccessibleWidget(option, QAccessible::RadioButton), m_option(option) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = m_option->isChecked();
        state.pressed = m_option->isDown();
        return state;
    }
    QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action != pressAction())
            QAccessibleWidget::doAction(action);
        else if (m_option->isEnabled())
            m_option->click();
    }
    QStringList keyBindingsForAction(const QString& action) const override {
        return action == pressAction()
                   ? QStringList{m_option->shortcut().toString(QKeySequence::NativeText)}
                   : QStringList{};
    }

  private:
    OptionBox* m_option;
};

QAccessibleInterface* accessOf(const QString&, QObject* object) {
    auto* option = dynamic_cast<OptionBox*>(object);
    return option ? new OptionAccess(option) : nullptr;
}

}  // namespace

void speakOfOptions() {
    QAccessible::installFactory(accessOf);
}

}  // namespace wynconfig::desktop
