// The part formats of the sample store.
#pragma once

#include "wynconfig/user.h"
#include "wynconfig/wynconfig.h"

namespace host {

/// Has a played user make all part formats of the sample store in the part format editor.
/// @param component  is set to a store without part formats
/// @param user       of the installed view
/// Raises `wynconfig::UserError` when a dialog behaved in an unexpected way.
void makeSampleFormats(wynconfig::WYNConfig& component, wynconfig::User& user);

}  // namespace host
