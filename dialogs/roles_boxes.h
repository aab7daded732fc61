// The combo boxes of the field roles: what they list, how they look, and the roles they stand for.
#pragma once

namespace kehystin {

/// Wires all boxes of fSpeciField.
void wire_role_boxes();

/// Fills the boxes with the fields that can have their roles and chooses those that have them. A
/// role whose field is of another kind, or is not there, has nothing chosen.
void load_role_boxes();

/// Writes the chosen fields to the card, 0 where none is chosen.
void store_role_boxes();

/// The quick choices beside the date fields: their entries, what the card has chosen, and back.
void fill_quick_choices();
void load_quick_choices();
void store_quick_choices();

} // namespace kehystin
