#include "panel/selector.h"

#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"

namespace kehystin {

namespace {

void hide_frames() {
    for (int i = 0; i <= card.fields; ++i)
        if (fCard->focus.has(i))
            fCard->focus(i).Visible = false;
}

void fill_card_rows() {
    fEditor->txt_name.Text = card.name.trim();
}

} // namespace

void cmb_field_Click() {
    int const chosen = fEditor->cmb_field.ListIndex;
    if (chosen == -1 || !session.cardFormLoaded)
        return;
    PanelUpdate const filling;
    hide_frames();
    if (chosen == 0)
        fill_card_rows();
    fCard->focus(chosen).Visible = true;
    fEditor->focusTimer.Enabled = true;
}

} // namespace kehystin
