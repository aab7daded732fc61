#include "dialogs/help.h"

#include "commands/failure_report.h"
#include "model/session.h"
#include "platform/files.h"
#include "platform/host.h"

namespace kehystin {

void ShowHelp() {
    auto const path = session.appPath + session.helpFile;
    if (names_a_file(path)) {
        host().open_help(path, session.helpTopic);
        return;
    }
    MsgBox(lines({" Ohjetiedosto " + session.helpFile + " ei löydy määritellystä     ",
                  " hakemistosta '" + session.appPath + "'.     ", ""}),
           box::information, " Ohjetta ei löydy");
}

void cmd_help_index_Click() {
    session.helpTopic = "sisallys.htm";
    ShowHelp();
}

} // namespace kehystin
