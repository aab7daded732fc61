// krt: cards without a window.
#include "disk/disk.h"
#include "krt/commands.h"
#include "krt/files.h"
#include "krt/streams.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <functional>
#include <iostream>
#include <new>

namespace {

using krt::Files;
using krt::Form;
using krt::Status;

char const* const options_group = "Valitsimet";
char const* const commands_group = "Komennot";

/// What the words of the command line ask for, run behind their parsing.
struct Wanted {
    std::function<Status()> command;
    Files files;
    bool json = false;
    std::string output;
    krt::RepairTarget repair;
    krt::Drawing drawing;

    Form form() const { return json ? Form::json : Form::text; }
};

/// A command over `count` files, any number without it.
CLI::App& add_command(CLI::App& program, Wanted& wanted, char const* name, char const* what,
                      char const* files, std::function<Status()> command, int count = 0) {
    auto& added = *program.add_subcommand(name, what)->group(commands_group);
    auto& option = *added.add_option("FILE", wanted.files, files)->required()->type_name("");
    if (count != 0)
        option.expected(count);
    added.callback([&wanted, command = std::move(command)] { wanted.command = command; });
    return added;
}

void add_json(CLI::App& command, Wanted& wanted) {
    command.add_flag("--json", wanted.json, "tulostaa JSONia, olion riville");
}

/// The words of the command line from the last to the first, as the library wants them. It takes a
/// file "[a,b]" for two, "++" for the end of a command, and "--" only where no file stands before
/// it: a NUL in front, which no word can have of its own, makes a name of whatever follows.
std::vector<std::string> words_of(int argc, char* argv[]) {
    std::vector<std::string> words;
    bool names_alone = false;
    for (auto const& word : disk::words_of(argc, argv)) {
        if (word == "--" && !names_alone)
            names_alone = true;
        else
            words.push_back(names_alone || word.starts_with('[') || word == "++" ? '\0' + word
                                                                                 : word);
    }
    std::reverse(words.begin(), words.end());
    return words;
}

/// Names as they were given.
void take_as_given(Wanted& wanted) {
    auto const take = [](std::string& name) {
        if (name.starts_with('\0'))
            name.erase(0, 1);
    };
    std::for_each(wanted.files.begin(), wanted.files.end(), take);
    for (auto* const name : {&wanted.output, &wanted.repair.file, &wanted.drawing.file})
        take(*name);
}

/// Where a command writes; nothing is no file.
CLI::Option& add_output(CLI::App& command, std::string& file, char const* what, char const* type) {
    auto const is_given = [](std::string const& name) { return name.empty() ? "-o" : ""; };
    return *command.add_option("-o", file, what)->type_name(type)->check(is_given, "");
}

/// What is wrong with the command line.
std::string fault_of(CLI::Error const& error) {
    if (dynamic_cast<CLI::RequiredError const*>(&error))
        return "komento, tiedosto tai valitsin puuttuu, tai komentoa ei ole";
    if (dynamic_cast<CLI::ExtrasError const*>(&error))
        return "tuntematon komento, valitsin tai liikaa tiedostoja";
    if (dynamic_cast<CLI::ExcludesError const*>(&error))
        return "valitsimet eivät sovi yhteen";
    if (dynamic_cast<CLI::ArgumentMismatch const*>(&error))
        return "tiedostoja tai valitsimia on väärä määrä";
    if (dynamic_cast<CLI::ValidationError const*>(&error))
        return "-o ei voi olla tyhjä";
    if (dynamic_cast<CLI::ConversionError const*>(&error))
        return "valitsimen arvo ei ole luku";
    return "komento on virheellinen";
}

/// What does not go together though each word is right; null without such.
char const* fault_of(Wanted const& wanted) {
    if (wanted.files.size() > 1 && !wanted.repair.file.empty())
        return "-o sopii vain yhdelle tiedostolle";
    if (std::count(wanted.files.begin(), wanted.files.end(), "-") > 1)
        return "vakiosyötteen voi lukea vain kerran";
    return nullptr;
}

/// Behind the name of an option stands what it takes, and nothing else.
class Help : public CLI::Formatter {
  public:
    std::string make_option_opts(CLI::Option const* option) const override {
        auto const type = option->get_type_name();
        return (type.empty() ? "" : " " + type) + repeated(*option);
    }
    std::string make_option_usage(CLI::Option const* option) const override {
        auto const name = option->get_name(true) + repeated(*option);
        return option->get_required() ? name : "[" + name + "]";
    }
    std::string make_footer(CLI::App const* program) const override {
        return CLI::Formatter::make_footer(program) + "\n";
    }

  private:
    static std::string repeated(CLI::Option const& option) {
        auto const most = option.get_positional() ? option.get_items_expected_max() : 1;
        return most == 1 ? "" : most == 2 ? " " + option.get_name(true) : "...";
    }
};

/// The words that the library has of its own, in the language of the rest.
void speak_finnish(CLI::App& program) {
    auto const words = std::make_shared<Help>();
    for (auto const& [english, finnish] : {std::pair("Usage", "Käyttö"),
                                           {"OPTIONS", "VALITSIMET"},
                                           {"SUBCOMMAND", "KOMENTO"},
                                           {"Positionals", "Tiedostot"}})
        words->label(english, finnish);
    program.formatter(words);
    program.option_defaults()->group(options_group);
    program.set_help_flag("-h,--help", "näyttää tämän ohjeen")->group(options_group);
    program.failure_message([](CLI::App const*, CLI::Error const& error) {
        return "krt: " + fault_of(error) + ", katso krt --help\n";
    });
}

void add_commands(CLI::App& program, Wanted& wanted) {
    auto const* const cards = "korttitiedostoja, - on vakiosyöte";
    auto const* const card = "korttitiedosto, - on vakiosyöte";
    auto const* const to_file = "tiedostoon eikä tulosteeseen";
    auto const& files = wanted.files;

    add_json(add_command(program, wanted, "check", "tarkistaa kortit", cards,
                         [&] { return krt::check(files, wanted.form()); }),
             wanted);

    auto& repair = add_command(program, wanted, "repair", "kirjoittaa kortit korjattuina", cards,
                               [&] { return krt::repair(files, wanted.repair); });
    auto* const in_place = repair.add_flag("--in-place", wanted.repair.in_place,
                                           "tiedoston itsensä päälle, vanha jää nimelle FILE~");
    add_output(repair, wanted.repair.file, to_file, "X.krt").excludes(in_place);
    repair.add_flag("--always", wanted.repair.always, "myös kun korjattavaa ei ole");
    repair.footer("Kortin vieressä olevan taustakuvan \"+\" säilyy, ja puuttuvan kuvan polku.");

    add_json(add_command(program, wanted, "links", "luettelee linkit", cards,
                         [&] { return krt::links(files, wanted.form()); }),
             wanted);

    add_json(add_command(
                 program, wanted, "diff", "vertaa kahta korttia",
                 "vanha ja uusi kortti, - on vakiosyöte",
                 [&] { return krt::diff(files.front(), files.back(), wanted.form()); }, 2),
             wanted);

    add_command(program, wanted, "json", "tulostaa kortin JSONina", cards,
                [&] { return krt::to_json(files); });

    auto& make = add_command(
        program, wanted, "make", "tekee kortin JSONista", "JSON-tiedosto, - on vakiosyöte",
        [&] { return krt::make(files.front(), wanted.output); }, 1);
    add_output(make, wanted.output, to_file, "X.krt");

    auto& draw = add_command(
        program, wanted, "draw", "piirtää kortin kuvaksi", card,
        [&] { return krt::draw(files.front(), wanted.drawing); }, 1);
    add_output(draw, wanted.drawing.file, "kuvaan, - on PNG tulosteeseen", "X.png|.svg|.pdf")
        .required();
    draw.add_flag("--links", wanted.drawing.links, "myös linkkien viivat");
    draw.add_option("--scale", wanted.drawing.scale,
                    "kuvan pikseleitä kortin pikseliä kohti, 0.25 - 8")
        ->type_name("LUKU");
    draw.add_option("--size", wanted.drawing.size,
                    "pikkukuva: PNG, jonka pitempi sivu on enintään LUKU pikseliä, 16 - 1024")
        ->type_name("LUKU")
        ->excludes("--scale");

    auto& form = add_command(
        program, wanted, "form", "tekee kortista sivun selaimeen", card,
        [&] { return krt::form(files.front(), wanted.output); }, 1);
    add_output(form, wanted.output, to_file, "X.html");

    auto& rescue = *program.add_subcommand("rescue", "luettelee pelastetut kortit tai hakee yhden")
                        ->group(commands_group);
    rescue.add_option("NIMI", wanted.files, "luettelossa oleva nimi")->type_name("")->expected(1);
    add_output(rescue, wanted.output, to_file, "X.krt");
    rescue.callback(
        [&] { wanted.command = [&] { return krt::rescue_cards(files, wanted.output); }; });

    for (auto* const command : program.get_subcommands({}))
        command->get_help_ptr()->group(options_group);
}

} // namespace

int main(int argc, char* argv[]) {
    krt::begin_process();
    CLI::App program("krt tutkii, korjaa ja muuntaa korttimalleja ilman ikkunaa.", "krt");
    speak_finnish(program);
    program.set_version_flag("--version", "krt " KRT_VERSION, "näyttää version");
    program.require_subcommand(1);
    program.footer("Paluuarvo: 0 ei sanottavaa, 1 löydöksiä tai eroja, 2 tiedostoa ei voitu lukea "
                   "tai kirjoittaa tai komento on virheellinen.");
    Wanted wanted;

    add_commands(program, wanted);
    try {
        program.parse(words_of(argc, argv));
        take_as_given(wanted);
    } catch (CLI::ParseError const& error) {
        bool const told = program.exit(error) == 0 && std::cout.flush();
        return static_cast<int>(told ? Status::quiet : Status::failed);
    }
    if (auto const* const fault = fault_of(wanted)) {
        std::cerr << "krt: " << fault << "\n";
        return static_cast<int>(Status::failed);
    }
    try {
        auto const status = wanted.command();
        return static_cast<int>(krt::finish_output() ? status : Status::failed);
    } catch (krt::NobodyReads const&) {
        return static_cast<int>(Status::failed);
    } catch (std::bad_alloc const&) {
        std::cerr << "krt: muisti ei riitä\n";
        return static_cast<int>(Status::failed);
    }
}
