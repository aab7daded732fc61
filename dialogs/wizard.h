// The wizard that builds a new card.
#pragma once

namespace kehystin {

/// Shows the wizard. True when it was gone through to its end: the records then hold its card, and
/// the surface is still to be built. When the user cancels, dialogCancelled is set and the records
/// stand as they did.
bool show_wizard();

} // namespace kehystin
