#include "surface/rebuild.h"

#include "boxes/failure_report.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "mainwindow/bars.h"
#include "mainwindow/command_state.h"
#include "mainwindow/document_state.h"
#include "mainwindow/status_bar.h"
#include "model/card.h"
#include "model/session.h"
#include "panel/rows.h"
#include "platform/host.h"
#include "surface/grid.h"
#include "surface/load_card.h"

namespace kehystin {

namespace {

bool goes_on_without_picture(std::string const& path, std::string const& fault) {
    return MsgBox(lines({" Korttimallin taustakuvaa ei voi näyttää:     ", "", " " + path + "     ",
                         " (" + fault + ")     ", "",
                         " Näytetäänkö korttimalli ilman taustakuvaa?     ", ""}),
                  box::question + box::yes_no, " Korttimallin taustakuva") == Answer::yes;
}

} // namespace

bool show_card() {
    std::string fault;
    if (load_card({}, &fault))
        return true;
    auto const path = card.picture.trimmed();
    if (!fault.empty() && goes_on_without_picture(path, fault) && load_card({{}, path}))
        return true;
    show_no_card();
    return false;
}

bool rebuild() {
    // The picture that stands: its file may have gone bad, and with it the whole card.
    if (load_card({fCard->Picture.get(), fCard->picture_left_out}))
        return true;
    show_no_card();
    return false;
}

bool rebuild_in_place() {
    double const left = fCard->Left;
    double const top = fCard->Top;
    if (!rebuild())
        return false;
    upd_gg();
    fCard->Move(left, top);
    command_state_of_rebuilt_card();
    fEditor->cmb_field.ListIndex = 0;
    fEditor->focusTimer.Enabled = true;
    return true;
}

void show_no_card() {
    empty_card("");
    hide_pro();
    clear_card_changed();
    using enum Code;
    UpdateCommandState(off, off, off, off, off, off);
    fEditor->Caption = session.appTitle;
    if (fEditor->cmd_fldBar.Checked)
        cmd_fldBar_Click();
    if (fEditor->cmd_proBar.Checked)
        cmd_proBar_Click();
    upd_sts();
}

} // namespace kehystin
