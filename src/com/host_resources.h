// The resource manager that a host brings: any object, called by the names of its operations.
#pragma once

#include <memory>

#include "com/winapi.h"
#include "wynconfig/resource_manager.h"

namespace wynconfig::com {

/// The method for `FindString` may be missing. Keeps a reference to the object for as long as it
/// lives. Every failure of the object is raised as `Error`.
/// @return null for null
std::shared_ptr<ResourceManager> resourcesOf(IDispatch* object);

}  // namespace wynconfig::com
