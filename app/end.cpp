#include "app/end.h"

#include "app/settings_file.h"
#include "boxes/failure_report.h"
#include "cardfile/document_commands.h"
#include "cardfile/work_rescue.h"
#include "forms/editor_form.h"
#include "model/session.h"
#include "platform/host.h"

namespace kehystin {

namespace {

/// Of a maximised window the place that it goes back to.
void note_window_place() {
    auto const place = host().normal_bounds(*fEditor);
    settings.windowLeft = to_single(place.left);
    settings.windowTop = to_single(place.top);
    settings.windowWidth = to_single(place.width);
    settings.windowHeight = to_single(place.height);
}

/// The exit goes on whatever becomes of the saving. True for a card that was to be saved and was
/// not: it is offered at the next start.
bool save_or_leave() {
    bool const wanted =
        session.cardModified &&
        MsgBox(" Tallennetaanko nykyinen korttimalli ennen lopettamista?     ",
               box::question + box::yes_no, " Korttimalli tallentamatta") == Answer::yes;
    if (wanted)
        cmdTallenna_Click();
    bool const leaves = wanted && session.cardModified;
    if (leaves)
        leave_work();
    return leaves;
}

bool ends_without_settings() {
    return MsgBox(lines({" Asetuksia ei voitu tallentaa.     ", "",
                         " Lopetetaanko ohjelma tallentamatta asetuksia?     "}),
                  box::question + box::yes_no, " Asetukset tallentamatta") == Answer::yes;
}

} // namespace

void cmd_lopeta_Click() {
    int step = 1;
    bool leaves = false;
    try {
        leaves = save_or_leave();
        step = 2;
        note_window_place();
        step = 3;
        WriteSettings();
    } catch (RuntimeError const& error) {
        standard_report(" Kehystimestä poistuminen aiheutti virheen     ", error,
                        " [P: " + std::to_string(step) + "]    ");
        if (step == 1 || !ends_without_settings())
            return;
    }
    if (!leaves)
        drop_work();
    host().End();
}

void MDIForm_QueryUnload(bool user, bool& cancel) {
    if (!user)
        return;
    cancel = true;
    cmd_lopeta_Click();
}

} // namespace kehystin
