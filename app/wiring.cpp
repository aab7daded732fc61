#include "app/wiring.h"

#include "app/end.h"
#include "app/given_files.h"
#include "cardfile/document_commands.h"
#include "cardfile/work_rescue.h"
#include "dialogs/cols.h"
#include "dialogs/help.h"
#include "dialogs/info.h"
#include "dialogs/roles.h"
#include "dialogs/settings.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "layout/align.h"
#include "layout/auto_place.h"
#include "layout/density.h"
#include "links/link_engine.h"
#include "mainwindow/bars.h"
#include "mainwindow/card_place.h"
#include "mainwindow/card_size.h"
#include "mainwindow/command_state.h"
#include "mainwindow/icon_bar.h"
#include "mainwindow/status_bar.h"
#include "mainwindow/tips.h"
#include "model/default_looks.h"
#include "model/session.h"
#include "panel/focus_memory.h"
#include "panel/panel_fit.h"
#include "panel/rows.h"
#include "platform/host.h"
#include "platform/system.h"
#include "surface/adding.h"
#include "surface/deleting.h"
#include "surface/frames.h"
#include "surface/grid.h"
#include "surface/selection.h"

namespace kehystin {

namespace {

void startFocus_Timer() {
    if (!fEditor->icoBar.Visible || !fEditor->icoBar.Enabled)
        return;
    fEditor->startFocus.Enabled = false;
    fEditor->icoBar.SetFocus();
}

/// A dialog that came up meanwhile works on the card: it is closed behind it.
void closeTimer_Timer() {
    if (System::current().active_modal())
        return;
    fEditor->closeTimer.Enabled = false;
    cmd_close_Click();
}

/// A click on the bare frame takes every selection away.
void MDIForm_Click() {
    if (!session.cardFormLoaded)
        return;
    // First of all: a pop-up that loses the keyboard lets its row show the chosen field again.
    fEditor->cmb_field.ListIndex = -1;
    hide_pop_ups(); // what they offer would act on nothing
    zip_focus();
    using enum Code;
    UpdateCommandState(keep, off, off, off, off, keep);
    if (fEditor->stsBar.Visible)
        upd_sts();
}

void MDIForm_Resize() {
    if (!session.isSizing)
        fEditor->paintTimer.Enabled = true;
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
    form.cmd_card_size.Click = cmd_card_size_Click;
    form.cmd_card_autosize.Click = cmd_card_autosize_Click;
    form.cmd_field_add.Click = cmd_field_add_Click;
    form.cmd_field_del.Click = cmd_field_del_Click;
    form.cmd_align_left.Click = cmd_align_left_Click;
    form.cmd_align_right.Click = cmd_align_right_Click;
    form.cmd_align_center.Click = cmd_align_center_Click;
    form.cmd_valign_top.Click = cmd_valign_top_Click;
    form.cmd_valign_bottom.Click = cmd_valign_bottom_Click;
    form.cmd_valign_center.Click = cmd_valign_center_Click;
    form.cmd_dense.Click = cmd_dense_Click;
    form.cmd_expand.Click = cmd_expand_Click;
    form.cmd_a_left.Click = cmd_a_left_Click;
    form.cmd_a_right.Click = cmd_a_right_Click;
    form.cmd_a_center.Click = cmd_a_center_Click;
    form.cmd_valign_link.Click = cmd_valign_link_Click;
    form.cmdAutoPlace.Click = cmdAutoPlace_Click;
    form.cmd_link_automatic.Click = cmd_link_automatic_Click;
    form.cmd_lock.Click = cmd_lock_Click;
    form.cmd_fldBar.Click = cmd_fldBar_Click;
    form.cmd_proBar.Click = cmd_proBar_Click;
    form.cmd_linkBar.Click = cmd_linkBar_Click;
    form.cmd_icoBar.Click = cmd_icoBar_Click;
    form.cmd_stsBar.Click = cmd_stsBar_Click;
    form.cmd_grid_show.Click = cmd_grid_show_Click;
    form.cmd_grid_snap.Click = cmd_grid_snap_Click;
    form.cmd_guide_show.Click = cmd_guide_show_Click;
    form.cmd_guide_snap.Click = cmd_guide_snap_Click;
    form.cmd_help_index.Click = cmd_help_index_Click;
    form.cmd_info.Click = cmd_info_Click;
    form.cmd_cols.Click = cmd_cols_Click;
    form.cmd_properties.Click = cmd_properties_Click;
    form.cmdSpecifield.Click = cmdSpecifield_Click;
}

/// A resize pointer that was left over from the card does not stay on the bar.
void fldBar_MouseMove(int, MouseArguments const&) {
    System::current().set_MousePointer(pointer::normal);
}

void wire_field_bar(EditorForm& form) {
    form.fldBar.MouseMove = fldBar_MouseMove;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        auto& button = form.*form.drag_buttons[i];
        button.MouseDown = [&button, &look = default_looks[i]](int, MouseArguments const&) {
            close_tip();
            button.DragWidth = look.width;
            button.DragHeight = look.height;
        };
        button.ByKey = [&button](int) { drop_by_key(button); };
    }
}

} // namespace

void wire_editor_form() {
    auto& form = *fEditor;
    form.Click = MDIForm_Click;
    form.Resize = MDIForm_Resize;
    form.QueryUnload = MDIForm_QueryUnload;
    form.FilesDropped = open_given_files;
    // F1 as a key opens the page of the place; the entry beside which it stands, the contents.
    form.KeyDown = help_KeyDown;
    wire_menus(form);
    form.ico.prototype().Click = ico_Click;
    form.cmd_close_pro.Click = cmd_proBar_Click;
    wire_field_bar(form);
    wire_panel();
    form.cmb_field.AddByKey = add_to_selection;
    form.startFocus.Tick = startFocus_Timer;
    form.closeTimer.Tick = closeTimer_Timer;
    form.paintTimer.Tick = paintTimer_Timer;
    form.focusTimer.Tick = focusTimer_Timer;
    form.tipTimer.Tick = tipTimer_Timer;
    form.rescueTimer.Tick = keep_work;
}

} // namespace kehystin
