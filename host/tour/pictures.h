// Pictures of the main dialogs, for the documentation.
#pragma once

#include <filesystem>

#include "wynconfig/wynconfig.h"

namespace host {

/// Has a played user open the main dialogs on a sample store, and saves a picture of each, named
/// after what the dialog is for. No picture shows where the store lies.
/// @param folder  for the pictures; made when it is not there
/// Raises what goes wrong.
void takePictures(wynconfig::WYNConfig& component, const std::filesystem::path& folder);

}  // namespace host
