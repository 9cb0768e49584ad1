// The classes that the library has.
#pragma once

#include <array>

#include "com/object.h"

namespace wynconfig::com {

/// A class as the registry and a host know it.
struct Class {
    CLSID id;
    const wchar_t* name;  ///< by which scripts make it, without its version
    const wchar_t* description;
    IUnknown* (*make)();
};

constexpr int kClassCount = 4;
const std::array<Class, kClassCount>& classes();

}  // namespace wynconfig::com
