#include "layout/align.h"

#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "layout/placing.h"
#include "model/card.h"
#include "model/session.h"

#include <algorithm>

namespace kehystin {

namespace {

enum class Edge { lower, upper, middle };

/// What the two directions differ in.
struct Axis {
    Integer Field::*place;
    Integer Field::*size;
    Integer Card::*card_size;
    TextBox EditorForm::*editor;
    void (*carry_out)(Places const&);
};

constexpr Axis across = {&Field::left, &Field::width, &Card::width, &EditorForm::txt_left,
                         place_lefts};
constexpr Axis down = {&Field::top, &Field::height, &Card::height, &EditorForm::txt_top,
                       place_tops};

struct Extent {
    Integer lowest;
    Integer highest;
};

Extent extent_of(std::vector<int> const& selected, Axis const& axis) {
    Extent extent{card.*axis.card_size, 0};
    for (int const number : selected) {
        auto const& one = field(number);
        extent.lowest = std::min(extent.lowest, one.*axis.place);
        extent.highest = std::max(extent.highest, one.*axis.place + one.*axis.size);
    }
    return extent;
}

Integer aligned(Extent const& extent, Integer size, Edge edge) {
    switch (edge) {
    case Edge::lower:
        return extent.lowest;
    case Edge::upper:
        return extent.highest - size;
    case Edge::middle:
        break;
    }
    // Rounded once, at the end.
    return Integer((extent.highest - extent.lowest) / 2.0 + extent.lowest - size / 2.0);
}

void align(Axis const& axis, Edge edge) {
    auto const selected = selected_fields();
    auto const extent = extent_of(selected, axis);
    Places places;
    for (int const number : selected)
        places.emplace_back(number, aligned(extent, field(number).*axis.size, edge));
    {
        PanelUpdate const filling;
        ((*fEditor).*axis.editor).Text = edge == Edge::lower ? Format(extent.lowest) : "";
    }
    axis.carry_out(places);
    finish_layout();
}

} // namespace

void cmd_align_left_Click() {
    align(across, Edge::lower);
}

void cmd_align_right_Click() {
    align(across, Edge::upper);
}

void cmd_align_center_Click() {
    align(across, Edge::middle);
}

void cmd_valign_top_Click() {
    align(down, Edge::lower);
}

void cmd_valign_bottom_Click() {
    align(down, Edge::upper);
}

void cmd_valign_center_Click() {
    align(down, Edge::middle);
}

void cmd_a_left_Click() {
    fEditor->txt_align.Text = "Vasemmalle";
}

void cmd_a_right_Click() {
    fEditor->txt_align.Text = "Oikealle";
}

void cmd_a_center_Click() {
    fEditor->txt_align.Text = "Keskelle";
}

} // namespace kehystin
