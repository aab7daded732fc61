// Grid and guides: marks on the card's background that help placing fields.
#pragma once

namespace kehystin {

/// Clears and draws grid and guides anew. Does nothing without a card.
void upd_gg();

/// "Näytä ruudukko" and "Näytä apuviivat": flip the mark and draw.
void cmd_grid_show_Click();
void cmd_guide_show_Click();

} // namespace kehystin
