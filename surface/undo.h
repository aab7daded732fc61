// A store of where the fields stand, one level deep. Nothing in the program offers it to the user.
#pragma once

namespace kehystin {

/// Mode 0 remembers the place of every field, mode 1 puts the places back and builds the surface
/// anew; sizes, looks and the number of fields are not covered. A field without a remembered place
/// goes to the corner of the card. Any other mode only adjusts the store to the number of fields.
void undo(int mode);

} // namespace kehystin
