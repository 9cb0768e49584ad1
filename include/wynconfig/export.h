/// @file
/// What the shared libraries show of themselves: everything else in them is hidden.
#pragma once

#if defined(__GNUC__)
/// Marks what a shared library shows.
#define WYNCONFIG_API __attribute__((visibility("default")))
/// Marks what stays hidden within a class that is shown.
#define WYNCONFIG_INSIDE __attribute__((visibility("hidden")))
#else
#define WYNCONFIG_API
#define WYNCONFIG_INSIDE
#endif
