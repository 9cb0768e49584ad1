// The person who drives the real windows.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "views/win32/boxes.h"
#include "views/win32/browsing.h"
#include "views/win32/screen.h"
#include "wynconfig/user.h"

namespace wynconfig::native {

class ListPiece;
class ProgressWindow;

class Person : public User {
  public:
    explicit Person(const Screen& screen) : m_screen(screen) {}

    // What came up; called from the message loop of the window.
    void meet(FormWindow& window);
    void answer(const MessageWindow& box, const MessageRequest& shown);
    void pickPath(Browsing& dialog, const BrowseRequest& request);
    /// Looks for the signs of work.
    /// @param window  the one with a bar; null: it is not there
    void watch(Progress::Stage stage, const ProgressWindow* window);

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
    /// The piece of a control of one of these kinds, visible and enabled.
    Piece& usable(std::string_view name, std::initializer_list<ControlKind> kinds) const;
    Piece& pressable(std::string_view name) const;
    /// Gives a piece the focus by the mouse, without pressing it.
    void takeFocus(const Piece& piece) const;
    /// Gives a list the focus and has the first row with this text in sight.
    POINT reach(const ListPiece& list, const std::string& text) const;

    const Screen& m_screen;
};

}  // namespace wynconfig::native
