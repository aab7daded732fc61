#include "app/wiring.h"

#include "app/end.h"
#include "cardfile/document_commands.h"
#include "commands/bars.h"
#include "commands/card_size.h"
#include "commands/command_state.h"
#include "commands/icon_bar.h"
#include "commands/status_bar.h"
#include "commands/tips.h"
#include "dialogs/help.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "links/link_engine.h"
#include "model/card.h"
#include "model/session.h"
#include "panel/card_rows.h"
#include "panel/focus_memory.h"
#include "panel/panel_fit.h"
#include "panel/selector.h"
#include "surface/frames.h"
#include "surface/grid.h"

namespace kehystin {

namespace {

void startFocus_Timer() {
    if (!fEditor->icoBar.Visible || !fEditor->icoBar.Enabled)
        return;
    fEditor->startFocus.Enabled = false;
    fEditor->icoBar.SetFocus();
}

void closeTimer_Timer() {
    fEditor->closeTimer.Enabled = false;
    cmd_close_Click();
}

/// A click on the bare frame takes every selection away.
void MDIForm_Click() {
    if (!session.cardFormLoaded)
        return;
    for (int i = 0; i <= card.fields; ++i)
        if (fCard->focus.has(i)) // a surface that could not be built to its end lacks some
            fCard->focus(i).Visible = false;
    fEditor->cmb_field.ListIndex = -1;
    using enum Code;
    UpdateCommandState(keep, off, off, off, off, keep);
    if (fEditor->stsBar.Visible)
        upd_sts();
}

void MDIForm_Resize() {
    if (!session.isSizing)
        fEditor->paintTimer.Enabled = true;
}

/// F1 as a key opens the page of the place; the menu entry beside which it stands, the contents.
bool MDIForm_KeyDown(std::string_view keys) {
    if (keys != "F1")
        return false;
    ShowHelp();
    return true;
}

void wire_menus(EditorForm& form) {
    form.cmd_new.Click = cmd_new_Click;
    form.cmd_open.Click = cmd_open_Click;
    form.cmd_close.Click = cmd_close_Click;
    form.cmdTallenna.Click = cmdTallenna_Click;
    form.cmdTallennaNimella.Click = cmdTallennaNimella_Click;
    form.lastFile.prototype().Click = lastFile_Click;
    form.cmd_lopeta.Click = cmd_lopeta_Click;
    form.cmd_card_center.Click = cmd_card_center_Click;
    form.cmd_card_autocenter.Click = cmd_card_autocenter_Click;
    form.cmd_link_automatic.Click = cmd_link_automatic_Click;
    form.cmd_lock.Click = cmd_lock_Click;
    form.cmd_fldBar.Click = cmd_fldBar_Click;
    form.cmd_proBar.Click = cmd_proBar_Click;
    form.cmd_linkBar.Click = cmd_linkBar_Click;
    form.cmd_icoBar.Click = cmd_icoBar_Click;
    form.cmd_stsBar.Click = cmd_stsBar_Click;
    form.cmd_grid_show.Click = cmd_grid_show_Click;
    form.cmd_guide_show.Click = cmd_guide_show_Click;
    form.cmd_help_index.Click = cmd_help_index_Click;
}

} // namespace

void wire_editor_form() {
    auto& form = *fEditor;
    form.Click = MDIForm_Click;
    form.Resize = MDIForm_Resize;
    form.QueryUnload = MDIForm_QueryUnload;
    form.KeyDown = MDIForm_KeyDown;
    wire_menus(form);
    form.ico.prototype().Click = ico_Click;
    form.cmd_close_pro.Click = cmd_proBar_Click;
    form.cmb_field.Click = cmb_field_Click;
    form.scr_pro.Change = scr_pro_Change;
    form.txt_name.Change = txt_name_Change;
    form.startFocus.Tick = startFocus_Timer;
    form.closeTimer.Tick = closeTimer_Timer;
    form.paintTimer.Tick = paintTimer_Timer;
    form.focusTimer.Tick = focusTimer_Timer;
    form.tipTimer.Tick = tipTimer_Timer;
}

} // namespace kehystin
