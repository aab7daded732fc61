#include "properties/font_colour_rows.h"

#include "boxes/failure_report.h"
#include "forms/editor_form.h"
#include "model/session.h"
#include "panel/row_texts.h"
#include "platform/host.h"
#include "properties/apply.h"
#include "properties/word_choice.h"
#include "surface/grid.h"
#include "surface/visuals.h"

#include <algorithm>
#include <utility>

namespace kehystin {

namespace {

constexpr int largest_listed_size = 30; // points; files may hold somewhat more

void change_flag(TextBox const& editor, Integer Field::*member, Flag DefaultField::*remembered) {
    auto const on = boolean_word(editor.Text.get());
    if (session.pro_updating || !on)
        return;
    change_selected(
        Links::keep,
        [&](int i, Field& one) {
            one.*member = Flag(*on).number();
            show_font(i);
        },
        [&](DefaultField& look) { look.*remembered = *on; });
}

/// The chosen colour, or nothing.
std::optional<Colour> choose_colour(PictureBox& swatch) {
    try {
        auto const colour = host().ShowColor(swatch.BackColor, 0);
        swatch.BackColor = colour;
        return colour;
    } catch (RuntimeError const& error) {
        if (error.is(ErrorNumber::cancelled))
            return std::nullopt;
        throw;
    }
}

void change_card_colour(Colour colour) {
    auto const before = std::exchange(card.color, colour);
    fCard->BackColor = colour;
    for (int i = 1; i <= card.fields; ++i) {
        // Of the images only those that showed the card's colour go with it.
        bool const showed_card = fCard->img.has(i) && fCard->img(i).BackColor == before;
        if (showed_card)
            show_image_background(i);
        else
            show_background(i);
    }
    upd_gg();
    finish_change(Links::renew); // the colour of the lines depends on the card's
}

bool selection_has_title() {
    auto const selected = selected_fields();
    return std::any_of(selected.begin(), selected.end(),
                       [](int number) { return field(number).is_title(); });
}

/// A transparent title would not show its new background.
void offer_visible_titles() {
    if (card.transp == 0 || !selection_has_title())
        return;
    auto const answer = MsgBox(lines({"", " Kortille on määritelty läpinäkyvät otsikot.     ",
                                      " Haluatko muuttaa otsikon taustan näkyväksi?     "}),
                               box::information + box::yes_no, " Läpinäkyvät otsikot");
    if (answer != Answer::yes)
        return;
    card.transp = 0;
    PanelUpdate const filling;
    fEditor->txt_transp.Text = std::string(yes_no(false));
    for (int i = 1; i <= card.fields; ++i) {
        show_background(i);
        show_image_background(i);
    }
}

} // namespace

void fill_font_lists() {
    auto& form = *fEditor;
    form.lst_fontName.Clear();
    for (auto const& name : host().fonts())
        form.lst_fontName.AddItem(name);
    form.lst_fontSize.Clear();
    for (int size = limits::smallest_font; size <= largest_listed_size; ++size)
        form.lst_fontSize.AddItem(std::to_string(size));
}

void txt_fontName_Change() {
    if (session.pro_updating)
        return;
    auto const& list = fEditor->lst_fontName;
    auto const number = word_number(Row::font_name, fEditor->txt_fontName.Text.get());
    if (!number)
        return;
    auto const& installed = list.List(*number);
    if (!is_usable_font(installed))
        return;
    change_selected(
        Links::renew,
        [&](int i, Field& one) {
            one.fontName = installed;
            show_font(i);
        },
        [&](DefaultField& look) { look.fontName = installed; });
}

void txt_fontSize_Change() {
    if (session.pro_updating)
        return;
    auto const number = word_number(Row::font_size, fEditor->txt_fontSize.Text.get());
    if (!number)
        return;
    int const size = Integer(Val(fEditor->lst_fontSize.List(*number)));
    change_selected(
        Links::renew,
        [&](int i, Field& one) {
            one.fontSize = size;
            show_font(i);
        },
        [&](DefaultField& look) { look.fontSize = static_cast<float>(size); });
}

void txt_fontBold_Change() {
    change_flag(fEditor->txt_fontBold, &Field::fontBold, &DefaultField::fontBold);
}

void txt_fontItalic_Change() {
    change_flag(fEditor->txt_fontItalic, &Field::fontItalic, &DefaultField::fontItalic);
}

void txt_align_Change() {
    if (session.pro_updating)
        return;
    auto const number = word_number(Row::align, fEditor->txt_align.Text.get());
    if (!number)
        return;
    change_selected(Links::keep, [&](int i, Field& one) {
        one.align = *number;
        show_align(i);
    });
}

void FC_Click() {
    fEditor->txt_fc.SetFocus();
    auto const colour = choose_colour(fEditor->FC);
    if (!colour)
        return;
    change_selected(
        Links::keep,
        [&](int i, Field& one) {
            one.foreColor = *colour;
            show_fore_color(i);
        },
        [&](DefaultField& look) { look.foreColor = *colour; });
}

void BC_Click() {
    fEditor->txt_bc.SetFocus();
    auto const colour = choose_colour(fEditor->BC);
    if (!colour)
        return;
    if (edits_card()) {
        change_card_colour(*colour);
        return;
    }
    offer_visible_titles();
    change_selected(
        Links::renew,
        [&](int i, Field& one) {
            one.backColor = *colour;
            show_background(i);
        },
        [&](DefaultField& look) { look.backColor = *colour; });
}

void txt_fc_Change() {
    if (!session.pro_updating)
        fEditor->txt_fc.Text = "";
}

void txt_bc_Change() {
    if (!session.pro_updating)
        fEditor->txt_bc.Text = "";
}

} // namespace kehystin
