// What a person reads who asks for help.
#include "wynconfig/help.h"

#include <algorithm>

#include "wynconfig/form.h"
#include "wynconfig/mnemonic.h"
#include "wynconfig/view.h"

namespace wynconfig {

namespace {

std::string wordsOf(const Control* control) {
    const auto* captioned = dynamic_cast<const CaptionedControl*>(control);
    return captioned ? plainCaption(captioned->caption()) : std::string();
}

/// The node of a control, and the frame that is nearest around it.
struct Standpoint {
    const Layout* node = nullptr;
    const Control* frame = nullptr;
};

Standpoint find(const Layout& node, const Control& control, const Control* frame) {
    if (node.control == &control) return {&node, frame};
    const Control* const within = node.kind == Layout::Kind::Group ? node.control : frame;
    for (const Layout& child : node.children) {
        if (const Standpoint found = find(child, control, within); found.node) return found;
    }
    return {};
}

void add(HelpPage& page, const std::string& name, std::string text) {
    const auto same = std::find_if(page.entries.begin(), page.entries.end(),
                                   [&](const HelpEntry& each) { return each.text == text; });
    if (same == page.entries.end()) {
        page.entries.push_back({{name}, std::move(text)});
    } else if (std::find(same->names.begin(), same->names.end(), name) == same->names.end()) {
        same->names.push_back(name);
    }
}

}  // namespace

std::string spokenName(const Layout& body, const Control& control, bool rightToLeft) {
    const auto [node, frame] = find(body, control, nullptr);
    if (node && node->into)
        return wordsOf(node->from) + (rightToLeft ? " ← " : " → ") + wordsOf(node->into);
    std::string name = wordsOf(&control);
    if (name.empty() && node) name = wordsOf(node->label);
    if (name.empty() && node && !node->spoken.empty()) name = viewWord(std::string(node->spoken));
    if (name.empty()) name = wordsOf(frame);
    return name;
}

HelpPage helpPage(Form& form, bool rightToLeft) {
    HelpPage page{plainCaption(form.title()), form.help(), {}};
    const Layout& body = form.layout().body;
    for (const Control* each : controlsOf(body)) {
        std::string text = form.help(each);
        if (text.empty() || !each->visible()) continue;
        add(page, spokenName(body, *each, rightToLeft), std::move(text));
    }
    return page;
}

std::string HelpEntry::title() const {
    std::string all;
    for (const std::string& name : names) all += (all.empty() ? "" : " / ") + name;
    return all;
}

std::vector<std::string> HelpPage::lines() const {
    std::vector<std::string> all{title, text};
    for (const HelpEntry& each : entries) {
        all.push_back(each.title());
        all.push_back(each.text);
    }
    return all;
}

}  // namespace wynconfig
