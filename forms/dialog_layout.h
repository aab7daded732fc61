// The measures that all dialogs share, in twips.
#pragma once

#include "platform/form.h"

#include <initializer_list>

namespace kehystin {

using namespace platform;

namespace layout {

inline constexpr double margin = 180; ///< between a dialog's edge and what stands in it
inline constexpr double gap = 120;    ///< between neighbours
inline constexpr double row = 300;    ///< a line of text, a check box
inline constexpr double box = 330;    ///< a text or combo box
inline constexpr double button_width = 1335;
inline constexpr double button_height = 375;
inline constexpr double header_band = 600; ///< the band across the top of a dialog that has one

} // namespace layout

/// Gives a dialog the size that has this much room inside frame and caption.
void set_inner_size(Form& form, double width, double height);

/// Puts a row of buttons at the bottom right of a dialog of that inner size, in their order, and
/// one at the bottom left where there is one.
void place_buttons(std::initializer_list<Button*> right, Button* left, double inner_width,
                   double inner_height);

} // namespace kehystin
