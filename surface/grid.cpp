#include "surface/grid.h"

#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"
#include "model/settings.h"
#include "platform/host.h"
#include "surface/rebuild.h"

#include <cmath>
#include <vector>

namespace kehystin {

namespace {

/// Lines closer than a pixel would never come to an end.
bool leads_on(Spacing spacing) {
    return spacing.x > 0 && spacing.y > 0;
}

Spacing grid_spacing() {
    return {settings.gridX, settings.gridY};
}

Spacing guide_spacing() {
    return {settings.guideX, settings.guideY};
}

void draw_grid(Colour colour) {
    auto const spacing = grid_spacing();
    if (!leads_on(spacing))
        return;
    int const last_x = Integer(fCard->Width / twips_per_pixel);
    int const last_y = Integer(fCard->Height / twips_per_pixel);
    for (int y = spacing.y; y <= last_y; y += spacing.y)
        for (int x = spacing.x; x <= last_x; x += spacing.x)
            fCard->PSet(x, y, colour);
}

void draw_guides(Colour colour) {
    auto const spacing = guide_spacing();
    if (!leads_on(spacing))
        return;
    double const width = fCard->Width / twips_per_pixel;
    double const height = fCard->Height / twips_per_pixel;
    for (int y = spacing.y; y <= height; y += spacing.y)
        fCard->DrawLine(0, y, width, y, colour);
    for (int x = spacing.x; x <= width; x += spacing.x)
        fCard->DrawLine(x, 0, x, height, colour);
}

void flip(Menu& entry) {
    entry.Checked = !entry.Checked;
    upd_gg();
}

void align_fields(Spacing spacing) {
    struct Place {
        Integer left, top;
    };
    std::vector<Place> places;
    for (int i = 1; i <= card.fields; ++i)
        places.push_back({Integer(snapped(field(i).left, spacing.x)),
                          Integer(snapped(field(i).top, spacing.y))});
    int number = 0;
    for (auto const& place : places) {
        auto& one = field(++number);
        one.left = place.left;
        one.top = place.top;
    }
    rebuild_in_place();
}

void flip_snap(Menu& entry, Spacing spacing, std::string_view title, std::string_view question) {
    entry.Checked = !entry.Checked;
    if (!entry.Checked || card.fields == 0)
        return;
    if (MsgBox(question, box::question + box::yes_no, title) == Answer::yes)
        align_fields(spacing);
}

} // namespace

double snapped(double place, int spacing) {
    if (spacing <= 0)
        return place;
    return std::floor(place / spacing + 0.5) * spacing;
}

std::optional<Spacing> snap_spacing() {
    if (fEditor->cmd_grid_snap.Checked)
        return grid_spacing();
    if (fEditor->cmd_guide_snap.Checked)
        return guide_spacing();
    return std::nullopt;
}

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

void cmd_grid_snap_Click() {
    flip_snap(fEditor->cmd_grid_snap, grid_spacing(), " Ruudukko",
              " Kohdistetaanko nykyiset kentät lähimpään ruutuun?     ");
}

void cmd_guide_snap_Click() {
    flip_snap(fEditor->cmd_guide_snap, guide_spacing(), " Apuviivat",
              " Kohdistetaanko nykyiset kentät lähimpään apuviivaan?     ");
}

} // namespace kehystin
