// How all windows of the host look.
#pragma once

#include <QApplication>
#include <QPalette>

namespace host {

/// Gives all windows light text on dark ground.
inline void darken() {
    const QColor button(58, 61, 65);
    const QColor ground(42, 45, 49);
    QPalette dark(button, ground);
    dark.setColor(QPalette::Base, QColor(30, 32, 35));
    dark.setColor(QPalette::AlternateBase, ground);
    dark.setColor(QPalette::PlaceholderText, QColor(150, 155, 160));
    dark.setColor(QPalette::Highlight, QColor(45, 110, 185));
    QApplication::setPalette(dark);
}

}  // namespace host
