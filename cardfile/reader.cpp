#include "cardfile/reader.h"

#include "boxes/failure_report.h"
#include "card/reading.h"
#include "cardfile/known_file.h"
#include "cardfile/missing_picture.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/host.h"

namespace kehystin {

namespace {

/// Asks whether to go on without a key.
bool goes_on_without(std::string const& key, std::string const& path) {
    auto const answer =
        MsgBox(lines({" Muuttuja \"" + key + "\" ei löydy tiedostosta " + path + "     ", "",
                      " Haluatko jatkaa tiedoston lataamista muilta osin?     ", ""}),
               box::warning + box::yes_no, " Muuttuja puuttuu");
    return answer == Answer::yes;
}

void report_unknown_file() {
    MsgBox(lines({" Avattavaa tiedostoa ei kyetty tunnistamaan     ", "",
                  " Valittua korttimallitiedostoa ei voi avata     ", ""}),
           box::warning, " Tuntematon tiedostomuoto   ");
}

bool accepts_repairs(std::string const& path, std::string const& rows) {
    auto const answer = MsgBox(lines({path, "", "Tiedosto sisälsi virheellisiä arvoja:     ", "",
                                      "Virheellinen arvo -> Korjattu arvo (arvoalue)", "", rows,
                                      "Haluatko avata tiedoston korjatuilla arvoilla?     ", ""}),
                               box::warning + box::yes_no, " Virheellisiä arvoja");
    return answer == Answer::yes;
}

/// The font name if the sample label takes it, otherwise the one that the label has then.
std::string accepted_font(std::string const& name) {
    auto& sample = fEditor->testFont;
    try {
        sample.FontName = name;
    } catch (RuntimeError const& error) {
        if (!error.is(ErrorNumber::invalid_property_value))
            throw;
    }
    return sample.FontName;
}

/// The file is opened anew for each search from its top, and may be gone by then.
bool reopen(InputFile& file) {
    try {
        file.reopen();
        return true;
    } catch (RuntimeError const& error) {
        MsgBox(lines({" Tiedoston avaaminen aiheutti virheen     ", "", number_and_text(error), "",
                      " Tiedoston avaaminen on keskeytetty"}),
               box::warning, " Tiedoksi");
        return false;
    }
}

bool read_file(std::string const& path) {
    if (!file_exists(path))
        return false;
    InputFile file(path);
    Surroundings const around{
        Today(),       host().metrics().TwipsPerPixelX, session.cardFolder, names_a_file,
        accepted_font, [&] { return reopen(file); }};
    auto reading = read_card(file.bytes(), open_card, around, [&](Finding const& missing) {
        return goes_on_without(missing.key, path);
    });
    if (reading.end == Reading::End::not_a_card)
        report_unknown_file();
    if (reading.end != Reading::End::read)
        return false;
    file.close();
    auto const rows = reading.report();
    if (!rows.empty() && !accepts_repairs(path, rows))
        return false;
    auto const picture = find_missing_picture(reading.missing_picture);
    if (!picture)
        return false;
    if (!reading.missing_picture.empty())
        reading.data.card.picture = *picture;
    open_card = std::move(reading.data);
    know_file(path, file.bytes());
    return true;
}

} // namespace

bool ReadCardFile(std::string const& path) {
    try {
        return with_memory_checked([&] { return read_file(path); });
    } catch (RuntimeError const& error) {
        if (error.is(ErrorNumber::cancelled))
            return false;
        MsgBox(lines({" Korttimallitiedoston " + path + " avaaminen aiheutti virheen     ", "",
                      number_and_text(error), "", " Tiedoston avaaminen on keskeytetty"}),
               box::warning, " Tiedoksi");
        return false;
    }
}

} // namespace kehystin
