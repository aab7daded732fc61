#include "cardfile/rescue_offer.h"

#include "card/writing.h"
#include "cardfile/document_commands.h"
#include "cardfile/known_file.h"
#include "cardfile/rescue_keeper.h"
#include "cardfile/work_rescue.h"
#include "disk/disk.h"
#include "model/card.h"
#include "model/session.h"
#include "panel/panel_fit.h"
#include "platform/host.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

namespace kehystin {

namespace {

using rescue::Rescue;
using rescue::What;

/// What stands between this session and the unsaved card of an earlier one.
struct Offer {
    rescue::Found found;
    std::vector<std::string> unknown;
};

std::optional<Offer> choose_offer() {
    rescue::remove_remains(keeper->store);
    auto found = rescue::look_for_rescues(keeper->store);
    for (auto const& name : found.needless)
        keeper->store.remove(name);
    if (found.rescues.empty() && found.unknown.empty())
        return std::nullopt;
    if (found.rescues.empty())
        return Offer{{}, std::move(found.unknown)};
    // Of the file that the session began with the card comes first, and what the file held before a
    // save only when there is nothing newer. Who declines it again and again sees the others too.
    auto const often = rescue::times_declined(found.rescues.front().name) + 1;
    auto const rank = [&](rescue::Found const& one) {
        bool const own = rescue::times_declined(one.name) <= often && !session.cardFile.empty() &&
                         disk::one_name_of(one.rescue.file) == disk::one_name_of(session.cardFile);
        return !own ? 2 : one.rescue.kind == What::before ? 1 : 0;
    };
    auto& chosen =
        *std::min_element(found.rescues.begin(), found.rescues.end(),
                          [&](auto const& a, auto const& b) { return rank(a) < rank(b); });
    return Offer{std::move(chosen), std::move(found.unknown)};
}

std::string unknown_lines(Offer const& offer) {
    if (offer.unknown.empty())
        return {};
    return lines({" Kansiossa on myös tiedostoja, joita ohjelma ei tunnista tai jotka     ",
                  " ovat vahingoittuneet. Niihin ei kosketa, ensimmäinen niistä on     ",
                  " " + offer.unknown.front() + "     ", "", ""});
}

std::string what_was_found(Rescue const& rescue) {
    switch (rescue.kind) {
    case What::work:
        return " Edellinen istunto päättyi ennen kuin kortti tallennettiin:     ";
    case What::before:
        return " Kortin tallentaminen jäi kesken, tallessa on tiedosto ennen sitä:     ";
    case What::after:
        return " Kortin tallentaminen jäi kesken, tallessa on tallennettava kortti:     ";
    }
    return {};
}

/// What this session knows of the file whose card it has taken over: what it finds there is its own
/// work only where the session before has left it so.
void know_file_of(Rescue const& one, std::vector<rescue::Found> const& sides) {
    if (one.kind == What::work) {
        if (one.file_sum != 0)
            know_sum(one.file, one.file_sum);
        return;
    }
    auto const held = disk::bytes_on_disk(one.file);
    if (held && one.file_sum != 0 && rescue::checksum(*held) == one.file_sum)
        return know_sum(one.file, one.file_sum);
    bool const is_own = held && std::any_of(sides.begin(), sides.end(), [&](auto const& side) {
                            return side.rescue.kind == What::after
                                       ? side.rescue.bytes.starts_with(*held)
                                       : side.rescue.bytes == *held;
                        });
    know_sum(one.file, rescue::checksum(is_own ? *held : one.bytes));
}

std::vector<std::string_view> lines_of(std::string_view bytes) {
    std::vector<std::string_view> all;
    while (!bytes.empty()) {
        auto const end = std::min(bytes.find('\n'), bytes.size() - 1);
        all.push_back(bytes.substr(0, end));
        bytes.remove_prefix(end + 1);
    }
    std::sort(all.begin(), all.end());
    return all;
}

/// Whether reading a card file has lost something that a user has made: a field, or a text. Numbers
/// that the reader puts into their ranges are no loss, nor is a text that nobody has ever set.
bool loses_something(std::string_view kept, std::string_view taken) {
    using namespace std::string_view_literals;
    auto const is_number = [](std::string_view line) {
        auto const value = line.substr(std::min(line.find('='), line.size()));
        // A comma is in texts alone, and they are cut there.
        return value.find_first_not_of("=-0123456789. \0\r"sv) == std::string_view::npos;
    };
    auto const before = lines_of(kept);
    auto const now = lines_of(taken);
    std::vector<std::string_view> lost;
    std::set_difference(before.begin(), before.end(), now.begin(), now.end(),
                        std::back_inserter(lost));
    return before.size() != now.size() || !std::all_of(lost.begin(), lost.end(), is_number);
}

/// A card that was not taken in whole: as one of its own, no later step has all of it.
Rescue apart(Rescue one) {
    one.kind = What::work;
    return one;
}

/// This session keeps what an earlier one has kept: the card that was opened as its own work, and
/// what else there is of it until the card is saved.
void take_over(std::vector<rescue::Found> const& found, rescue::Found const& opened,
               std::string_view taken) {
    bool const is_whole = opened.rescue.kind == What::before || // as its file would have been read
                          !loses_something(opened.rescue.bytes, taken);
    bool const is_needless = is_whole && opened.rescue.kind == What::work;
    bool kept = false;
    with_folder([&] {
        for (auto const& one : found)
            if (!is_needless || one.name != opened.name)
                put_beside(one.name == opened.name && !is_whole ? apart(one.rescue) : one.rescue);
        kept = true;
    });
    keep_work_now(); // the disk has it from this session before it goes
    bool const is_taken = kept && keeper->keeps_work && !*keeper->failed;
    for (auto const& one : found) {
        if (is_taken)
            keeper->store.remove(one.name);
        else
            count_beside(one.name, one.rescue);
    }
    tell_failure_to_keep();
    if (!is_whole)
        MsgBox(lines({" Kaikkea pelastetusta kortista ei voitu ottaa mukaan.     ", "",
                      " Se säilyy kansiossa " + keeper->store.folder() + "     ",
                      " kunnes kortti tallennetaan.     ", ""}),
               box::information, " Pelastettu kortti");
}

/// What the session of a rescue has left of that card: the rescue itself, and the sides of saves
/// into its file.
std::vector<rescue::Found> all_of(rescue::Found const& chosen) {
    auto found = rescue::look_for_rescues(keeper->store).rescues;
    std::erase_if(found, [&](rescue::Found const& one) {
        return one.name != chosen.name &&
               (rescue::session_of(one.name) != rescue::session_of(chosen.name) ||
                one.rescue.file != chosen.rescue.file || one.rescue.kind == What::work);
    });
    std::reverse(found.begin(), found.end()); // the oldest first
    return found;
}

void open_offered(rescue::Found const& chosen) {
    auto const& one = chosen.rescue;
    auto const found = all_of(chosen);
    if (std::none_of(found.begin(), found.end(),
                     [&](rescue::Found const& other) { return other.name == chosen.name; })) {
        MsgBox(lines({" Toinen Kehystin on jo avannut pelastetun kortin.     ", ""}),
               box::information, " Pelastettu kortti");
        return;
    }
    auto opened = open_kept_card(keeper->store.folder() + chosen.name, one.file, one.new_id);
    if (!opened) {
        keeper->store.rename(chosen.name, rescue::name_of_declined(chosen.name));
        return;
    }
    know_file_of(one, found);
    // Of an old card what is newer stays what it is.
    take_over(one.kind == What::before ? std::vector{chosen} : found, chosen, write_card(*opened));
}

void offer_one(Offer const& offer) {
    auto const& [name, one] = offer.found;
    auto const& folder = keeper->store.folder();
    if (name.empty()) {
        MsgBox(lines({" Pelastettujen korttien kansiossa     ", " " + folder + "     ", ""}) +
                   unknown_lines(offer),
               box::information, " Pelastettu kortti");
        return;
    }
    auto const file = one.file.empty() ? std::string("tallentamaton uusi kortti") : one.file;
    auto const question = lines({what_was_found(one), "", " " + file + "     ",
                                 " " + rescue::time_text(one.time) + "     ", "",
                                 " Se on tallessa kansiossa " + folder + "     ", "", ""}) +
                          unknown_lines(offer) + lines({" Avataanko pelastettu kortti?     "});
    if (MsgBox(question, box::question + box::yes_no, " Pelastettu kortti") == Answer::yes) {
        open_offered(offer.found);
        return;
    }
    if (MsgBox(lines({" Poistetaanko pelastettu kortti pysyvästi?     ", "",
                      " Muuten se on edelleen tallessa ja sitä tarjotaan uudelleen.     "}),
               box::question + box::yes_no + box::second_default,
               " Pelastettu kortti") == Answer::yes)
        keeper->store.remove(name);
    else
        keeper->store.rename(name, rescue::name_of_declined(name));
}

} // namespace

void offer_rescue() {
    if (!keeper || !keeper->store.keeps())
        return;
    if (auto const offer = choose_offer()) {
        paintTimer_Timer(); // no timer runs while a box stands, and the panel has no rows yet
        offer_one(*offer);
    }
}

} // namespace kehystin
