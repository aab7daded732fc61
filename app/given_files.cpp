#include "app/given_files.h"

#include "boxes/failure_report.h"
#include "cardfile/document_commands.h"
#include "disk/disk.h"
#include "model/session.h"
#include "platform/host.h"

#include <algorithm>

namespace kehystin {

namespace {

bool is_folder(std::string const& path) {
    return disk::kind_of(path) == disk::Kind::folder;
}

/// A box has room for so many names, and for so much of each.
constexpr std::size_t most_names = 5;
constexpr std::size_t longest_name = 60; // characters

std::string name_line(std::string const& path) {
    bool const closed = path.ends_with('/') || path.ends_with('\\');
    auto const name =
        base::in_one_line(base::file_part(closed ? path.substr(0, path.size() - 1) : path));
    auto const shown =
        base::Len(name) > longest_name ? base::Left(name, longest_name) + "..." : name;
    return " " + shown + "     ";
}

/// The names of all but the one that is opened, as far as there is room.
std::string name_lines(std::vector<std::string> const& given, std::string const& opened) {
    std::string text;
    std::size_t named = 0;
    bool passed_over = opened.empty();
    for (auto const& path : given) {
        if (!passed_over && path == opened)
            passed_over = true;
        else if (++named <= most_names)
            text += std::string(line_break) + name_line(path);
    }
    if (named > most_names)
        text +=
            std::string(line_break) + " ja " + std::to_string(named - most_names) + " muuta     ";
    return text;
}

} // namespace

std::string first_file(std::vector<std::string> const& given) {
    auto const found =
        std::find_if(given.begin(), given.end(), [](auto const& path) { return !is_folder(path); });
    return found == given.end() ? std::string() : *found;
}

void tell_of_others(std::vector<std::string> const& given) {
    auto const opened = first_file(given);
    if (given.empty() || (given.size() == 1 && !opened.empty()))
        return;
    auto const why = opened.empty()
                         ? std::string(" Kansiota ei voi avata korttimallina:     ")
                         : lines({" Korttimalleja voi olla auki yksi kerrallaan. Annetuista     ",
                                  " tiedostoista ensimmäinen avataan. Avaamatta jäävät:     "});
    MsgBox(lines({why + std::string(line_break) + name_lines(given, opened), ""}), box::information,
           session.appTitle);
}

void open_given_files(std::vector<std::string> const& given) {
    session.startFile = first_file(given);
    if (!session.startFile.empty())
        cmd_open_Click();
    tell_of_others(given);
}

} // namespace kehystin
