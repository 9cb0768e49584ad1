// A view in a terminal: it prints what can be seen of a form and reads what to do from lines.
//
//   3            presses the control of that number, ticks it, or chooses it
//   3 = text     types into a box, picks a row, chooses an item, or turns to a tab
//   (nothing)    the Enter key
//   esc          the Escape key
//   close        closes the window by its frame
#pragma once

#include <wynconfig/form.h>
#include <wynconfig/keyboard.h>
#include <wynconfig/layout.h>
#include <wynconfig/view.h>

#include <istream>
#include <ostream>
#include <string>
#include <vector>

class TerminalView : public wynconfig::View {
  public:
    /// Both streams must outlive the view. At the end of the input whatever is up is cancelled.
    TerminalView(std::istream& in, std::ostream& out) : m_in(in), m_out(out) {}

    void showModal(wynconfig::Form& form) override;
    int showMessage(const wynconfig::MessageRequest& box) override;
    std::string browse(const wynconfig::BrowseRequest& request) override;
    void raise(wynconfig::Form&, bool) override {}  // the last that was printed is in front
    long deviceContext(wynconfig::Form&) override { return 0; }

  private:
    /// Reads a line behind a prompt. False at the end of the input.
    bool ask(std::string& line);
    void print(wynconfig::Form& form);
    /// Prints all that can be seen of a part of a layout.
    void walk(const wynconfig::Layout& body, const wynconfig::Layout& node);
    /// Prints a node's control.
    void print(const wynconfig::Layout& body, const wynconfig::Layout& node);
    void obey(wynconfig::Form& form, const std::string& line);
    /// False when the control has no such row, item or tab, or no use for a text.
    bool give(wynconfig::Control& control, const std::string& text);
    void press(wynconfig::Form& form, wynconfig::FormKey key);

    std::istream& m_in;
    std::ostream& m_out;
    std::vector<wynconfig::Control*> m_numbered;  ///< of the form that was printed last
};
