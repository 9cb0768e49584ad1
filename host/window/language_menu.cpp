// Listing the languages, and changing to one of them.
#include "window/language_menu.h"

#include <QActionGroup>
#include <QMenu>
#include <exception>

#include "window/store_dialogs.h"
#include "window/wording.h"
#include "window/workplace.h"
#include "wynconfig/resource_manager.h"

namespace host {

namespace {

using Tell = std::function<void(const QString&, bool)>;

void change(Workplace& workplace, QWidget* parent, const wynconfig::Language& language,
            const Tell& tell) {
    try {
        workplace.setLanguage(language.tag);
        tell(wording("LANGUAGE_CHANGED", {QString::fromStdString(language.name)}), false);
    } catch (const std::exception& failure) {
        tell(QString::fromUtf8(failure.what()), true);
        tellFailure(parent, QString::fromUtf8(failure.what()));
    }
}

}  // namespace

QMenu* makeLanguageMenu(Workplace& workplace, QWidget* parent, const Tell& tell) {
    auto* menu = withTitle(new QMenu(parent), "MENU_LANGUAGE");
    auto* group = new QActionGroup(menu);
    const std::string& resources = workplace.resources();
    const std::string users = wynconfig::bundleLanguage(resources, workplace.language()).tag;
    for (const wynconfig::Language& each : wynconfig::bundleLanguages(resources)) {
        QAction* action = menu->addAction(QString::fromStdString(each.name));
        action->setCheckable(true);
        action->setChecked(each.tag == users);
        withTip(action, "MENU_LANGUAGE_TIP");
        group->addAction(action);
        QObject::connect(action, &QAction::triggered, parent, [&workplace, parent, each, tell] {
            change(workplace, parent, each, tell);
        });
    }
    return menu;
}

}  // namespace host
