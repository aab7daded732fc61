// Selecting on the surface: frames, presses on the bare card, and the rubber band.
#pragma once

#include "platform/events.h"

namespace kehystin {

using platform::MouseArguments;

/// Adds field `index` to the selection: its frame shows above everything, and the panel follows.
void set_focus(int index);
/// The same for a number that may be none of a field's, as from a list in which the card stands
/// too.
void add_to_selection(int number);
/// Takes every selection away and ends every drag: all frames, the card's and the rubber band hide.
void zip_focus();

/// The mouse on the surface itself. Positions are pixels; any button acts alike.
///
/// A press takes the lowest field of a kind that can be hit without a mouse event of its own, to be
/// moved; elsewhere it begins a rubber band. The release moves, selects what the band touches, or
/// selects the card.
void Form_MouseDown(int index, MouseArguments const& mouse);
void Form_MouseMove(int index, MouseArguments const& mouse);
void Form_MouseUp(int index, MouseArguments const& mouse);

} // namespace kehystin
