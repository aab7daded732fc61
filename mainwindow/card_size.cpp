#include "mainwindow/card_size.h"

#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "mainwindow/card_place.h"
#include "model/card.h"
#include "model/session.h"

#include <algorithm>

namespace kehystin {

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
    // As if the user had turned them: the rows take the size or refuse it, and apply it to the
    // card.
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
