#include "dialogs/help.h"

#include "boxes/failure_report.h"
#include "model/session.h"
#include "platform/files.h"
#include "platform/host.h"

namespace kehystin {

bool OpenHelpPage(std::string const& file, std::string const& topic) {
    return host().open_help(file, topic);
}

void ShowHelp() {
    auto const path = session.appPath + session.helpFile;
    if (!names_a_file(path)) {
        MsgBox(lines({" Ohjetiedosto " + session.helpFile + " ei löydy määritellystä     ",
                      " hakemistosta '" + session.appPath + "'.     ", ""}),
               box::information, " Ohjetta ei löydy");
        return;
    }
    if (!OpenHelpPage(path, session.helpTopic))
        MsgBox(lines({" Ohjetiedostoa " + session.helpFile + " ei voi lukea:     ",
                      " tiedosto on tyhjä tai vioittunut.     ", "",
                      " Asenna ohjelma uudelleen tai kopioi ohjetiedosto     ",
                      " uudelleen hakemistoon '" + session.appPath + "'.     ", ""}),
               box::information, " Ohjetta ei voi avata");
}

bool help_KeyDown(std::string_view keys) {
    if (keys != "F1")
        return false;
    ShowHelp();
    return true;
}

void cmd_help_index_Click() {
    session.helpTopic = "sisallys.htm";
    ShowHelp();
}

} // namespace kehystin
