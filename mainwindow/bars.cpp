#include "mainwindow/bars.h"

#include "forms/editor_form.h"
#include "mainwindow/card_place.h"
#include "mainwindow/icon_bar.h"
#include "mainwindow/status_bar.h"
#include "model/settings.h"
#include "platform/system.h"

namespace kehystin {

namespace {

bool flip(Control& bar, Menu& entry) {
    bar.Visible = !bar.Visible;
    entry.Checked = bar.Visible.get();
    keep_keyboard();
    return bar.Visible;
}

} // namespace

void keep_keyboard() {
    if (System::current().focused() || System::current().active_modal())
        return;
    for (Control* const bar :
         {static_cast<Control*>(&fEditor->icoBar), static_cast<Control*>(&fEditor->cmb_field)})
        if (bar->can_take_focus())
            return bar->SetFocus();
}

void cmd_fldBar_Click() {
    flip(fEditor->fldBar, fEditor->cmd_fldBar);
    // Only this bar centres the card again; the others leave it where it stands.
    if (fEditor->cmd_card_autocenter.Checked)
        center_card();
}

void cmd_proBar_Click() {
    flip(fEditor->proBar, fEditor->cmd_proBar);
    refresh_icon(icon_links);
}

void cmd_icoBar_Click() {
    settings.showIconBar = flip(fEditor->icoBar, fEditor->cmd_icoBar) ? -1 : 0;
}

void cmd_stsBar_Click() {
    bool const shown = flip(fEditor->stsBar, fEditor->cmd_stsBar);
    settings.showStatusBar = shown ? -1 : 0;
    if (shown)
        upd_sts(); // while it was hidden nobody kept it up to date
}

void show_card_bars() {
    if (!fEditor->cmd_fldBar.Checked)
        cmd_fldBar_Click();
    if (!fEditor->cmd_proBar.Checked)
        cmd_proBar_Click();
}

} // namespace kehystin
