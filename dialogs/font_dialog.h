// The dialog of a font and its two colours.
#pragma once

#include "platform/controls.h"

namespace kehystin {

/// Lets the user choose font and colours for the wizard's sample that fontDialogMode names: 1 the
/// titles, 2 the text fields. A cancel leaves the sample as it is and sets dialogCancelled.
void show_font_dialog();

/// Gives a sample the size of its text and puts it in the middle of what it stands in.
void center_sample(platform::Label& sample);

} // namespace kehystin
