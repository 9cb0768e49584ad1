// The file that the component runs from.
#pragma once

#include <filesystem>

namespace wynconfig {

/// The file that this code was loaded from: the shared library, or the program. Empty when the
/// system does not tell.
std::filesystem::path ownFile();

/// Whether a folder `texts` beside that file may hold the texts, as where programs are installed
/// into a folder of their own.
bool mayHaveTextsBeside();

}  // namespace wynconfig
