// What a screen reader finds of what is painted: picture boxes, links and the status bar.
#pragma once

namespace desktop {

/// From now on Qt finds these for what they are; it would take them for texts. Once is enough; more
/// does no harm.
void letPaintedSpeak();

} // namespace desktop
