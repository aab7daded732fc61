// What a screen reader finds of an option button.
#pragma once

namespace desktop {

/// From now on Qt finds option buttons of forms as such: by itself it takes those for check boxes
/// that do not go out by themselves. Once is enough; more does no harm.
void letOptionsSpeak();

} // namespace desktop
