// What the played person was told, and how that is matched with what comes up.
#include "wynconfig/user.h"

#include <utility>

#include "wynconfig/error.h"
#include "wynconfig/mnemonic.h"

namespace wynconfig {

std::vector<std::string> Sight::rowTexts() const {
    std::vector<std::string> texts;
    for (const SeenRow& row : rows) texts.push_back(row.text);
    return texts;
}

void User::onForm(const std::string& name, Script script) {
    m_formScripts[name].push_back(std::move(script));
}

void User::onBox(BoxScript script) {
    m_boxScripts.push_back(std::move(script));
}

void User::onBox(int button) {
    onBox([button](const SeenBox&) { return button; });
}

void User::onBrowse(std::string path) {
    m_browsePaths.push_back(std::move(path));
}

void User::finish() {
    std::vector<std::string> faults = std::exchange(m_faults, {});
    for (const auto& [name, scripts] : std::exchange(m_formScripts, {})) {
        for (std::size_t i = 0; i < scripts.size(); ++i)
            faults.push_back("the announced form " + name + " did not come up");
    }
    if (const auto left = std::exchange(m_boxScripts, {}); !left.empty())
        faults.push_back(std::to_string(left.size()) + " announced box(es) did not come up");
    for (const std::string& path : std::exchange(m_browsePaths, {}))
        faults.push_back("the announced browse dialog did not come up, to pick \"" + path + "\"");
    m_boxes.clear();
    m_browses.clear();
    m_forms.clear();
    m_progress.clear();
    if (faults.empty()) return;
    std::string all;
    for (const std::string& fault : faults) all += (all.empty() ? "" : "; ") + fault;
    throw UserError(all);
}

void User::tick(std::string_view box, bool value) {
    if (see(box).value != value) click(box);
    if (see(box).value != value)
        throw UserError("a click does not turn " + std::string(box) + (value ? " on" : " off"));
}

bool User::canUse(std::string_view control) {
    const Sight sight = see(control);
    return sight.visible && sight.enabled;
}

void User::formCameUp(const std::string& name) {
    m_forms.push_back(name);
    auto& scripts = m_formScripts[name];
    if (scripts.empty()) {
        blame("the form " + name + " came up unannounced");
        return;
    }
    const Script script = std::move(scripts.front());
    scripts.pop_front();
    try {
        script(*this);
    } catch (...) {
        blame("at the form " + name + ": " + Error::fromCurrentException().description());
    }
}

int User::boxCameUp(const MessageRequest& shown) {
    const SeenBox box{shown.text, plainCaption(shown.title), shown.style,
                      plainCaption(shown.okCaption)};
    m_boxes.push_back(box);
    if (m_boxScripts.empty()) {
        blame("a box came up unannounced: \"" + box.text + "\"");
        return (box.style & 0xF) == boxstyle::YesNo ? answer::No : answer::Ok;
    }
    const BoxScript script = std::move(m_boxScripts.front());
    m_boxScripts.pop_front();
    try {
        return script(box);
    } catch (...) {
        blame("at the box \"" + box.text + "\": " + Error::fromCurrentException().description());
        return (box.style & 0xF) == boxstyle::YesNo ? answer::No : answer::Ok;
    }
}

std::string User::browseCameUp(const BrowseRequest& request) {
    BrowseRequest& seen = m_browses.emplace_back(request);
    for (std::string* caption : {&seen.title, &seen.okCaption, &seen.cancelCaption})
        *caption = plainCaption(*caption);
    if (m_browsePaths.empty()) {
        blame("a browse dialog came up unannounced: \"" + seen.title + "\"");
        return {};
    }
    std::string path = std::move(m_browsePaths.front());
    m_browsePaths.pop_front();
    return path;
}

void User::progressSeen(SeenProgress sign) {
    m_progress.push_back(std::move(sign));
}

void User::blame(std::string fault) {
    m_faults.push_back(std::move(fault));
}

}  // namespace wynconfig
