// Listing the languages, and changing to one of them.
#include "window/language_menu.h"

#include <QActionGroup>
#include <QMenu>
#include <QMessageBox>
#include <exception>

#include "window/workplace.h"
#include "wynconfig/resource_manager.h"

namespace host {

namespace {

using Tell = std::function<void(const QString&, bool)>;

void change(Workplace& workplace, QWidget* parent, const wynconfig::Language& language,
            const Tell& tell) {
    try {
        workplace.setLanguage(language.tag);
        tell(QObject::tr("From now on the dialogs are in %1.")
                 .arg(QString::fromStdString(language.name)),
             false);
    } catch (const std::exception& failure) {
        tell(QString::fromUtf8(failure.what()), true);
        QMessageBox::critical(parent, parent->windowTitle(), QString::fromUtf8(failure.what()));
    }
}

}  // namespace

QMenu* makeLanguageMenu(Workplace& workplace, QWidget* parent, const Tell& tell) {
    auto* menu = new QMenu(QObject::tr("&Language of the dialogs"), parent);
    auto* group = new QActionGroup(menu);
    const std::string& resources = workplace.resources();
    const std::string users = wynconfig::bundleLanguage(resources, workplace.language()).tag;
    for (const wynconfig::Language& each : wynconfig::bundleLanguages(resources)) {
        QAction* action = menu->addAction(QString::fromStdString(each.name));
        action->setCheckable(true);
        action->setChecked(each.tag == users);
        action->setStatusTip(QObject::tr("Reads the texts of this language anew"));
        group->addAction(action);
        QObject::connect(action, &QAction::triggered, parent, [&workplace, parent, each, tell] {
            change(workplace, parent, each, tell);
        });
    }
    return menu;
}

}  // namespace host
