#include "cardfile/known_file.h"

#include "boxes/failure_report.h"
#include "cardfile/work_rescue.h"
#include "disk/disk.h"
#include "platform/host.h"
#include "rescue/rescue.h"

#include <optional>
#include <utility>

namespace kehystin {

namespace {

struct KnownFile {
    std::string path;
    std::uint64_t sum = 0;
    bool agreed = false; ///< that another session has it open too
};

KnownFile known;
/// What the user has agreed to replace.
struct Replaceable {
    std::string path;
    std::optional<std::string> bytes;
};
Replaceable replaceable;

bool holds_what_is_known(std::string const& path, std::string_view bytes) {
    return path == known.path && rescue::checksum(bytes) == known.sum;
}

bool ask(std::string const& path, std::string_view why) {
    return platform::MsgBox(lines({why, "", " " + path + "     ", "",
                                   " Tallennetaanko kortti sen päälle?     ", ""}),
                            platform::box::warning + platform::box::yes_no,
                            " Tiedosto on muuttunut") == platform::Answer::yes;
}

} // namespace

void know_file(std::string const& path, std::string_view bytes) {
    know_sum(path, rescue::checksum(bytes));
}

void know_sum(std::string const& path, std::uint64_t sum) {
    bool const agreed = path == known.path && known.agreed;
    known = {path, sum, agreed};
}

std::uint64_t known_sum(std::string const& path) {
    return path == known.path ? known.sum : 0;
}

void know_what_is_left(std::string const& path, std::string_view bytes) {
    auto const held = disk::bytes_on_disk(path);
    if (held && bytes.starts_with(*held))
        know_file(path, *held);
}

void may_replace(std::string const& path) {
    replaceable = {path, disk::bytes_on_disk(path)};
}

void forget_agreement() {
    replaceable = {};
}

void forget_known_file() {
    known = {};
    replaceable = {};
}

namespace {

/// Asks as far as the file, with these bytes, needs it.
bool agrees(std::string const& path, std::optional<std::string> const& held) {
    if (!held)
        return !disk::is_there(path) ||
               ask(path, " Tiedostoa ei voida lukea, joten ei tiedetä, mitä siinä on:     ");
    // Of the card's own file nothing is left to lose where it is empty.
    bool const is_emptied = held->empty() && path == known.path;
    if (!is_emptied && !holds_what_is_known(path, *held))
        return ask(path, path == known.path
                             ? " Toinen ohjelma on muuttanut tiedostoa sen avaamisen jälkeen:     "
                             : " Tiedostossa on toinen kortti kuin se, joka avattiin:     ");
    if (!known.agreed && is_open_in_another_session(path))
        known.agreed = ask(path, " Tiedosto on auki myös toisessa Kehystimessä:     ");
    else
        return true;
    return known.agreed;
}

} // namespace

bool may_save_over(std::string const& path) {
    auto const agreed = std::exchange(replaceable, {});
    if (disk::is_special(path))
        return true; // refused when it is opened
    auto held = disk::bytes_on_disk(path);
    if (agreed.path == path && agreed.bytes == held)
        return true;
    // A box may stand for hours.
    while (agrees(path, held)) {
        auto now = disk::bytes_on_disk(path);
        if (now == held)
            return true;
        held = std::move(now);
    }
    return false;
}

} // namespace kehystin
