// Sessions and part formats in words, for somebody who is to recognise what they say.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "sending/part_format.h"
#include "sending/session.h"

namespace host {

/// Sets a value apart from the words around it; none: it stands as it is.
using ValueMark = std::function<std::string(const std::string& value)>;

/// What a session says: its name, and a line for each setting.
std::vector<std::string> summaryOf(const Session& session, const ValueMark& mark = {});

/// The same of a part format.
std::vector<std::string> summaryOf(const PartFormat& format, const ValueMark& mark = {});

}  // namespace host
