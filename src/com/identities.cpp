// The identities of the library's classes and interfaces, once for the whole of it.
#include <initguid.h>

#include "com/winapi.h"
// Behind it: only from here on an identity becomes a constant.
#include "com/wynconfig_com.h"
