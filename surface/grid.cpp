#include "surface/grid.h"

#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"
#include "model/settings.h"

namespace kehystin {

namespace {

/// Twips to pixels on the surface, whatever the screen's own ratio is.
constexpr double twips_per_pixel = 15;

void draw_grid(Colour colour) {
    int const last_x = Integer(fCard->Width / twips_per_pixel);
    int const last_y = Integer(fCard->Height / twips_per_pixel);
    for (int y = settings.gridY; y <= last_y; y += settings.gridY)
        for (int x = settings.gridX; x <= last_x; x += settings.gridX)
            fCard->PSet(x, y, colour);
}

void draw_guides(Colour colour) {
    double const width = fCard->Width / twips_per_pixel;
    double const height = fCard->Height / twips_per_pixel;
    for (int y = settings.guideY; y <= height; y += settings.guideY)
        fCard->DrawLine(0, y, width, y, colour);
    for (int x = settings.guideX; x <= width; x += settings.guideX)
        fCard->DrawLine(x, 0, x, height, colour);
}

void flip(Menu& entry) {
    entry.Checked = !entry.Checked;
    upd_gg();
}

} // namespace

void upd_gg() {
    if (!session.cardFormLoaded)
        return;
    fCard->Cls();
    // Only on a purely white card are the marks grey; on any other, however light, they are white.
    auto const colour = card.color == colours::white ? colours::grey : colours::white;
    if (fEditor->cmd_grid_show.Checked)
        draw_grid(colour);
    if (fEditor->cmd_guide_show.Checked)
        draw_guides(colour);
}

void cmd_grid_show_Click() {
    flip(fEditor->cmd_grid_show);
}

void cmd_guide_show_Click() {
    flip(fEditor->cmd_guide_show);
}

} // namespace kehystin
