// The person who drives the real widgets.
#pragma once

#include <QPersistentModelIndex>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "views/qt/form_window.h"
#include "wynconfig/qt_view.h"
#include "wynconfig/user.h"

class QFileDialog;
class QMessageBox;

namespace wynconfig::desktop {

class ProgressPanel;
class RowList;

/// What the view has on the screen, the topmost last.
struct Screen {
    std::vector<FormWindow*> forms;
    std::vector<QWidget*> windows;  ///< forms, boxes and browse dialogs
    /// The form that a person can act on, or null.
    FormWindow* top() const;
};

class Person : public User {
  public:
    explicit Person(const Screen& screen) : m_screen(screen) {}

    // What came up; called from the event loop of the window.
    void meet(FormWindow& window);
    void answer(QMessageBox& box, const MessageRequest& shown);
    void pickPath(QFileDialog& dialog, const BrowseRequest& request);
    /// Looks for the signs of work.
    /// @param panel  the one with a bar; null: it is not there
    void watch(Progress::Stage stage, const ProgressPanel* panel);

    std::string formName() const override;
    std::string formTitle() const override;
    void click(std::string_view name) override;
    void bareClick(std::string_view name) override;
    void pressEnter() override;
    void pressEscape() override;
    void pressDelete() override;
    void pressF2() override;
    void pressTab() override;
    void pressMnemonic(std::string_view key) override;
    void focus(std::string_view name) override;
    void type(std::string_view name, const std::string& text) override;
    void setCaret(std::string_view name, std::size_t caret) override;
    void pick(std::string_view name, const std::string& text) override;
    void doubleClick(std::string_view name, const std::string& text) override;
    void typeAhead(std::string_view name, const std::string& letters) override;
    void choose(std::string_view name, const std::string& text) override;
    void changeTab(std::string_view name, int index) override;
    void resize(int width, int height) override;
    void closeByFrame() override;
    Sight see(std::string_view name) override;
    std::string help(std::string_view name) override;
    std::vector<std::string> readHelp() override;

  private:
    /// The form on top, with all changes on the screen.
    FormWindow& top() const;
    /// The same, ready for mouse and keys.
    FormWindow& inHand() const;
    Control& there(std::string_view name) const;
    /// The widget of a control, of the type that the act needs, visible and enabled.
    template <class W>
    W& usable(std::string_view name) const;

    /// Gives a list the focus and scrolls to the first row with this text.
    QPersistentModelIndex reach(RowList& list, const std::string& text) const;

    const Screen& m_screen;
};

}  // namespace wynconfig::desktop
