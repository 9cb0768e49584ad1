// Letters that a person types into a list or a combo box.
#include "views/qt/typing.h"

#include <QApplication>

#include "views/qt/convert.h"

namespace wynconfig::desktop {

bool Typing::goesOn() const {
    return m_last.isValid() && m_last.elapsed() <= QApplication::keyboardInputInterval();
}

void Typing::stop() {
    m_ahead.forget();
    m_last.invalidate();
}

bool Typing::take(const QKeyEvent& key) {
    constexpr Qt::KeyboardModifiers kOthers =
        Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = key.text();
    if (!typed || text.isEmpty() || (key.modifiers() & kOthers)) return false;
    if (!text.front().isPrint() && !text.front().isSurrogate()) return false;
    if (!goesOn()) stop();
    if (text == u" " && !m_ahead.begun()) return false;
    m_last.start();
    typed(m_ahead, fromQt(text));
    return true;
}

}  // namespace wynconfig::desktop
