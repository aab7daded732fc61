#include "properties/apply.h"

#include "forms/editor_form.h"
#include "links/link_engine.h"
#include "mainwindow/document_state.h"
#include "model/session.h"
#include "panel/rows.h"
#include "panel/selector.h"
#include "platform/system.h"

namespace kehystin {

void finish_change(Links links) {
    if (links == Links::renew)
        update_links();
    MarkCardChanged();
}

bool edits_card() {
    return session.cardFormLoaded && fEditor->cmb_field.ListIndex == 0;
}

bool keyboard_stays_in(Row row) {
    return belongs_to_row(System::current().focused(), row);
}

void reload_rows() {
    bool const waiting = fEditor->focusTimer.Enabled;
    cmb_field_Click();
    // The user has taken the keyboard somewhere: it is not to be fetched back to the row just left.
    if (System::current().focused())
        fEditor->focusTimer.Enabled = waiting;
}

} // namespace kehystin
