// The host's texts on the screen: in the language that was chosen, also when that changes while the
// window is open.
#pragma once

#include <QAction>
#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <string>

class QDateTime;

namespace host {

/// A text, with `values` in its places.
/// @param key  as host/resources/en.xlf has it
QString wording(const char* key, const QStringList& values = {});

/// The words of a caption: without the mark of its key, and without the ellipsis or colon that ends
/// it.
QString plainWording(const char* key);

/// A whole number as the language writes it.
QString numberText(qlonglong number);
/// A moment in local time, short.
QString momentText(const QDateTime& moment);

/// Tells when the language has changed.
class LanguageNews : public QObject {
    Q_OBJECT

  public:
    static LanguageNews& instance();

  signals:
    void changed();
};

/// Does what shows texts now, and whenever the language has changed, as long as their owner lives.
void worded(const QObject* owner, const std::function<void()>& show);

/// Gives a widget or action a text, in whatever language there is.
/// @return the widget
template <class Shown>
Shown* withText(Shown* shown, const char* key) {
    worded(shown, [shown, key] { shown->setText(wording(key)); });
    return shown;
}

/// The same with the sentence for the status bar.
template <class Shown>
Shown* withTip(Shown* shown, const char* key) {
    worded(shown, [shown, key] { shown->setStatusTip(wording(key)); });
    return shown;
}

/// The same with what a screen reader calls a widget.
template <class Shown>
Shown* withName(Shown* shown, const char* key) {
    worded(shown, [shown, key] { shown->setAccessibleName(plainWording(key)); });
    return shown;
}

/// The same with what stands in an empty box.
template <class Shown>
Shown* withHint(Shown* shown, const char* key) {
    worded(shown, [shown, key] { shown->setPlaceholderText(wording(key)); });
    return shown;
}

/// The same with the caption of a menu.
template <class Menu>
Menu* withTitle(Menu* menu, const char* key) {
    worded(menu, [menu, key] { menu->setTitle(wording(key)); });
    return menu;
}

/// A button that the toolkit made.
template <class Button>
Button* worded(Button* button, const char* key, const char* name) {
    button->setObjectName(QString::fromUtf8(name));
    return withText(button, key);
}

}  // namespace host
