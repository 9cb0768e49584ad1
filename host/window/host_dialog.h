// What tells the host's own dialogs from those of the component.
#pragma once

namespace host {

/// Object name of all dialogs of the host's own. Their buttons have object names too.
inline constexpr const char* kHostDialog = "hostDialog";

}  // namespace host
