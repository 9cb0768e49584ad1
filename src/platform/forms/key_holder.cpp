// Finds what a key of the keyboard belongs to.
#include "wynconfig/key_holder.h"

#include <string>

#include "wynconfig/mnemonic.h"

namespace wynconfig {

namespace {

bool leadsNowhere(const Layout& body, const Control& control) {
    const bool leads = control.kind() == ControlKind::Label || control.kind() == ControlKind::Frame;
    return leads && !keyTarget(body, control);
}

}  // namespace

std::vector<KeyHolder> holdersOf(const Layout& body, std::string_view key) {
    std::vector<KeyHolder> holders;
    for (Control* each : controlsOf(body)) {
        if (!isUsable(body, *each) || leadsNowhere(body, *each)) continue;
        if (const auto* tabs = dynamic_cast<const Tabs*>(each)) {
            for (int i = 0; i < tabs->count(); ++i) {
                if (mnemonicOf(tabs->caption(i)) == key) holders.push_back({each, i});
            }
        } else if (const auto* captioned = dynamic_cast<const CaptionedControl*>(each)) {
            if (marksKey(body, *each) && mnemonicOf(captioned->caption()) == key)
                holders.push_back({each});
        }
    }
    return holders;
}

KeyHolder holderOf(const Layout& body, std::string_view key,
                   const std::function<Sight(const Control&)>& look) {
    std::vector<KeyHolder> holders;
    std::string names;
    for (Control* each : controlsOf(body)) {
        const bool tabs = each->kind() == ControlKind::Tabs;
        if (!tabs && !dynamic_cast<const CaptionedControl*>(each)) continue;
        const Sight sight = look(*each);
        if (!sight.visible || !sight.enabled || leadsNowhere(body, *each)) continue;
        for (std::size_t i = 0; i < sight.rows.size(); ++i) {
            if (sight.rows[i].key == key) holders.push_back({each, static_cast<int>(i)});
        }
        if (sight.key == key) holders.push_back({each});
        if (!holders.empty() && holders.back().control == each)
            names += " " + std::string(each->name());
    }
    if (holders.size() == 1) return holders.front();
    throw UserError("Alt+" + std::string(key) +
                    (holders.empty() ? " belongs to nothing that can be used"
                                     : " belongs to more than one:" + names));
}

}  // namespace wynconfig
