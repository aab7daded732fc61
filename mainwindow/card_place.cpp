#include "mainwindow/card_place.h"

#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/host.h"
#include "platform/system.h"

#include <algorithm>

namespace kehystin {

namespace {

/// A field's place in the area of the card's window, on one axis, in pixels.
struct Stretch {
    double from;
    double to;

    bool meets(double end) const { return to > 0 && from < end; }
    /// How far it has to move to lie between 0 and `end`.
    double way_into(double end) const {
        double const back = to > end ? end - to : 0;
        return from + back < 0 ? -from : back;
    }
};

struct Sight {
    Stretch across;
    Stretch down;
    double width;
    double height;
};

Sight sight_of(int number) {
    auto const& one = field(number);
    double const left = fCard->Left / twips_per_pixel + session.frame_x + one.left;
    double const top = fCard->Top / twips_per_pixel + session.frame_x + session.caption_y + one.top;
    auto const area = fEditor->free_size();
    // A card that does not fit has scroll bars beside it.
    double const bar = session.scroll_bar_x / twips_per_pixel;
    constexpr double frame = 1; // around the field
    return {{left - frame, left + one.width + frame},
            {top - frame, top + one.height + frame},
            area.width / twips_per_pixel - bar,
            area.height / twips_per_pixel - bar};
}

} // namespace

bool card_is_held() {
    auto const* const captured = System::current().mouse().captured;
    bool const pressed = captured && fCard && &captured->form() == fCard.get();
    return pressed || host().left_button_down();
}

void reveal_field(int number) {
    auto const sight = sight_of(number);
    double const across = sight.across.way_into(sight.width) * twips_per_pixel;
    double const down = sight.down.way_into(sight.height) * twips_per_pixel;
    if (across != 0 || down != 0)
        fCard->Move(fCard->Left + across, fCard->Top + down);
}

void center_around_selection() {
    auto const selected = selected_fields();
    int const number = selected.size() == 1 ? selected.front() : 0;
    auto const in_sight = [](Sight const& sight) {
        return sight.across.meets(sight.width) && sight.down.meets(sight.height);
    };
    bool const keep = number != 0 && in_sight(sight_of(number));
    center_card();
    if (keep)
        reveal_field(number);
}

void center_card() {
    if (!session.cardFormLoaded)
        return;
    if (!card_is_held()) {
        center_new_card();
        return;
    }
    session.centring_due = true;
    fEditor->paintTimer.Enabled = true;
}

void center_new_card() {
    session.centring_due = false;
    Integer across = 0;
    for (auto const* const bar : {&fEditor->fldBar, &fEditor->proBar})
        if (bar->Visible)
            across += Integer(bar->Width.get());
    Integer down = 0;
    if (fEditor->stsBar.Visible)
        down += Integer(fEditor->stsBar.Height.get());
    if (fEditor->icoBar.Visible)
        down += Integer(fEditor->icoBar.Height.get());
    // 90, 900 and 60 twips stand for frame, caption and menu of the main window.
    fCard->Move((fEditor->Width - across) / 2 - fCard->Width / 2 - 90,
                (fEditor->Height - 900 - down) / 2 - fCard->Height / 2 - 60);
}

void cmd_card_center_Click() {
    center_card();
}

void cmd_card_autocenter_Click() {
    fEditor->cmd_card_autocenter.Checked = !fEditor->cmd_card_autocenter.Checked;
    if (fEditor->cmd_card_autocenter.Checked)
        center_card();
}

} // namespace kehystin
