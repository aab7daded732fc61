#include "cardfile/writer.h"

#include "boxes/failure_report.h"
#include "card/writing.h"
#include "cardfile/known_file.h"
#include "cardfile/work_rescue.h"
#include "disk/disk.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/files.h"
#include "platform/host.h"

#include <utility>

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
    bool opened = false;
    std::string bytes;
    auto const save = [&] {
        // A copy: what was not written keeps its commas.
        auto written = open_card;
        bytes = write_card(written);
        if (disk::is_special(session.cardFile))
            throw RuntimeError(ErrorNumber::path_file_access); // to a pipe one would write for ever
        SaveRescue rescue(session.cardFile, bytes);
        OutputFile file(session.cardFile);
        opened = true;
        file.write(bytes);
        file.close();
        if (!rescue.finish())
            throw RuntimeError(ErrorNumber::disk_io);
        know_file(session.cardFile, bytes);
        open_card = std::move(written);
    };
    try {
        with_memory_checked(save);
        tell_failure_to_keep();
        return true;
    } catch (RuntimeError const& error) {
        if (opened)
            know_what_is_left(session.cardFile, bytes);
        tell_failure_to_keep();
        report(error);
        return false;
    }
}

} // namespace kehystin
