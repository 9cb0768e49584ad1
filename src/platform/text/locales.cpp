// What follows from the parts of a locale's name, on every system.
#include "platform/text/locales.h"

#include <algorithm>

namespace wynconfig {

std::vector<std::string> localesServing(const std::string& name) {
    std::vector<std::string> tags{"en"};
    const Locale locale = localeOf(name);
    const std::string written = locale.language + "-" + locale.script;
    for (const std::string& each : {locale.language, written, locale.language + "-" + locale.region,
                                    written + "-" + locale.region, locale.tag}) {
        const Locale other = localeOf(each);
        const bool isName = !each.empty() && other.tag == each;
        const bool isKnown = std::find(tags.begin(), tags.end(), each) != tags.end();
        if (isName && !isKnown && other.script == locale.script) tags.push_back(each);
    }
    return tags;
}

}  // namespace wynconfig
