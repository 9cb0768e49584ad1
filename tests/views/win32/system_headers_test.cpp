// A host whose sources have the system's header in front of the component's: its macros give other
// names to what they hit.
#define UNICODE
#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "wynconfig/characters.h"
#include "wynconfig/controls.h"
#include "wynconfig/dataset.h"
#include "wynconfig/error.h"
#include "wynconfig/form.h"
#include "wynconfig/item_path.h"
#include "wynconfig/key_holder.h"
#include "wynconfig/keyboard.h"
#include "wynconfig/keys.h"
#include "wynconfig/layout.h"
#include "wynconfig/memory_sessions.h"
#include "wynconfig/mnemonic.h"
#include "wynconfig/observer.h"
#include "wynconfig/resource_manager.h"
#include "wynconfig/save_file.h"
#include "wynconfig/scripted_view.h"
#include "wynconfig/store.h"
#include "wynconfig/type_ahead.h"
#include "wynconfig/user.h"
#include "wynconfig/version.h"
#include "wynconfig/view.h"
#include "wynconfig/win32_view.h"
#include "wynconfig/wynconfig.h"

namespace {

/// Asks for what the host had before; each call is one into the library.
class Counting : public wynconfig::ScriptedView {
  public:
    int showMessage(const wynconfig::MessageRequest& box) override {
        ++boxes;
        return ScriptedView::showMessage(box);
    }
    int boxes = 0;
};

class Listening : public wynconfig::Observer {
  public:
    void answered(const wynconfig::MessageBox& box, int answer) override {
        text = box.text;
        Observer::answered(box, answer);
    }
    std::string text;
};

TEST(HostWithTheSystemsHeader, SeesBoxesByBothNames) {
    const auto view = std::make_shared<Counting>();
    const auto observer = std::make_shared<Listening>();
    wynconfig::installView(view);
    wynconfig::installObserver(observer);
    view->user().onBox();
    wynconfig::WYNConfig component;
    std::string name = "HELD";
    EXPECT_EQ(component.showMORAMConfigDlgEX(name, "no xml", {}), 1);
    wynconfig::installView(nullptr);
    wynconfig::installObserver(nullptr);
    EXPECT_EQ(view->boxes, 1);
    ASSERT_EQ(view->user().boxes().size(), 1u);
    EXPECT_EQ(observer->text, view->user().boxes().front().text);
}

}  // namespace
