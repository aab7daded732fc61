#include "commands/card_size.h"

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

void fit_card() {
    constexpr int least_right = 35;
    constexpr int least_bottom = 15;
    constexpr int room_across = 35; // pixels behind the last field, with the window's frame
    constexpr int room_down = 45;
    Integer right = least_right;
    Integer bottom = least_bottom;
    for (int i = 1; i <= card.fields; ++i) {
        right = std::max(right, field(i).right());
        bottom = std::max(bottom, field(i).bottom());
    }
    Integer const width = right + room_across;
    Integer const height = bottom + room_down;
    fEditor->cmb_field.ListIndex = 0;
    fEditor->scr_width.Value = -width;
    fEditor->scr_height.Value = -height;
    size_card_frame(fCard->Width / twips_per_pixel, fCard->Height / twips_per_pixel);
}

void cmd_card_size_Click() {
    fit_card();
}

void cmd_card_autosize_Click() {
    auto& form = *fEditor;
    form.cmd_card_autosize.Checked = !form.cmd_card_autosize.Checked;
    form.cmd_card_size.Enabled = !form.cmd_card_autosize.Checked;
    if (form.cmd_card_autosize.Checked)
        fit_card();
    if (form.cmd_card_autocenter.Checked)
        center_card();
}

void size_card_frame(double width, double height) {
    auto& frame = fCard->focus(0);
    frame.Width = width - 6 - session.frame_x;
    frame.Height = height - 7 - session.frame_x - session.menu_y;
}

} // namespace kehystin
