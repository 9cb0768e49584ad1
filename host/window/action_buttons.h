// A column of buttons, one per action.
#pragma once

#include <QAction>
#include <QKeySequence>
#include <QList>
#include <QPushButton>
#include <QVBoxLayout>

namespace host {

inline QVBoxLayout* makeActionButtons(const QList<QAction*>& actions) {
    auto* buttons = new QVBoxLayout;
    for (QAction* action : actions) {
        auto* button = new QPushButton(action->text());
        button->setStatusTip(action->statusTip());
        button->setToolTip(action->shortcut().toString(QKeySequence::NativeText));
        button->setEnabled(action->isEnabled());
        QObject::connect(button, &QPushButton::clicked, action, &QAction::trigger);
        QObject::connect(action, &QAction::enabledChanged, button, &QWidget::setEnabled);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    return buttons;
}

}  // namespace host
