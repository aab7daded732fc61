// What earlier sessions have left unsaved, offered at the start.
#pragma once

namespace kehystin {

/// Offers the newest rescue, rather one of the file that the session has begun with. Yes opens it
/// as a changed card with its own file; it stays kept by this session until the card is saved.
void offer_rescue();

} // namespace kehystin
