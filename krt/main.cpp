// krt: cards without a window.
#include "krt/commands.h"

#include <CLI/CLI.hpp>

#include <clocale>
#include <iostream>

namespace {

using krt::Files;
using krt::Form;
using krt::Status;

/// What the words of the command line ask for, run behind their parsing.
struct Wanted {
    Files files;
    bool json = false;
    std::string output;
    krt::RepairTarget repair;

    Form form() const { return json ? Form::json : Form::text; }
};

CLI::App* add_command(CLI::App& program, Wanted& wanted, char const* name, char const* what) {
    auto* const command = program.add_subcommand(name, what);
    command->add_option("FILE", wanted.files, "korttitiedostoja, - on vakiosyöte")->required();
    return command;
}

void add_json(CLI::App& command, Wanted& wanted) {
    command.add_flag("--json", wanted.json, "tulostaa JSONia, olion riville");
}

int run(CLI::App& program, Wanted& wanted) {
    auto const chosen = program.get_subcommands().front()->get_name();
    auto const status = [&] {
        if (chosen == "check")
            return krt::check(wanted.files, wanted.form());
        if (chosen == "repair")
            return krt::repair(wanted.files, wanted.repair);
        if (chosen == "links")
            return krt::links(wanted.files, wanted.form());
        if (chosen == "diff")
            return krt::diff(wanted.files.front(), wanted.files.back(), wanted.form());
        if (chosen == "json")
            return krt::to_json(wanted.files);
        return krt::make(wanted.files.front(), wanted.output);
    }();
    return static_cast<int>(status);
}

} // namespace

int main(int argc, char* argv[]) {
    CLI::App program("krt tutkii, korjaa ja muuntaa korttimalleja ilman ikkunaa.", "krt");
    program.set_version_flag("--version", "krt " KRT_VERSION);
    program.require_subcommand(1);
    program.footer("Paluuarvo: 0 ei sanottavaa, 1 löydöksiä tai eroja, 2 tiedostoa ei voitu lukea "
                   "tai kirjoittaa tai komento on virheellinen.");
    Wanted wanted;

    add_json(*add_command(program, wanted, "check", "tarkistaa kortit"), wanted);

    auto* const repair = add_command(program, wanted, "repair", "kirjoittaa kortit korjattuina");
    auto* const in_place = repair->add_flag("--in-place", wanted.repair.in_place,
                                            "tiedoston itsensä päälle, vanha jää nimelle FILE~");
    repair->add_option("-o", wanted.repair.file, "tiedostoon eikä tulosteeseen")
        ->excludes(in_place);
    repair->add_flag("--always", wanted.repair.always, "myös kun korjattavaa ei ole");

    add_json(*add_command(program, wanted, "links", "luettelee linkit"), wanted);

    auto* const diff = program.add_subcommand("diff", "vertaa kahta korttia");
    diff->add_option("FILE", wanted.files, "vanha ja uusi kortti, - on vakiosyöte")
        ->required()
        ->expected(2);
    add_json(*diff, wanted);

    add_command(program, wanted, "json", "tulostaa kortin JSONina");

    auto* const make = program.add_subcommand("make", "tekee kortin JSONista");
    make->add_option("FILE", wanted.files, "JSON-tiedosto, - on vakiosyöte")
        ->required()
        ->expected(1);
    make->add_option("-o", wanted.output, "tiedostoon eikä tulosteeseen");

    try {
        program.parse(argc, argv);
    } catch (CLI::ParseError const& error) {
        return program.exit(error) == 0 ? 0 : static_cast<int>(Status::failed);
    }
    if (wanted.files.size() > 1 && !wanted.repair.file.empty()) {
        std::cerr << "krt: -o sopii vain yhdelle tiedostolle\n";
        return static_cast<int>(Status::failed);
    }
    return run(program, wanted);
}
