// What assistive programs are told of the widgets that Qt would speak of wrongly, and what their
// actions do.
#pragma once

namespace wynconfig::desktop {

/// From here on the buttons, check boxes and options of forms are spoken of as what they are, and
/// an action on one gives it the focus first, as a click does. May be called again.
void speakOfButtons();

}  // namespace wynconfig::desktop
