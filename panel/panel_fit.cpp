#include "panel/panel_fit.h"

#include "mainwindow/card_place.h"
#include "model/session.h"
#include "panel/rows.h"
#include "platform/system.h"

namespace kehystin {

namespace {

constexpr double head_height = 840; // twips, of the panel above its rows
constexpr double scroll_width = 180;

/// The upper edge of the icon bar, drawn once for each width that it has had.
void draw_icon_bar_relief() {
    if (fEditor->relief_width == fEditor->icoBar.Width)
        return;
    fEditor->relief_width = fEditor->icoBar.Width;
    fEditor->icoBar.DrawLine(0, 0, fEditor->icoBar.Width, 0, system_colour(16));
    fEditor->icoBar.DrawLine(0, 15, fEditor->icoBar.Width, 15, system_colour(20));
}

/// Shows or hides the rows' scroll bar. Returns the width that it takes from them.
double fit_scroll_bar() {
    auto& bar = fEditor->scr_pro;
    double const missing = fEditor->proPic.Height - fEditor->proBot.Height;
    bar.Visible = missing > 0;
    if (missing <= 0) {
        bar.Value = 0; // rows that fit are not scrolled out of sight
        return 0;
    }
    bar.Top = 0;
    fit_scroll_range();
    return scroll_width;
}

void fit_rows(double taken) {
    for (auto const& row : panel_rows()) {
        bool const both = row.fit == Fit::editor_and_button;
        if (both || row.fit == Fit::editor)
            ((*fEditor).*row.editor).Width = row.width - taken;
        if (row.scroll)
            ((*fEditor).*row.scroll).Left = row_scroll_left - taken;
        if (both || row.fit == Fit::button)
            ((*fEditor).*row.button).Left = row_button_left - taken;
    }
}

/// True for the pop-up lists, the list editor and what stands in it.
bool is_pop_up(Control const* control) {
    if (!control)
        return false;
    auto const& form = *fEditor;
    bool const stands_over_rows =
        control->container() == &form.proBot && control != &form.proPic && control != &form.scr_pro;
    return stands_over_rows || control->container() == &form.bot_list;
}

} // namespace

void paintTimer_Timer() {
    auto& form = *fEditor;
    // The card must not move under a hand that is about to drag a field on it.
    if (form.WindowState == static_cast<int>(WindowState::minimized) || card_is_held())
        return;
    if (session.centring_due)
        center_card();
    draw_icon_bar_relief();
    if (form.proBar.Height <= head_height)
        return;
    form.proBot.Height = form.proBar.Height - head_height;
    form.scr_pro.Height = form.proBot.Height - 60;
    fit_rows(fit_scroll_bar());
    if (form.cmd_card_autocenter.Checked)
        center_around_selection();
    form.paintTimer.Enabled = false;
}

void scr_pro_Change() {
    // Pop-ups would stay behind where their row stood. One that has the keyboard gives it to the
    // bar: its row would scroll back into sight.
    if (is_pop_up(System::current().focused()))
        fEditor->scr_pro.SetFocus();
    hide_pop_ups();
    fEditor->proPic.Top = -fEditor->scr_pro.Value;
}

} // namespace kehystin
