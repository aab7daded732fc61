#include "surface/window.h"

#include "boxes/failure_report.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "mainwindow/card_place.h"
#include "mainwindow/document_state.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/host.h"
#include "surface/adding.h"
#include "surface/field_mouse.h"
#include "surface/grid.h"
#include "surface/images.h"
#include "surface/selection.h"
#include "surface/spoken_field.h"
#include "surface/visuals.h"

namespace kehystin {

namespace {

constexpr double smallest_window = 900; // twips

/// The text fields of the surface must not keep the keyboard, and it cannot be moved from inside a
/// focus event.
void leave_keyboard_to_panel() {
    fEditor->focusTimer.Enabled = true;
}

void focusTimer_Timer() {
    fEditor->cmb_field.SetFocus();
    fCard->focusTimer.Enabled = false;
}

void take_window_size() {
    if (fCard->Width < smallest_window) {
        fCard->Width = smallest_window; // resizes again, which goes on with the rest
        return;
    }
    if (fCard->Height < smallest_window) {
        fCard->Height = smallest_window;
        return;
    }
    // Whoever types the size has the card selected already, and is not to lose the caret.
    auto& selector = fEditor->cmb_field;
    if (selector.ListCount() > 0 && !(selector.ListIndex == 0 && fCard->focus(0).Visible))
        selector.ListIndex = 0;
    // Through the panel, which knows what sizes a card can have and shows them. Its scroll bars run
    // negative, so that up means more.
    fEditor->scr_width.Value = -int{Integer(fCard->Width / twips_per_pixel)};
    fEditor->scr_height.Value = -int{Integer(fCard->Height / twips_per_pixel)};
    fCard->resizeTimer.Enabled = true;
    MarkCardChanged();
}

} // namespace

void wire_card_form() {
    auto& form = *fCard;
    form.QueryUnload = Form_QueryUnload;
    form.Resize = Form_Resize;
    form.resizeTimer.Tick = resizeTimer_Timer;
    form.focusTimer.Tick = focusTimer_Timer;
    form.MouseDown = Form_MouseDown;
    form.MouseMove = Form_MouseMove;
    form.MouseUp = Form_MouseUp;
    form.DragDrop = Form_DragDrop;
    form.Describe = describe_field;
    for (auto const& kind : kinds) {
        auto& prototype = form.visual(kind.style, 0);
        if (kind.takes_keyboard)
            prototype.GotFocus = leave_keyboard_to_panel;
        if (!kind.has_mouse)
            continue; // the surface under it takes the press
        prototype.MouseDown = field_MouseDown;
        prototype.MouseMove = field_MouseMove;
        prototype.MouseUp = field_MouseUp;
    }
    form.chk.prototype().Click = chk_Click;
    form.opt.prototype().Click = opt_Click;
    form.img.prototype().DblClick = img_DblClick;
}

void Form_Load() {
    session.cardFormLoaded = true;
}

void Form_Unload() {
    session.cardFormLoaded = false;
}

void Form_QueryUnload(bool user, bool& cancel) {
    if (!user)
        return;
    auto const answer = MsgBox(lines({" Editoitava korttimallitiedosto sulkeutuu.     ", ""}),
                               box::information + box::ok_cancel, " Sulje tiedosto...");
    if (answer != Answer::cancel)
        fEditor->closeTimer.Enabled = true;
    cancel = true;
}

void Form_Resize() {
    if (session.pro_updating || session.isSizing)
        return;
    try {
        take_window_size();
    } catch (RuntimeError const& error) {
        standard_report(" Kortin skaalaus aiheutti virheen     ", error);
    }
}

void resizeTimer_Timer() {
    if (host().left_button_down())
        return;
    fCard->resizeTimer.Enabled = false;
    if (fEditor->cmd_card_autocenter.Checked)
        center_card();
    upd_gg();
}

void chk_Click(int index) {
    restore_check(index);
}

void opt_Click(int) {
    if (session.pro_updating)
        return;
    for (int i = 1; i <= card.fields; ++i)
        if (field(i).is(Style::OPT))
            restore_option(i);
}

void img_DblClick(int index) {
    load_image(index);
    auto& picture = fCard->img(index);
    if (field(index).scaling == 1 && !picture.Picture.get().empty())
        paint_stretched(picture);
}

} // namespace kehystin
