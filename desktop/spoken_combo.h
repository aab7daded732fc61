// What a screen reader finds of a combo box: its name, and what is chosen in it.
#pragma once

namespace desktop {

/// From now on Qt finds the names of the combo boxes of forms: by itself it tells the chosen item
/// alone. Once is enough; more does no harm.
void letCombosSpeak();

} // namespace desktop
