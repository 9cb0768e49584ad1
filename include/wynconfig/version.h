/// @file
/// The version of the component: that of the headers, and that of the library in use.
#pragma once

#include "wynconfig/export.h"

// Read by the build as well, line by line.

/// Grows when hosts have to be changed.
#define WYNCONFIG_VERSION_MAJOR 0
/// Grows with what is new; before 1.0 as the one above.
#define WYNCONFIG_VERSION_MINOR 1
/// Grows with what is repaired.
#define WYNCONFIG_VERSION_PATCH 0

/// The same as one number that grows, such as 10203 for 1.2.3.
#define WYNCONFIG_VERSION \
    (WYNCONFIG_VERSION_MAJOR * 10000 + WYNCONFIG_VERSION_MINOR * 100 + WYNCONFIG_VERSION_PATCH)

namespace wynconfig {

/// The version of the library that is in use, as `WYNCONFIG_VERSION` counts; it can be newer than
/// the headers that a host was built with.
WYNCONFIG_API int version();

/// The same in words, such as "1.2.3".
WYNCONFIG_API const char* versionText();

}  // namespace wynconfig
