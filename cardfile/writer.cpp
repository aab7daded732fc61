#include "cardfile/writer.h"

#include "boxes/failure_report.h"
#include "card/writing.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/files.h"
#include "platform/host.h"

namespace kehystin {

namespace {

void report(RuntimeError const& error) {
    if (error.is(ErrorNumber::path_file_access)) {
        MsgBox(lines({" Ohjelma ei pysty kirjoittamaan tietoja tiedostoon     ", "",
                      " " + session.cardFile + "     ", "",
                      " Tarkista aseman ja tiedoston kirjoitusoikeudet,     ",
                      " tai tallenna muokattu tiedosto uudella nimellä     ",
                      " (Tiedosto > Tallenna nimellä).     ", ""}),
               box::warning, " Tiedoksi");
        return;
    }
    MsgBox(lines({" Tiedoston tallentaminen aiheutti virheen    ", "",
                  number_and_text(error) + "     ", "", support_lines()}),
           box::warning, " Tiedoksi");
}

} // namespace

bool SaveCardFile() {
    auto const before = open_card;
    try {
        auto const bytes = write_card(open_card);
        OutputFile file(session.cardFile);
        file.write(bytes);
        file.close();
        return true;
    } catch (RuntimeError const& error) {
        // What was not written keeps its commas.
        open_card = before;
        report(error);
        return false;
    }
}

} // namespace kehystin
