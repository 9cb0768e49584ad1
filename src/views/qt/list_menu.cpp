// The menu of a list.
#include "views/qt/list_menu.h"

#include <QKeySequence>

#include "views/qt/convert.h"
#include "wynconfig/help.h"
#include "wynconfig/layout.h"

namespace wynconfig::desktop {

namespace {

/// The key that presses a button in a list; none: no key does.
QKeySequence keyOf(const ListActs& acts, const Button& button) {
    if (acts.del == &button) return Qt::Key_Delete;
    if (acts.rename == &button) return Qt::Key_F2;
    if (acts.activate == &button) return Qt::Key_Return;
    return {};
}

/// The words of an entry: those of its button, or, where that shows but an arrow, what it does.
QString textOf(const Layout& body, const Button& button, bool rightToLeft) {
    const QString name = toQt(spokenName(body, button, rightToLeft));
    const bool isArrow = name != toQtPlain(button.caption());
    return isArrow ? QString(name).replace(u'&', QStringLiteral("&&"))
                   : toQtCaption(button.caption());
}

}  // namespace

ListMenu::ListMenu(Form& form, ListView& list, bool rightToLeft, QWidget* parent) : QMenu(parent) {
    setObjectName(toQt(list.name()) + QStringLiteral("Menu"));
    setAttribute(Qt::WA_DeleteOnClose);
    const Layout& body = form.layout().body;
    const ListActs acts = actsOf(body, list);
    for (Button* each : buttonsOf(body, list)) {
        if (!isSeen(body, *each)) continue;
        QString text = textOf(body, *each, rightToLeft);
        // The key is but told of here: the list takes it by itself.
        const QString key = keyOf(acts, *each).toString(QKeySequence::NativeText);
        if (!key.isEmpty()) text += u'\t' + key;
        QAction* entry = addAction(text);
        entry->setObjectName(toQt(each->name()));
        entry->setEnabled(each->enabled());
        connect(entry, &QAction::triggered, this, [this, each] {
            if (chosen) chosen(*each);
        });
    }
}

}  // namespace wynconfig::desktop
