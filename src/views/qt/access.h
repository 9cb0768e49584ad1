// What assistive programs are told of the widgets that Qt would speak of wrongly, and what their
// actions do.
#pragma once

namespace wynconfig::desktop {

/// From here on the buttons, check boxes and options of forms are spoken of as what they are, and
/// an action on one gives it the focus first, as a click does; options that stand together are a
/// group, and the panel that tells how far work has come is read as it comes up. May be called
/// again.
void correctSpeech();

}  // namespace wynconfig::desktop
