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
        auto* button = new QPushButton;
        const auto follow = [button, action] {
            button->setText(action->text());
            button->setStatusTip(action->statusTip());
            button->setToolTip(action->shortcut().toString(QKeySequence::NativeText));
            button->setEnabled(action->isEnabled());
        };
        follow();
        QObject::connect(button, &QPushButton::clicked, action, &QAction::trigger);
        QObject::connect(action, &QAction::changed, button, follow);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    return buttons;
}

}  // namespace host
