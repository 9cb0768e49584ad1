// The part formats of the sample store.
#pragma once

#include <string>
#include <vector>

#include "sending/part_format.h"
#include "wynconfig/user.h"
#include "wynconfig/wynconfig.h"

namespace host {

/// Has a played user make all part formats of the sample store in the part format editor.
/// @param component  is set to a store without part formats
/// @param user       of the installed view
/// Raises `wynconfig::UserError` when a dialog behaved in an unexpected way.
void makeSampleFormats(wynconfig::WYNConfig& component, wynconfig::User& user);

/// Makes one of them in the same way.
/// @param component  is set to a store; the text of what is wrong with it comes up in the view
/// @param name       of one of `sampleFormats`
void makeSampleFormat(wynconfig::WYNConfig& component, wynconfig::User& user,
                      const std::string& name);

/// The part formats of the sample store, as the host reads them, to choose from.
std::vector<PartFormat> sampleFormats();

}  // namespace host
