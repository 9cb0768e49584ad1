// The languages that the component comes in, and the pseudo-language of the tests.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "wynconfig/resource_manager.h"

namespace wynconfig {

/// English with accents and about 40 % more letters.
inline const std::string kPseudoLanguage = "en-XA";

inline std::vector<std::string> shippedLanguages() {
    std::vector<std::string> tags;
    for (const Language& each : bundleLanguages(WYNCONFIG_RESOURCES)) tags.push_back(each.tag);
    return tags;
}

inline std::vector<std::string> allLanguages() {
    std::vector<std::string> tags = shippedLanguages();
    tags.push_back(kPseudoLanguage);
    return tags;
}

inline std::shared_ptr<ResourceManager> textsIn(const std::string& language) {
    return makeBundleResourceManager(
        language == kPseudoLanguage ? WYNCONFIG_PSEUDO_RESOURCES : WYNCONFIG_RESOURCES, language);
}

}  // namespace wynconfig
