#include "mainwindow/document_state.h"

#include "mainwindow/icon_bar.h"
#include "mainwindow/status_bar.h"
#include "model/card.h"
#include "model/session.h"

namespace kehystin {

namespace {

void set_modified(bool modified) {
    fEditor->cmdTallenna.Enabled = modified;
    session.cardModified = modified;
    refresh_icon(icon_save);
}

} // namespace

void MarkCardChanged() {
    set_modified(true);
    if (fEditor->stsBar.Visible)
        upd_sts();
}

void clear_card_changed() {
    set_modified(false);
    kept_card = open_card;
}

std::string open_card_folder() {
    return session.cardFormLoaded ? session.open_folder : std::string();
}

} // namespace kehystin
