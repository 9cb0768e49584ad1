// The steps of the tour that make, change and delete part formats.
#pragma once

#include <string>

#include "tour/tour.h"

namespace host {

/// Each opens a session and works on its part format tab. What they do to the part formats goes on
/// from where the step before left them.
/// @param session  name of a session with the formats COMMA SEPARATED, FIXED WIDTH, TAB SEPARATED
void makePartFormat(Tour& tour, const std::string& session);
void changePartFormats(Tour& tour, const std::string& session);
void deletePartFormats(Tour& tour, const std::string& session);

}  // namespace host
