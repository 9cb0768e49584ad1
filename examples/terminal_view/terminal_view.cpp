#include "terminal_view.h"

#include <wynconfig/characters.h>
#include <wynconfig/mnemonic.h>

#include <algorithm>
#include <cstddef>

using namespace wynconfig;

namespace {

std::string captionOf(const Layout& body, const Control& control) {
    const auto& captioned = static_cast<const CaptionedControl&>(control);
    // The text of a value is no caption: an "&" in it is an "&".
    return isValue(body, control) ? captioned.caption() : plainCaption(captioned.caption());
}

/// What stands in front of a number.
std::string sight(const Layout& body, const Control& control) {
    switch (control.kind()) {
        case ControlKind::Button:
            return "[" + captionOf(body, control) + "]";
        case ControlKind::CheckBox:
            return (static_cast<const CheckBox&>(control).value() ? "[x] " : "[ ] ") +
                   captionOf(body, control);
        case ControlKind::OptionButton:
            return (static_cast<const OptionButton&>(control).value() ? "(o) " : "( ) ") +
                   captionOf(body, control);
        case ControlKind::Edit:
            return static_cast<const Edit&>(control).text();
        case ControlKind::ComboBox:
            return static_cast<const ComboBox&>(control).text();
        case ControlKind::ListView: {
            const auto& list = static_cast<const ListView&>(control);
            std::string rows;
            for (const ListRow& row : list.rows())
                rows += (&row == list.selectedItem() ? "\n    > " : "\n      ") + row.text;
            return rows;
        }
        case ControlKind::Tabs: {
            const auto& tabs = static_cast<const Tabs&>(control);
            std::string captions;
            for (int i = 0; i < tabs.count(); ++i)
                captions += (i == tabs.tab() ? " *" : " ") + plainCaption(tabs.caption(i)) + " |";
            return captions;
        }
        default:
            return captionOf(body, control);
    }
}

}  // namespace

bool TerminalView::ask(std::string& line) {
    m_out << "> " << std::flush;
    return static_cast<bool>(std::getline(m_in, line));
}

void TerminalView::showModal(Form& form) {
    // It may have been told to go before it came up; and the first focus is the view's to give.
    if (form.loaded() && !form.focused()) press(form, FormKey::Tab);
    while (form.loaded()) {
        print(form);
        std::string line;
        if (ask(line)) {
            obey(form, line);
            continue;
        }
        press(form, FormKey::Escape);
        if (form.loaded()) userInput().closeByFrame(form);
    }
}

int TerminalView::showMessage(const MessageRequest& box) {
    const bool isQuestion = (box.style & 0xF) == boxstyle::YesNo;
    m_out << "\n!! " << plainCaption(box.title) << "\n"
          << box.text << "\n"
          << (isQuestion ? "yes or no?" : "Enter") << "\n";
    std::string line;
    // Whatever is no clear yes changes nothing, as closing the box does.
    const bool answered = ask(line);
    if (!isQuestion) return answer::Ok;
    return answered && line == "yes" ? answer::Yes : answer::No;
}

std::string TerminalView::browse(const BrowseRequest& request) {
    m_out << "\n" << request.title << " (nothing: cancel)\n";
    std::string path;
    return ask(path) ? path : std::string();
}

void TerminalView::press(Form& form, FormKey key) {
    carryOut(actOfKey(form, key), userInput());
}

void TerminalView::print(Form& form) {
    m_numbered.clear();
    m_out << "\n== " << plainCaption(form.title()) << "\n";
    const Layout& body = form.layout().body;
    walk(body, body);
}

void TerminalView::walk(const Layout& body, const Layout& node) {
    const bool seen = node.control && isSeen(body, *node.control);
    const bool holds = node.kind == Layout::Kind::Group || node.kind == Layout::Kind::Pane;
    if (holds && !seen) return;
    if (node.kind == Layout::Kind::Group) {
        const std::string caption = captionOf(body, *node.control);
        if (!caption.empty()) m_out << "-- " << caption << "\n";
    } else if (seen && !holds) {
        print(body, node);
    }
    for (const Layout& child : node.children) walk(body, child);
}

void TerminalView::print(const Layout& body, const Layout& node) {
    Control& control = *node.control;
    if (isUsable(body, control) && control.kind() != ControlKind::Label) {
        m_numbered.push_back(&control);
        m_out << m_numbered.size() << ". ";
    } else {
        m_out << "   ";
    }
    if (node.label) m_out << captionOf(body, *node.label) << ":";
    // A button between two lists is known by what it does, not by its arrow.
    if (node.from && node.into)
        m_out << "[" << captionOf(body, *node.from) << " to " << captionOf(body, *node.into)
              << "]\n";
    else
        m_out << (node.label ? " " : "") << sight(body, control) << "\n";
}

void TerminalView::obey(Form& form, const std::string& line) {
    if (line.empty()) return press(form, FormKey::Enter);
    if (line == "esc") return press(form, FormKey::Escape);
    if (line == "close") return userInput().closeByFrame(form);
    const std::size_t equals = line.find('=');
    const std::string digits = line.substr(0, line.find_first_not_of("0123456789"));
    const std::size_t number = digits.empty() || digits.size() > 3 ? 0 : std::stoul(digits);
    if (number == 0 || number > m_numbered.size()) {
        m_out << "?\n";
        return;
    }
    Control& control = *m_numbered[number - 1];
    if (equals == std::string::npos) {
        const bool pressed = control.kind() == ControlKind::Button ||
                             control.kind() == ControlKind::CheckBox ||
                             control.kind() == ControlKind::OptionButton;
        if (pressed)
            carryOut({.kind = KeyAct::Kind::Press, .control = &control, .takesFocus = true},
                     userInput());
        else
            userInput().focus(control);
        return;
    }
    std::string text = line.substr(equals + 1);
    if (text.starts_with(' ')) text.erase(0, 1);
    if (!give(control, text)) m_out << "?\n";
}

bool TerminalView::give(Control& control, const std::string& text) {
    switch (control.kind()) {
        case ControlKind::Edit:
            userInput().focus(control);
            userInput().type(static_cast<Edit&>(control), text, charCount(text));
            return true;
        case ControlKind::ListView: {
            auto& list = static_cast<ListView&>(control);
            const auto row = std::find_if(list.rows().begin(), list.rows().end(),
                                          [&](const ListRow& each) { return each.text == text; });
            if (row == list.rows().end()) return false;
            const std::ptrdiff_t at = row - list.rows().begin();
            userInput().focus(list);
            userInput().pick(list, static_cast<std::size_t>(at) + 1);
            return true;
        }
        case ControlKind::ComboBox: {
            auto& combo = static_cast<ComboBox&>(control);
            const int index = combo.find(text);
            if (index < 0) return false;
            userInput().focus(combo);
            userInput().choose(combo, index);
            return true;
        }
        case ControlKind::Tabs: {
            auto& tabs = static_cast<Tabs&>(control);
            for (int i = 0; i < tabs.count(); ++i) {
                if (plainCaption(tabs.caption(i)) != text) continue;
                userInput().changeTab(tabs, i);
                return true;
            }
            return false;
        }
        default:
            return false;
    }
}
