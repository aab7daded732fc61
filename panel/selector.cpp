#include "panel/selector.h"

#include "forms/card_form.h"
#include "mainwindow/card_place.h"
#include "mainwindow/command_state.h"
#include "mainwindow/status_bar.h"
#include "model/card.h"
#include "model/session.h"
#include "panel/row_texts.h"
#include "panel/rows.h"
#include "platform/system.h"

namespace kehystin {

namespace {

/// Frames that a drag has moved stand around their fields again, for what the selector chooses
/// comes without a release; but a drag of the chosen field itself goes on.
void hide_frames(int chosen) {
    fCard->focus(0).Visible = false;
    for (int i = 1; i <= card.fields; ++i)
        if (fCard->focus.has(i)) {
            auto& frame = fCard->focus(i);
            bool const dragged = frame.grab() != Grab::none || fCard->bigfocus.grab() != Grab::none;
            if (!(i == chosen && frame.Visible && dragged))
                fCard->place_frame(i);
            frame.Visible = false;
        }
}

/// A field whose kind is unknown shows no rows.
void show_field(Field& one) {
    auto const* const kind = one.kind();
    if (!kind)
        return;
    for (auto const row : panel_kind(kind->prefix)->rows)
        fill_row(row, one);
    set_pro(kind->prefix);
}

void show_card_itself() {
    fill_card_rows();
    set_pro(card_prefix);
}

} // namespace

void cmb_field_Click() {
    int const chosen = fEditor->cmb_field.ListIndex;
    if (chosen == -1 || !session.cardFormLoaded)
        return;
    auto* const keyboard = System::current().focused();
    {
        PanelUpdate const filling;
        hide_frames(chosen);
        hide_pro();
        if (chosen == 0)
            show_card_itself();
        else
            show_field(field(chosen));
        fEditor->proPic.Visible = true;
        if (fCard->focus.has(chosen))
            fCard->focus(chosen).Visible = true;
        fEditor->focusTimer.Enabled = true;
    }
    if (chosen != 0) {
        using enum Code;
        UpdateCommandState(keep, on, off, off, field(chosen).is_title() ? on : off, keep);
    }
    if (fEditor->stsBar.Visible)
        upd_sts();
    give_keyboard_back(keyboard);
}

void cmb_field_Picked() {
    int const chosen = fEditor->cmb_field.ListIndex;
    if (chosen > 0 && session.cardFormLoaded && !card_is_held())
        reveal_field(chosen);
}

} // namespace kehystin
