// What a screen reader finds of a pair of arrows.
#pragma once

namespace desktop {

/// From now on Qt finds pairs of arrows as boxes for a number. Once is enough; more does no harm.
void letArrowsSpeak();

} // namespace desktop
