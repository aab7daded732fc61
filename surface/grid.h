// Grid and guides: marks on the card's background that help placing fields.
#pragma once

#include <optional>

namespace kehystin {

/// The nearest line of a grid; a place half way between two goes to the higher one. A spacing
/// below 1 is of no grid, and leaves the place where it is.
double snapped(double place, int spacing);

struct Spacing {
    int x; ///< pixels
    int y;
};

/// Between the lines that places snap to; nothing while neither snaps. The grid comes before the
/// guides.
std::optional<Spacing> snap_spacing();

/// Clears and draws grid and guides anew. Does nothing without a card. Marks less than a pixel
/// apart are not drawn.
void upd_gg();

/// "Näytä ruudukko" and "Näytä apuviivat": flip the mark and draw.
void cmd_grid_show_Click();
void cmd_guide_show_Click();

/// "Tartu ruudukkoon" and "Tartu apuviivoihin": flip the mark. Switched on over a card with fields,
/// they offer to put every field on the nearest line of their own, which rebuilds the surface and
/// selects the card; saving is left as it was. When a place leaves 16 bits no field moves.
void cmd_grid_snap_Click();
void cmd_guide_snap_Click();

} // namespace kehystin
