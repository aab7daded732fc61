// What a screen reader finds of a picture box.
#pragma once

namespace desktop {

/// From now on Qt finds the picture boxes of forms, which it would take for texts. Once is enough;
/// more does no harm.
void letPicturesSpeak();

} // namespace desktop
