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

/// "Lisää": brings the field bar into view and tells how fields are added.
void cmd_field_add_Click();

} // namespace kehystin
