// What the checks of a dialog report.
#pragma once

namespace wynconfig {

/// The dialog's content may be stored, and was.
inline constexpr long kApplied = 0;
/// A check refused it; the dialog stays open. The number is the one by which components of the
/// desktop tell an unspecified failure; no caller looks at more than that it is not 0.
inline constexpr long kRefused = 0x80004005L;

}  // namespace wynconfig
