// Steps that prepare the world: the machine, the clock, the files.
#include "tests/scenario/names.h"
#include "tests/scenario/script.h"

#include <array>

namespace scenario {

namespace {

constexpr int largest = 1'000'000;

void require_no_program(Stage const& stage) {
    if (stage.program)
        throw StepError("expected this before the launch, found the program running");
}

void set_screen(Stage& stage, Arguments& arguments, Step const&) {
    require_no_program(stage);
    stage.host.screen.width = arguments.take_whole("a width", 1, largest);
    stage.host.screen.height = arguments.take_whole("a height", 1, largest);
}

/// "HH:MM" as the part of a day.
std::optional<double> read_time(std::string_view text) {
    if (text.size() != 5 || text[2] != ':')
        return std::nullopt;
    auto const hour = read_number(text.substr(0, 2));
    auto const minute = read_number(text.substr(3));
    if (!hour || !minute || *hour < 0 || *hour > 23 || *minute < 0 || *minute > 59)
        return std::nullopt;
    return (*hour * 60 + *minute) / (24 * 60);
}

void set_date(Stage& stage, Arguments& arguments, Step const&) {
    auto const day = platform::read_date(arguments.take("a date, YYYY-MM-DD").text);
    if (!day)
        throw StepError("expected a date, YYYY-MM-DD");
    auto const time = read_time(arguments.take("a time, HH:MM").text);
    if (!time)
        throw StepError("expected a time, HH:MM");
    stage.host.clock.set(*day + *time);
}

void set_fonts(Stage& stage, Arguments& arguments, Step const&) {
    require_no_program(stage);
    stage.host.font_names.clear();
    while (!arguments.empty())
        stage.host.font_names.push_back(arguments.take("a font").text);
}

void create(Stage& stage, Arguments& arguments, Step const& step) {
    auto const name = take_text(stage, arguments, "a file name");
    if (!arguments.take_keyword("<<"))
        throw StepError("expected << and a word that ends the file");
    auto const end = arguments.take("a word that ends the file").text;
    if (step.block_open)
        throw StepError("expected a line " + end + ", found the end of the scenario");
    stage.world.create(name, step.block);
}

void take(Stage& stage, Arguments& arguments, Step const&) {
    auto const name = take_text(stage, arguments, "a file beside the scenario");
    if (!arguments.take_keyword("AS"))
        throw StepError("expected AS and a file name");
    stage.world.take(name, take_text(stage, arguments, "a file name"));
}

void create_picture(Stage& stage, Arguments& arguments, Step const&) {
    auto const name = take_text(stage, arguments, "a file name");
    int const width = arguments.take_whole("a width", 1, largest);
    stage.world.create_picture(name, width, arguments.take_whole("a height", 1, largest));
}

void remove(Stage& stage, Arguments& arguments, Step const&) {
    stage.world.remove(take_text(stage, arguments, "a file name"));
}

void fail_operation(Stage& stage, Arguments& arguments, Step const&) {
    bool const rescue = arguments.take_keyword("rescue");
    if (!rescue && !arguments.take_keyword("file"))
        throw StepError("expected `fail file` or `fail rescue`");
    int const operation = arguments.take_whole("the number of an operation", 1, largest);
    int const error = arguments.take_whole("an error", 1, 65535);
    if (rescue)
        stage.host.fail_rescue_operation(operation, error);
    else
        stage.host.fail_file_operation(operation, error);
}

void switch_links(Stage& stage, Arguments& arguments, Step const&) {
    if (arguments.take_keyword("work"))
        stage.host.opens_links = true;
    else if (arguments.take_keyword("fail"))
        stage.host.opens_links = false;
    else
        throw StepError("expected `links fail` or `links work`");
}

void answer_box(Stage& stage, Arguments& arguments, Step const&) {
    using platform::Answer;
    constexpr std::array buttons = {std::pair("ok", Answer::ok),
                                    std::pair("cancel", Answer::cancel),
                                    std::pair("yes", Answer::yes), std::pair("no", Answer::no)};
    for (auto const& [word, answer] : buttons)
        if (arguments.take_keyword(word)) {
            stage.host.answers.emplace_back(answer);
            return;
        }
    throw StepError("expected an answer: ok, cancel, yes or no");
}

void answer_input(Stage& stage, Arguments& arguments, Step const&) {
    InputAnswer answer;
    if (!arguments.take_keyword("cancel"))
        answer.text = with_program_breaks(take_text(stage, arguments, "a text or cancel"));
    stage.host.answers.emplace_back(std::move(answer));
}

void answer_file(Stage& stage, Arguments& arguments, Step const&) {
    FileAnswer answer;
    if (!arguments.take_keyword("cancel"))
        answer.path = stage.world.path(take_text(stage, arguments, "a file name or cancel"));
    stage.host.answers.emplace_back(std::move(answer));
}

void answer_colour(Stage& stage, Arguments& arguments, Step const&) {
    ColourAnswer answer;
    if (!arguments.take_keyword("cancel")) {
        int const red = arguments.take_whole("a share of red", 0, 255);
        int const green = arguments.take_whole("a share of green", 0, 255);
        answer.colour = platform::RGB(red, green, arguments.take_whole("a share of blue", 0, 255));
    }
    stage.host.answers.emplace_back(answer);
}

constexpr std::array world_kinds = {
    StepKind{"screen", set_screen},  StepKind{"date", set_date},
    StepKind{"fonts", set_fonts},    StepKind{"create", create},
    StepKind{"take", take},          StepKind{"picture", create_picture},
    StepKind{"remove", remove},      StepKind{"fail", fail_operation},
    StepKind{"links", switch_links},
};

constexpr std::array answer_kinds = {
    StepKind{"answer", answer_box},
    StepKind{"input", answer_input},
    StepKind{"file", answer_file},
    StepKind{"color", answer_colour},
};

} // namespace

std::span<StepKind const> world_steps() {
    return world_kinds;
}

std::span<StepKind const> answer_steps() {
    return answer_kinds;
}

} // namespace scenario
