#include "properties/card_rows.h"

#include "commands/card_size.h"
#include "commands/document_state.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"
#include "panel/selector.h"

namespace kehystin {

namespace {

constexpr double twips_per_pixel = 15; // whatever the screen's own ratio is

bool edits_card() {
    return session.cardFormLoaded && fEditor->cmb_field.ListIndex == 0;
}

bool fits_card(double size) {
    return size >= limits::smallest_card && size <= limits::largest_card;
}

/// What width and height of a card differ in.
struct Side {
    TextBox EditorForm::*editor;
    ScrollBar EditorForm::*scroll;
    Integer Card::*size;
    Property<double> Control::*window;
};

constexpr Side across = {&EditorForm::txt_width, &EditorForm::scr_width, &Card::width,
                         &Control::Width};
constexpr Side down = {&EditorForm::txt_height, &EditorForm::scr_height, &Card::height,
                       &Control::Height};

double typed(Side const& side) {
    return Val(((*fEditor).*side.editor).Text.get());
}

void apply_size(Side const& side) {
    double const number = typed(side);
    if (session.pro_updating || !edits_card() || !fits_card(number))
        return;
    {
        PanelUpdate const filling;
        ((*fEditor).*side.scroll).Value = -int{Integer(number)};
    }
    card.*side.size = Integer(number);
    (*fCard).*side.window = card.*side.size * twips_per_pixel;
    size_card_frame(card.width, card.height);
    MarkCardChanged();
}

void check_size(Side const& side) {
    // Wider than what is taken while typing: a number up to this is left standing.
    constexpr double largest_left_standing = 6000;
    double const number = typed(side);
    bool const valid = number >= limits::smallest_card && number <= largest_left_standing;
    if (!session.pro_updating && edits_card() && !valid)
        cmb_field_Click();
}

void take_scrolled(Side const& side) {
    if (!session.pro_updating)
        ((*fEditor).*side.editor).Text = Format(-((*fEditor).*side.scroll).Value);
}

} // namespace

void txt_name_Change() {
    if (session.pro_updating || !session.cardFormLoaded)
        return;
    card.name = Trim(fEditor->txt_name.Text.get());
    fCard->Caption = " " + card.name.trimmed();
    MarkCardChanged();
}

void txt_width_Change() {
    apply_size(across);
}

void txt_height_Change() {
    apply_size(down);
}

void txt_width_LostFocus() {
    check_size(across);
}

void txt_height_LostFocus() {
    check_size(down);
}

void scr_width_Change() {
    take_scrolled(across);
}

void scr_height_Change() {
    take_scrolled(down);
}

} // namespace kehystin
