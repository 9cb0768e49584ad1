// A walk through every dialog on the desktop view, for tests of what all their controls have in
// common.
#pragma once

#include <QApplication>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "support/all_dialogs.h"
#include "support/desk.h"
#include "support/qt_windows.h"
#include "wynconfig/form.h"
#include "wynconfig/mnemonic.h"

namespace wynconfig {

inline QWidget* widgetOf(const Control& control) {
    return window()->findChild<QWidget*>(QString::fromStdString(std::string(control.name())));
}

/// Every dialog with English texts of which each marks a key, and with values in its boxes.
class DialogWalk : public Desk {
  protected:
    /// The English texts, each with a mark in front of its first letter.
    struct MarkedTexts : ResourceManager {
        std::shared_ptr<ResourceManager> english = makeBundleResourceManager(WYNCONFIG_RESOURCES);
        std::string GetString(const std::string& key) override {
            return "&" + plainCaption(english->GetString(key));
        }
        Font GetFont(long handle) override { return english->GetFont(handle); }
    };

    void SetUp() override {
        Desk::SetUp();
        component.InitResourceManager(std::make_shared<MarkedTexts>());
        putFormat("CSV");
        putFullSession("DESK", {"CSV"});
    }
    void showEach(const std::function<void(User&, Form&)>& look) {
        for (const Dialog& dialog : allDialogs()) {
            SCOPED_TRACE(dialog.name);
            const auto form = dialog.make();
            if (auto* session = dynamic_cast<frmMORAMConfig*>(form.get())) session->init("DESK");
            if (auto* editor = dynamic_cast<frmPartNumberFormat*>(form.get())) editor->init("");
            bool looked = false;
            user().onForm(dialog.name, [&](User& u) {
                look(u, *form);
                looked = true;
                if (form->loaded()) u.closeByFrame();
            });
            form->Show();
            EXPECT_TRUE(looked);
        }
    }
    /// Looks at each control that is on the screen, on all tabs.
    void lookAtEachControl(const std::function<void(User&, Form&, Control&)>& look) {
        showEach([&](User& u, Form& form) {
            const auto all = [&] {
                for (Control* each : controlsOf(form.layout().body)) {
                    if (u.see(each->name()).visible) look(u, form, *each);
                }
            };
            all();
            if (!form.control("SSTab2")) return;
            u.changeTab("SSTab2", 1);
            all();
        });
    }
};

}  // namespace wynconfig
