#include "layout/align.h"

#include "forms/card_form.h"
#include "forms/panel_rows.h"
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
    Row row;
    void (*carry_out)(Places const&);
};

constexpr Axis across = {&Field::left, &Field::width, &Card::width, Row::left, place_lefts};
constexpr Axis down = {&Field::top, &Field::height, &Card::height, Row::top, place_tops};

/// The lowest edge of the selection, at most the card's size.
Integer lowest_edge(std::vector<int> const& selected, Axis const& axis) {
    Integer lowest = card.*axis.card_size;
    for (int const number : selected)
        lowest = std::min(lowest, field(number).*axis.place);
    return lowest;
}

Integer highest_edge(std::vector<int> const& selected, Axis const& axis) {
    Integer highest = 0;
    for (int const number : selected)
        highest = std::max(highest, field(number).*axis.place + field(number).*axis.size);
    return highest;
}

/// In double precision, for the highest edge of fields that stand far out leaves 16 bits before it
/// is halved.
double middle_of(std::vector<int> const& selected, Axis const& axis) {
    double const lowest = lowest_edge(selected, axis);
    double highest = 0;
    for (int const number : selected)
        highest = std::max(highest, double(field(number).*axis.place) + field(number).*axis.size);
    return (highest - lowest) / 2 + lowest;
}

/// New places of the selected fields. Each edge computes no more than it needs, so that a field far
/// out is in the way of none but its own.
Places aligned(std::vector<int> const& selected, Axis const& axis, Edge edge) {
    Places places;
    auto const place_all = [&](auto const& place_of) {
        for (int const number : selected)
            places.emplace_back(number, place_of(field(number).*axis.size));
    };
    switch (edge) {
    case Edge::lower:
        place_all([lowest = lowest_edge(selected, axis)](Integer) { return lowest; });
        break;
    case Edge::upper:
        place_all(
            [highest = highest_edge(selected, axis)](Integer size) { return highest - size; });
        break;
    case Edge::middle: // rounded once, at the end
        place_all([middle = middle_of(selected, axis)](Integer size) {
            return Integer(middle - size / 2.0);
        });
        break;
    }
    return places;
}

void align(Axis const& axis, Edge edge) {
    auto const selected = selected_fields();
    auto const places = aligned(selected, axis, edge);
    {
        PanelUpdate const filling;
        editor_of(axis.row).Text = edge == Edge::lower ? Format(lowest_edge(selected, axis)) : "";
    }
    axis.carry_out(places);
    finish_layout();
}

/// As if the user had typed it: the row shows the word and carries it to the selected titles.
void write_align_word(std::size_t place) {
    fEditor->txt_align.Text = std::string(align_words[place].text);
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
    write_align_word(0);
}

void cmd_a_right_Click() {
    write_align_word(1);
}

void cmd_a_center_Click() {
    write_align_word(2);
}

} // namespace kehystin
