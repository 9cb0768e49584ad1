// What screen readers are told of the widgets that Qt would speak of wrongly.
#pragma once

namespace wynconfig::desktop {

/// From here on options are spoken of as options. May be called again.
void speakOfOptions();

}  // namespace wynconfig::desktop
