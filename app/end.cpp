#include "app/end.h"

#include "app/settings_file.h"
#include "cardfile/document_commands.h"
#include "commands/failure_report.h"
#include "forms/editor_form.h"
#include "model/session.h"
#include "platform/host.h"

namespace kehystin {

void cmd_lopeta_Click() {
    int step = 1;
    try {
        if (session.cardModified &&
            MsgBox(" Tallennetaanko nykyinen korttimalli ennen lopettamista?     ",
                   box::question + box::yes_no, " Korttimalli tallentamatta") == Answer::yes)
            cmdTallenna_Click();
        step = 2;
        settings.windowLeft = to_single(fEditor->Left);
        settings.windowTop = to_single(fEditor->Top);
        settings.windowWidth = to_single(fEditor->Width);
        settings.windowHeight = to_single(fEditor->Height);
        step = 3;
        WriteSettings();
        step = 4;
        host().End();
    } catch (RuntimeError const& error) {
        standard_report(" Kehystimestä poistuminen aiheutti virheen     ", error,
                        " [P: " + std::to_string(step) + "]    ");
    }
}

void MDIForm_QueryUnload(bool user, bool& cancel) {
    if (!user)
        return;
    cancel = true;
    cmd_lopeta_Click();
}

} // namespace kehystin
