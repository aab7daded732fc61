// Sizing a field at its edges and corners: where they are grabbed, how the frame stretches, and the
// smallest size that a drag gives. Positions are the events' own: twips from the object's corner,
// on images pixels.
#pragma once

#include "forms/selection_frame.h"
#include "platform/events.h"

namespace kehystin {

using platform::Integer;
using platform::MouseArguments;

/// What a drag of this field from here will do: the first zone that holds decides.
Grab grab_at(int number, MouseArguments const& mouse);

/// The pointer that tells so, where zones are a little different from those of a press.
int pointer_at(int number, MouseArguments const& mouse);

/// Stretches the field's frame at the edges that were grabbed. False, with nothing done, where the
/// field would become too small.
bool stretch(int number, MouseArguments const& mouse);

/// A mouse position over the field's object in twips. Raises overflow beyond 16 bits.
Integer twips_at(int number, double position);

} // namespace kehystin
