// The library as COM sees it: what keeps it loaded, where it lies, and what a thread has of it.
#pragma once

#include <string>

#include "com/winapi.h"

namespace wynconfig::com {

/// The handle of this library.
HINSTANCE moduleHandle();
/// Where this library lies.
std::wstring modulePath();

/// Keeps the library loaded for as long as it is there; a member of every object.
class KeepsLoaded {
  public:
    KeepsLoaded();
    KeepsLoaded(const KeepsLoaded&) = delete;
    KeepsLoaded& operator=(const KeepsLoaded&) = delete;
    ~KeepsLoaded();
};

/// Locks the library into memory, or takes one lock away.
void lockModule(bool lock);

/// Gives the calling thread its view, at the first object that it makes. What the component
/// remembers on the thread, the host's resource manager above all, goes when the thread closes its
/// COM, or when the host asks whether the library may go and no object is left.
void joinThread();

/// Whether nothing needs the library any more. Forgets what the calling thread remembers, if so.
bool mayUnload();

/// The description of a type in the type library that this library bears. The caller releases it.
/// Raises `Failed`.
ITypeInfo* typeInfoOf(REFGUID id);

}  // namespace wynconfig::com
