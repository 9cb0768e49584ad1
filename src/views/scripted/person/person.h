// The person who acts on the models.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "wynconfig/export.h"
#include "wynconfig/form.h"
#include "wynconfig/keyboard.h"
#include "wynconfig/mnemonic.h"
#include "wynconfig/scripted_view.h"

namespace wynconfig {

/// Acts on the form on top by the door that every view has, and keeps to what a person could do.
class WYNCONFIG_INSIDE ScriptedView::Person : public User {
  public:
    explicit Person(UserInput input) : m_input(input) {}

    // What came up.
    void meet(Form& form);
    int answerBox(const MessageRequest& box) { return boxCameUp(box); }
    std::string answerBrowse(const BrowseRequest& request) { return browseCameUp(request); }
    void watch(const Progress& progress) {
        progressSeen({progress.stage, plainCaption(progress.title), progress.text, progress.done,
                      progress.all});
    }

    std::string formName() const override;
    std::string formTitle() const override;
    void click(std::string_view name) override;
    void bareClick(std::string_view name) override;
    void pressEnter() override { press(FormKey::Enter); }
    void pressEscape() override { press(FormKey::Escape); }
    void pressDelete() override;
    void pressF2() override { press(FormKey::F2); }
    void pressTab() override { press(FormKey::Tab); }
    void pressMnemonic(std::string_view key) override;
    void focus(std::string_view name) override;
    void type(std::string_view name, const std::string& text) override;
    void setCaret(std::string_view name, std::size_t caret) override;
    void pick(std::string_view name, const std::string& text) override;
    void doubleClick(std::string_view name, const std::string& text) override;
    void typeAhead(std::string_view name, const std::string& letters) override;
    void choose(std::string_view name, const std::string& text) override;
    void changeTab(std::string_view name, int index) override;
    void resize(int width, int height) override { m_input.resize(top(), width, height); }
    void closeByFrame() override { m_input.closeByFrame(top()); }
    Sight see(std::string_view name) override;
    std::string help(std::string_view name) override;
    std::vector<std::string> readHelp() override;

  private:
    /// The form on top; null when there is none. One that has closed is gone, though its script may
    /// still run.
    Form* onScreen() const;
    /// The same, where there has to be one.
    Form& top() const;
    /// A control that can be seen and used now.
    Control& usable(std::string_view name) const;
    template <class T>
    T& usableAs(std::string_view name, ControlKind kind) const;
    Control& pressable(std::string_view name) const;
    /// Presses a key; false when the form has no use for it.
    bool press(FormKey key);
    void leaveOpen(Form& form);

    UserInput m_input;
    std::vector<Form*> m_forms;  ///< that came up, the last one on top; some may have closed
};

}  // namespace wynconfig
