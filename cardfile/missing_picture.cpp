#include "cardfile/missing_picture.h"

#include "boxes/failure_report.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/files.h"
#include "platform/host.h"

namespace kehystin {

namespace {

constexpr std::string_view title = " Korttimallin taustakuva puuttuu";
constexpr int flags = box::information + box::yes_no;

bool wants_to_search(std::string const& missing) {
    return MsgBox(lines({" Valittuun korttimalliin määritelty taustakuva ei löydy    ", "",
                         missing + "     ", "",
                         "Haluatko etsiä tiedostoa toisesta hakemistosta?     ", ""}),
                  flags, title) == Answer::yes;
}

/// Whatever the answer, the reference is not kept: the question is for the user's information.
void offer_to_drop() {
    MsgBox(lines({" Poistamalla taustakuvan viitteen tästä tiedostosta     ",
                  " et saa jatkossa enää samaa virheilmoitusta.", "",
                  " Haluatko poistaa taustakuvan viitteen?    ", ""}),
           flags, title);
}

} // namespace

std::optional<std::string> find_missing_picture(std::string missing) {
    while (!missing.empty()) {
        if (!wants_to_search(missing)) {
            offer_to_drop();
            return "";
        }
        // A cancelled dialog raises, and so gives up the whole opening.
        auto const chosen =
            host().ShowOpen({"*.*", "Kaikki tiedostot (*.*)|*.*", 0, 6148, session.cardFolder});
        if (chosen.empty())
            return std::nullopt;
        // As the record will hold it.
        auto const path = decltype(Card::picture)(Trim(chosen)).trimmed();
        if (names_a_file(path))
            return path;
        missing = path;
    }
    return "";
}

} // namespace kehystin
