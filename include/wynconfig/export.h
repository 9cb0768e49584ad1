// What the shared libraries show of themselves: everything else in them is hidden.
#pragma once

#if defined(__GNUC__)
#define WYNCONFIG_API __attribute__((visibility("default")))
#define WYNCONFIG_INSIDE __attribute__((visibility("hidden")))  // within a class that is shown
#else
#define WYNCONFIG_API
#define WYNCONFIG_INSIDE
#endif
