// The mouse on a field's own object: selecting, moving, and sizing at edges and corners.
#pragma once

#include "platform/events.h"

namespace kehystin {

using platform::MouseArguments;

/// Handlers of all kinds of field object that deliver mouse events; `index` is the field's number.
/// Positions are twips from the object's corner, on images pixels.
///
/// A press selects: alone without a modifier, in addition with one. On a field that was selected
/// already it also chooses what the drag will do, by the zones at the object's edges.
void field_MouseDown(int index, MouseArguments const& mouse);
/// Without a drag the pointer tells what a press would do. During one, frames move and stretch.
void field_MouseMove(int index, MouseArguments const& mouse);
/// Ends a drag: the frames become the fields' geometry.
void field_MouseUp(int index, MouseArguments const& mouse);

} // namespace kehystin
