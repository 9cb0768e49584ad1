// Calls of objects that are known by the names of their members alone.
#pragma once

#include "com/values.h"

namespace wynconfig::com {

/// Calls a method with one argument. Raises `Error` with what the object says of its failure.
/// @param method    in any case
/// @param argument  may be by reference
void call(IDispatch* object, const wchar_t* method, VARIANT& argument, Value& result);

/// Reads a property. Raises `Error` likewise.
void getProperty(IDispatch* object, const wchar_t* name, Value& value);

}  // namespace wynconfig::com
