// What a screen reader finds of a picture box or a link.
#pragma once

namespace desktop {

/// From now on Qt finds the picture boxes and the links of forms, which it would take for texts.
/// Once is enough; more does no harm.
void letPicturesSpeak();

} // namespace desktop
