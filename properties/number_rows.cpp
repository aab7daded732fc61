#include "properties/number_rows.h"

#include "links/tab_order.h"
#include "mainwindow/card_size.h"
#include "model/session.h"
#include "panel/selection_rows.h"
#include "properties/apply.h"
#include "surface/visuals.h"

namespace kehystin {

namespace {

constexpr double largest_card_left_standing = 6000; // pixels

ScrollBar& scroll_of(Row row) {
    return (*fEditor).*panel_row(row).scroll;
}

double typed_number(Row row) {
    return Val(editor_of(row).Text.get());
}

void show_in_scroll_bar(Row row, Integer number) {
    PanelUpdate const filling;
    scroll_of(row).Value = -int{number};
}

bool is_card_side(Row row) {
    return (row == Row::width || row == Row::height) && edits_card();
}

/// The window follows, which paints its grid anew; see Form_Resize.
void change_card(Row row, double number) {
    constexpr Range card_range = {limits::smallest_card, limits::largest_card};
    if (!card_range.holds(number))
        return;
    auto const size = Integer(number);
    show_in_scroll_bar(row, size);
    if (row == Row::width) {
        card.width = size;
        fCard->Width = size * twips_per_pixel;
    } else {
        card.height = size;
        fCard->Height = size * twips_per_pixel;
    }
    size_card_frame(card.width, card.height);
    finish_change(Links::keep);
}

void change_fields(Row row, double number) {
    auto const& value = panel_row(row).value;
    if (!value.typed.holds(number))
        return;
    auto const stored = Integer(number);
    show_in_scroll_bar(row, stored);
    change_selected(value.links, [&](int i, Field& one) {
        one.*value.number = stored;
        if (row == Row::size)
            show_size_limit(i);
        else
            show_place(i);
    });
}

} // namespace

void number_Change(Row row) {
    if (session.pro_updating)
        return;
    if (is_card_side(row))
        change_card(row, typed_number(row));
    else
        change_fields(row, typed_number(row));
}

void number_LostFocus(Row row) {
    if (session.pro_updating || keyboard_stays_in(row))
        return;
    constexpr Range card_range = {limits::smallest_card, largest_card_left_standing};
    auto const& range = is_card_side(row) ? card_range : panel_row(row).value.left_standing;
    if (!range.holds(typed_number(row)))
        reload_rows();
}

void number_scr_Change(Row row) {
    if (!session.pro_updating)
        editor_of(row).Text = Format(-scroll_of(row).Value.get());
}

bool number_can_scroll(Row row) {
    return is_card_side(row) || follow_in_scroll_bar(row);
}

void txt_tabindex_Change() {
    if (session.pro_updating)
        return;
    auto& editor = fEditor->txt_tabindex;
    double const number = Val(editor.Text.get());
    if (!panel_row(Row::tab_index).value.typed.holds(number)) {
        editor.Text = "0"; // comes back here
        return;
    }
    if (number == 0 && Trim(editor.Text.get()) != "0")
        return;
    for (int const i : selected_fields()) {
        field(i).tabIndex = Integer(number);
        if (auto* const object = fCard->visual_of(i))
            object->TabIndex = int{field(i).tabIndex};
    }
    upd_tabIndex(); // the others have made room
    finish_change(Links::keep);
}

} // namespace kehystin
