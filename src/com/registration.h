// How a system finds the library: its classes and its type library in the registry, for all users
// or for one.
#pragma once

#include "com/winapi.h"

namespace wynconfig::com {

/// Whose registry it is.
enum class For { Machine, User };

/// Writes all entries, or none. Raises nothing.
HRESULT registerLibrary(For whom);
/// Takes away what `registerLibrary` wrote. What is gone already is no failure.
HRESULT unregisterLibrary(For whom);

}  // namespace wynconfig::com
