// Sessions and part formats in words, for somebody who is to recognise what they say.
#pragma once

#include <string>
#include <vector>

#include "sending/part_format.h"
#include "sending/session.h"

namespace host {

/// What a session says: its name, and a line for each setting.
std::vector<std::string> summaryOf(const Session& session);

/// The same of a part format.
std::vector<std::string> summaryOf(const PartFormat& format);

}  // namespace host
