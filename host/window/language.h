// The language of the windows.
#pragma once

#include <memory>
#include <string>

#include "wynconfig/resource_manager.h"

namespace host {

/// Sets the language of the host's texts, of Qt's own words, of numbers and dates, and the side
/// from which all windows are read, and gives the component's texts in that language.
/// @param resources  folder of the texts
/// @param language   such as "de"; empty: the user's
/// Raises `wynconfig::Error` when the folder has no texts.
std::shared_ptr<wynconfig::ResourceManager> useLanguage(const std::string& resources,
                                                        const std::string& language);

/// Sets the language of the host's texts alone, to tell in it that those of the component are
/// missing. Raises `wynconfig::Error` when there are none of the host's either.
void useOwnLanguage(const std::string& resources, const std::string& language);

}  // namespace host
