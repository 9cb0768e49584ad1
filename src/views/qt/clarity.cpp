// How a window gets texts that can be read and outlines that can be seen.
#include "views/qt/clarity.h"

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QChildEvent>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "views/qt/colours.h"
#include "wynconfig/qt_view.h"

namespace wynconfig::desktop {

namespace {

constexpr const char* kName = "wynconfigClarity";

template <class... Widgets>
bool isOneOf(const QWidget& widget) {
    return (qobject_cast<const Widgets*>(&widget) || ...);
}

bool hasOutline(const QWidget& widget) {
    return isOneOf<QLineEdit, QComboBox, QAbstractSpinBox, QCheckBox, QRadioButton, QPushButton,
                   QAbstractScrollArea>(widget) &&
           !isOneOf<QHeaderView>(widget);
}

}  // namespace

Clarity::Clarity(QWidget& window) : QObject(&window), m_window(window), m_own(window.palette()) {
    setObjectName(QString::fromLatin1(kName));
    setColours();
    adopt(window);
}

void Clarity::setColours() {
    m_window.setPalette(m_own);
    m_window.setPalette(readable(m_window.palette()));
}

void Clarity::adopt(QWidget& widget) {
    // What drops down from a box or menu is a window of its own.
    if (widget.isWindow() && &widget != &m_window) return;
    widget.installEventFilter(this);
    if (hasOutline(widget) && !widget.testAttribute(Qt::WA_SetStyle)) widget.setStyle(&m_outlines);
    for (QObject* each : widget.children()) {
        if (auto* child = qobject_cast<QWidget*>(each)) adopt(*child);
    }
}

bool Clarity::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::ChildPolished:
            adopt(*static_cast<QWidget*>(static_cast<QChildEvent*>(event)->child()));
            break;
        case QEvent::ApplicationPaletteChange:
            if (watched == &m_window) setColours();
            break;
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            // The frame around rows is not painted anew by itself.
            if (auto* area = qobject_cast<QAbstractScrollArea*>(watched)) area->update();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace wynconfig::desktop

namespace wynconfig {

void clarify(QWidget& window) {
    const QString name = QString::fromLatin1(desktop::kName);
    if (!window.findChild<QObject*>(name, Qt::FindDirectChildrenOnly)) new desktop::Clarity(window);
}

}  // namespace wynconfig
