// New fields.
#pragma once

namespace platform {
class Control;
}

namespace kehystin {

/// A button of the field bar was dropped on the card, at a point in surface pixels: a field of its
/// kind is made from the kind's default look, placed, shown and selected. Anything else that is
/// dropped changes nothing. A failure has its own box.
void Form_DragDrop(platform::Control& source, double x, double y);

/// The same from the keyboard: at the first place of the card's visible part, row by row along the
/// grid, where a new field of the kind covers no other; at its corner where there is none.
void drop_by_key(platform::Control& source);

/// "Lisää": brings the field bar into view and tells how fields are added.
void cmd_field_add_Click();

} // namespace kehystin
