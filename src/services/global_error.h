// The one way of telling an unexpected failure: a critical box.
#pragma once

#include <string>

namespace wynconfig {

/// Project string of nearly every failure.
inline const std::string kProject = "VLWYNConfig";

/// Shows the failure box. What fails on the way is passed over in silence, so that without a
/// resource manager the box comes up empty.
/// @param sProject      project string, such as `kProject`
/// @param sProcedure    tag of the procedure, such as "frmMORAMMaintenance:btnNew_Click"
/// @param lNumber       error number; never shown
/// @param sDescription  error description, the first thing that the box tells
void GlobalError(const std::string& sProject, const std::string& sProcedure, long lNumber,
                 const std::string& sDescription);

/// Drops the form behind the box, so that the next failure loads it anew. For tests.
void resetGlobalError();

}  // namespace wynconfig
