// The rows that edit the card itself.
#pragma once

namespace kehystin {

/// "Nimi": each key goes to the card's name and to the caption of its window.
void txt_name_Change();

/// "Leveys" and "Korkeus", which the card and its fields share. Typed numbers outside 60 to 3000
/// are not taken for the card.
void txt_width_Change();
void txt_height_Change();
/// A number that the card cannot have is replaced by the one that it has.
void txt_width_LostFocus();
void txt_height_LostFocus();
/// The scroll bars of the two rows write their negative into the rows.
void scr_width_Change();
void scr_height_Change();

} // namespace kehystin
