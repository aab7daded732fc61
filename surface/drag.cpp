#include "surface/drag.h"

#include "forms/card_form.h"
#include "forms/panel_rows.h"
#include "links/link_engine.h"
#include "mainwindow/document_state.h"
#include "mainwindow/status_bar.h"
#include "model/card.h"
#include "model/session.h"
#include "panel/selection_rows.h"
#include "platform/system.h"
#include "surface/grid.h"
#include "surface/visuals.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace kehystin {

namespace {

struct Offset {
    Integer across;
    Integer down;
};

/// How far a place moves on one axis: to the nearest line behind the mouse, or as far as the mouse.
double axis_offset(double moved, int place, std::optional<int> spacing) {
    return spacing ? snapped(moved + place, *spacing) - place : moved;
}

Offset offset_for(double across, double down, Field const& leader, int correction) {
    auto const spacing = snap_spacing();
    auto const x = spacing ? std::optional<int>(spacing->x) : std::nullopt;
    auto const y = spacing ? std::optional<int>(spacing->y) : std::nullopt;
    return {Integer(axis_offset(across, leader.left, x) - correction),
            Integer(axis_offset(down, leader.top, y) - correction)};
}

struct Geometry {
    int number;
    Integer left, top, width, height;
};

Integer size_of(double frame) {
    return Integer(std::min(frame, limits::largest_field + 2.0) - 2);
}

Geometry geometry_of_frame(int number) {
    auto const& frame = fCard->focus(number);
    return {number, Integer(frame.Left + 1), Integer(frame.Top + 1), size_of(frame.Width),
            size_of(frame.Height)};
}

void apply(Geometry const& place) {
    auto& one = field(place.number);
    one.left = place.left;
    one.top = place.top;
    one.width = place.width;
    one.height = place.height;
    show_place(place.number);
}

/// A number of the panel after a drag: shown when all selected fields have it and it can be typed.
void show_number(Row number, Field const& first) {
    auto const& row = panel_row(number);
    auto& editor = (*fEditor).*row.editor;
    int const value = first.*row.value.number;
    if (!all_same(number) || value < row.value.typed.lowest || value > limits::largest_field) {
        editor.Text = "";
        return;
    }
    editor.Text = Format(value);
    ((*fEditor).*row.scroll).Value = -value;
}

void show_geometry(Field const& first) {
    PanelUpdate const filling;
    for (auto const row : {Row::left, Row::top, Row::width, Row::height})
        show_number(row, first);
}

/// Frames back to their fields, no press under way.
void give_up_drag() {
    if (!fCard)
        return;
    System::current().mouse() = {};
    System::current().set_MousePointer(pointer::normal);
    fCard->bigfocus.Visible = false;
    fCard->bigfocus.set_grab(Grab::none);
    for (int i = 1; i <= card.fields; ++i)
        if (fCard->focus.has(i)) {
            fCard->focus(i).set_grab(Grab::none);
            fCard->place_frame(i);
        }
}

} // namespace

void move_focus(Integer x, Integer y) {
    if (session.fieldsLocked)
        return;
    auto const selected = selected_fields();
    if (!selected.empty()) {
        // One pixel less than the mouse moved: that is how far the frame stands out of its field.
        auto const offset =
            offset_for((x - fCard->grabX) / twips_per_pixel, (y - fCard->grabY) / twips_per_pixel,
                       field(selected.front()), 1);
        for (int const number : selected) {
            Integer const left = field(number).left + offset.across;
            Integer const top = field(number).top + offset.down;
            fCard->focus(number).Move(std::max(int{left}, 0), std::max(int{top}, 0));
        }
    }
    if (fEditor->stsBar.Visible)
        upd_sts();
}

void move_frames_on_surface(MouseArguments const& mouse) {
    auto const selected = selected_fields();
    if (selected.empty())
        return;
    auto const offset =
        offset_for(mouse.X - fCard->grabX, mouse.Y - fCard->grabY, field(selected.front()), 0);
    if (session.fieldsLocked)
        return;
    for (int const number : selected) {
        Integer const left = field(number).left + offset.across - 1;
        Integer const top = field(number).top + offset.down - 1;
        fCard->focus(number).Move(int{left}, int{top});
    }
}

void move_fields() {
    auto const selected = selected_fields();
    std::vector<Geometry> places;
    places.reserve(selected.size());
    for (int const number : selected)
        places.push_back(geometry_of_frame(number));
    for (auto const& place : places)
        apply(place);
    if (!selected.empty())
        show_geometry(field(selected.front()));
    update_links();
    MarkCardChanged();
}

void drag_step(std::function<void()> const& step) {
    try {
        with_memory_checked(step);
    } catch (RuntimeError const&) {
        give_up_drag();
        throw;
    }
}

} // namespace kehystin
