// Moving selected fields: frames follow the mouse, records change once, at the release.
#pragma once

#include "platform/base.h"
#include "platform/events.h"

#include <functional>

namespace kehystin {

using platform::Integer;
using platform::MouseArguments;

/// Moves the frames of all selected fields to where a mouse at (x, y) takes them, in twips from the
/// corner of the pressed object. The first selected field lands on the grid or the guides if one of
/// them snaps; the others keep their distance from it, but none leaves the card at the left or the
/// top. Does nothing while the fields are locked. Raises overflow.
void move_focus(Integer x, Integer y);

/// The same for a field that was pressed through the surface, in surface pixels, and without the
/// stop at the card's edges.
void move_frames_on_surface(MouseArguments const& mouse);

/// Turns the frames of the selected fields into their geometry: records, visual objects, the
/// panel's numbers and the links. Always marks the card changed. When a number leaves 16 bits no
/// field changes at all. Ends every mouse drag.
void move_fields();

/// Runs one step of a mouse drag. When it fails the whole drag is given up before the failure goes
/// on: the frames stand around their fields again, and later moves and the release belong to
/// nobody.
void drag_step(std::function<void()> const& step);

} // namespace kehystin
