// The rows of font, font size, colours and alignment.
#pragma once

namespace kehystin {

/// Lists the machine's fonts and the sizes that can be chosen or typed: 4 to 30 points.
void fill_font_lists();

/// A font is taken as it is installed, however it was typed; a size must be on the list. Both link
/// anew, for fields may take another height.
void txt_fontName_Change();
void txt_fontSize_Change();
void txt_fontBold_Change();
void txt_fontItalic_Change();
void txt_align_Change();

/// Ask for a colour, for the swatch, for all selected fields or for the card, and for the next new
/// field. A cancelled dialog changes nothing. A background for titles of a transparent card asks
/// once whether to make titles visible.
void FC_Click();
void BC_Click();

/// Colours are chosen, not typed.
void txt_fc_Change();
void txt_bc_Change();

} // namespace kehystin
