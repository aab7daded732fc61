#include "properties/number_rows.h"

#include "links/tab_order.h"
#include "mainwindow/card_size.h"
#include "model/session.h"
#include "panel/selection_rows.h"
#include "properties/apply.h"
#include "surface/visuals.h"

namespace kehystin {

namespace {

struct Range {
    double lowest;
    double highest;
    Integer Card::*side = nullptr; ///< the side of the card that ends the range instead

    bool holds(double number) const {
        return number >= lowest && number <= (side ? double(card.*side) : highest);
    }
};

/// A row and what its number means in a field. What can be typed and what can be left standing
/// differ: a place of 0 is taken while typing, and a size above 18000 is taken but shown again.
struct NumberRow {
    Row row;
    Integer Field::*member;
    Range typed;
    Range left_standing;
    Links links;
};

constexpr double largest_size_left_standing = 18000;
constexpr double largest_card_left_standing = 6000; // pixels, as all below
constexpr double largest_field_left_standing = 3000;

constexpr Range across_card(double lowest) {
    return {lowest, 0, &Card::width};
}

constexpr Range down_card(double lowest) {
    return {lowest, 0, &Card::height};
}

// Changing the width alone makes no new links.
constexpr NumberRow rows[] = {
    {Row::size,
     &Field::size,
     {1, limits::largest_size},
     {1, largest_size_left_standing},
     Links::keep},
    {Row::left, &Field::left, across_card(0), across_card(1), Links::renew},
    {Row::top, &Field::top, down_card(0), down_card(1), Links::renew},
    {Row::width, &Field::width, across_card(1), {1, largest_field_left_standing}, Links::keep},
    {Row::height, &Field::height, down_card(1), {1, largest_field_left_standing}, Links::renew},
};

NumberRow const& number_row(Row row) {
    for (auto const& one : rows)
        if (one.row == row)
            return one;
    throw RuntimeError(ErrorNumber::subscript_out_of_range);
}

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

void change_fields(NumberRow const& row, double number) {
    if (!row.typed.holds(number))
        return;
    auto const stored = Integer(number);
    show_in_scroll_bar(row.row, stored);
    change_selected(row.links, [&](int i, Field& one) {
        one.*row.member = stored;
        if (row.row == Row::size)
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
        change_fields(number_row(row), typed_number(row));
}

void number_LostFocus(Row row) {
    if (session.pro_updating || keyboard_stays_in(row))
        return;
    constexpr Range card_range = {limits::smallest_card, largest_card_left_standing};
    auto const& range = is_card_side(row) ? card_range : number_row(row).left_standing;
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
    if (number < 0 || number > limits::largest_tab_index) {
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
