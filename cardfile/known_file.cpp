#include "cardfile/known_file.h"

#include "boxes/failure_report.h"
#include "cardfile/work_rescue.h"
#include "platform/host.h"
#include "rescue/disk.h"
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
std::string replaceable;

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

void know_what_is_left(std::string const& path) {
    if (auto const bytes = rescue::bytes_on_disk(path))
        know_file(path, *bytes);
}

void may_replace(std::string const& path) {
    replaceable = path;
}

void forget_known_file() {
    known = {};
    replaceable.clear();
}

bool may_save_over(std::string const& path) {
    auto const agreed = std::exchange(replaceable, {});
    if (agreed == path)
        return true;
    auto const held = rescue::bytes_on_disk(path);
    if (!held)
        return !rescue::is_there(path) || rescue::is_special(path) || // refused when it is opened
               ask(path, " Tiedostoa ei voida lukea, joten ei tiedetä, mitä siinä on:     ");
    if (!holds_what_is_known(path, *held))
        return ask(path, path == known.path
                             ? " Toinen ohjelma on muuttanut tiedostoa sen avaamisen jälkeen:     "
                             : " Tiedostossa on toinen kortti kuin se, joka avattiin:     ");
    if (!known.agreed && is_open_in_another_session(path)) {
        known.agreed = ask(path, " Tiedosto on auki myös toisessa Kehystimessä:     ");
        return known.agreed;
    }
    return true;
}

} // namespace kehystin
