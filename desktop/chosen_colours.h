// Whose colours a desktop shows.
#pragma once

namespace desktop {

/// False where the desktop says that its colours are those it has by itself, whatever they are.
bool coloursAreChosen();

} // namespace desktop
