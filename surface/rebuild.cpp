#include "surface/rebuild.h"

#include "commands/bars.h"
#include "commands/command_state.h"
#include "commands/document_state.h"
#include "commands/status_bar.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"
#include "panel/rows.h"
#include "surface/grid.h"
#include "surface/load_card.h"

namespace kehystin {

bool show_card() {
    if (load_card())
        return true;
    show_no_card();
    return false;
}

bool rebuild() {
    // The picture that stands: its file may have gone bad, and with it the whole card.
    auto const picture = fCard->Picture.get();
    if (load_card(picture))
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
