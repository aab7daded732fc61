#include "cardfile/reader.h"

#include "cardfile/card_repair.h"
#include "cardfile/missing_picture.h"
#include "commands/failure_report.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/host.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kehystin {

namespace {

/// Values of keys that came later than the first files. The first row whose word stands in the
/// missing key gives its value.
std::optional<std::string> default_of_missing(std::string_view key) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 17> defaults = {{
        {"align", "0"},
        {"scaling", "1"},
        {"border", "1"},
        {"STPP", ""},
        {"card.fld", "0"},
        {"dateStyle", "1"},
        {"asiakasStyle", "1"},
        {"asiakasMin", "1"},
        {"asiakasMax", "1000"},
        {"asiakasStep", "1"},
        {"asiakasNum", "4"},
        {"asiakasZero", "-1"},
        {"autoZip", "-1"},
        {"editDate", ""},
        {"linkitys", "0"},
        {"linkki", "0"},
        {"ID", ""},
    }};
    for (auto const& [word, value] : defaults) {
        if (!contains(key, word))
            continue;
        if (word == "STPP")
            return Format(host().metrics().TwipsPerPixelX);
        if (word == "editDate")
            return short_date(Today());
        return std::string(value);
    }
    return std::nullopt;
}

/// Asks whether to go on without a key.
bool goes_on_without(std::string const& key, std::string const& path) {
    auto const answer =
        MsgBox(lines({" Muuttuja \"" + key + "\" ei löydy tiedostosta " + path + "     ", "",
                      " Haluatko jatkaa tiedoston lataamista muilta osin?     ", ""}),
               box::warning + box::yes_no, " Muuttuja puuttuu");
    return answer == Answer::yes;
}

/// What of a value is looked at. No member holds more than a tenth of it, and a row of the report
/// shows no more.
constexpr std::size_t longest_value = 4096;

std::string value_of(std::string_view item) {
    auto const equals = item.find('=');
    std::string value(equals == std::string_view::npos ? ""
                                                       : item.substr(equals + 1, longest_value));
    std::replace(value.begin(), value.end(), comma_stand_in, ',');
    return value;
}

/// The item that holds the key, from the present position on or else from the top: once around.
std::optional<std::string_view> once_around(std::string_view key, CardFileSource& source) {
    if (auto const item = source.search(key))
        return item;
    source.rewind();
    return source.search(key);
}

bool contains_ignoring_case(std::string_view text, std::string_view upper_word) {
    auto const upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; };
    return std::search(text.begin(), text.end(), upper_word.begin(), upper_word.end(),
                       [&](char a, char b) { return upper(a) == b; }) != text.end();
}

/// Reads on to the banner. False when the file ends before it.
bool recognise(InputFile& file) {
    while (!file.at_end()) {
        auto const item = file.next_item();
        if (contains_ignoring_case(item, "NORVAK") && contains_ignoring_case(item, "CARDFILE"))
            return true;
    }
    return false;
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

bool read_members(CardFileSource& source, CardRepair& repair) {
    for (auto const& member : card_members())
        for (int i = member.first; i <= member.last; ++i) {
            auto text = card_key(member, i);
            if (!ReadCardKey(text, source))
                return false;
            repair.store(member, i, text);
        }
    fields.assign(static_cast<std::size_t>(int{card.fields}) + 1, Field{});
    for (int i = 1; i <= card.fields; ++i)
        for (auto const& member : field_members()) {
            auto text = field_key(member, i);
            if (!ReadCardKey(text, source))
                return false;
            repair.store(member, i, text);
        }
    return true;
}

bool read_file(std::string const& path) {
    if (!file_exists(path))
        return false;
    CardFileSource source(path);
    if (!recognise(source.file())) {
        report_unknown_file();
        return false;
    }
    CardRepair repair;
    if (!read_members(source, repair))
        return false;
    source.file().close();
    if (!repair.report().empty() && !accepts_repairs(path, repair.report()))
        return false;
    return find_missing_picture(repair.missing_picture());
}

} // namespace

std::optional<std::string_view> CardFileSource::search(std::string_view key) {
    // In a file in the writer's order the key stands in the next item, or behind a section's line;
    // the first one behind the rest of the banner.
    constexpr int near = 16;
    for (int i = 0; i < near && !index_ && !file_.at_end(); ++i)
        if (auto const item = file_.next_item(); contains(item, key))
            return item;
    if (!index_)
        index_.emplace(file_);
    auto const place = index_->find(key, file_.position());
    if (place == KeyIndex::npos) {
        file_.seek(file_.bytes().size());
        return std::nullopt;
    }
    // One item may hold many keys, and be as long as the file: its end is looked for once.
    if (place != found_at_) {
        file_.seek(place);
        found_at_ = place;
        found_ = file_.next_item();
        behind_found_ = file_.position();
    }
    file_.seek(behind_found_);
    return found_;
}

void CardFileSource::rewind() {
    file_.reopen();
}

bool ReadCardKey(std::string& key, CardFileSource& source) {
    try {
        if (auto const item = once_around(key, source)) {
            key = value_of(*item);
            return true;
        }
        if (auto const value = default_of_missing(key)) {
            key = *value;
            return true;
        }
        if (!goes_on_without(key, source.path()))
            return false;
        key.clear();
        return true;
    } catch (RuntimeError const& error) {
        MsgBox(lines({" Tiedoston avaaminen aiheutti virheen     ", "", number_and_text(error), "",
                      " Tiedoston avaaminen on keskeytetty"}),
               box::warning, " Tiedoksi");
        return false;
    }
}

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
