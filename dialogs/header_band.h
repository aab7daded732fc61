// The band across the top of a dialog that says what the dialog is for.
#pragma once

#include "platform/form.h"

namespace kehystin {

/// Paints the band, layout::header_band high, and puts the label that stands in it in its place.
/// What was drawn on the form before is gone.
void paint_header_band(platform::Form& form, platform::Label& label);

} // namespace kehystin
