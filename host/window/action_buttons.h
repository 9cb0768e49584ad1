// A column of buttons, one per action, and the menus of lists that have buttons beside them.
#pragma once

#include <QAbstractItemView>
#include <QAction>
#include <QKeySequence>
#include <QList>
#include <QMenu>
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

/// Has a list offer in its menu what buttons beside it do, as they can be used then.
inline void offerButtons(QAbstractItemView& list, const QList<QPushButton*>& buttons) {
    list.setContextMenuPolicy(Qt::CustomContextMenu);
    const auto offer = [&list, buttons](const QPoint& at) {
        auto* menu = new QMenu(&list);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        for (QPushButton* each : buttons) {
            QAction* entry = menu->addAction(each->text());
            entry->setEnabled(each->isEnabled());
            // The menu has closed by then.
            QObject::connect(entry, &QAction::triggered, each, &QPushButton::click,
                             Qt::QueuedConnection);
        }
        menu->popup(list.viewport()->mapToGlobal(at));
    };
    QObject::connect(&list, &QWidget::customContextMenuRequested, &list, offer);
}

/// The same of a column of buttons.
inline void offerButtons(QAbstractItemView& list, const QLayout& column) {
    QList<QPushButton*> buttons;
    for (int i = 0; i < column.count(); ++i) {
        if (auto* button = qobject_cast<QPushButton*>(column.itemAt(i)->widget()))
            buttons << button;
    }
    offerButtons(list, buttons);
}

}  // namespace host
