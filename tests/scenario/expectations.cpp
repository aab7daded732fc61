// Steps that say what must be true, and the one that shows it.
#include "platform/base.h"
#include "platform/controls.h"
#include "tests/scenario/names.h"
#include "tests/scenario/script.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <ostream>

namespace scenario {

namespace {

using platform::Control;
using platform::Value;

constexpr std::array operators = {"==", "!=", "contains", "starts"};

std::string take_operator(Arguments& arguments) {
    for (auto const* const name : operators)
        if (arguments.take_keyword(name))
            return name;
    throw StepError("expected ==, !=, contains or starts");
}

/// The value that a step expects; FOLDER in it stands for the scenario's folder.
Value take_expected(Stage const& stage, Arguments& arguments) {
    auto const& word = arguments.take("a value");
    auto value = value_of_word(stage, word);
    bool const written_out = word.quoted || !word.text.starts_with('@');
    if (auto* const text = std::get_if<std::string>(&value); text && written_out)
        *text = platform::Replace(*text, "FOLDER", stage.world.folder());
    return value;
}

/// Numbers and yes and no are compared as what they are: another text beside them is a mistake of
/// the scenario, not an inequality.
bool equal(Value const& actual, Value const& expected) {
    auto const text = text_of(expected);
    if (std::holds_alternative<bool>(actual) && text != "yes" && text != "no")
        throw StepError("expected yes or no, found " + text);
    auto const* const number = std::get_if<double>(&actual);
    if (!number)
        return text_of(actual) == text;
    constexpr double tolerance = 0.001;
    auto const* const exact = std::get_if<double>(&expected);
    auto const other = exact ? *exact : read_number(text);
    if (!other)
        throw StepError("expected a number, found " + text);
    return std::fabs(*number - *other) <= tolerance * (1 + 1e-9);
}

bool holds(Value const& actual, std::string_view operation, Value const& expected) {
    if (operation == "==")
        return equal(actual, expected);
    if (operation == "!=")
        return !equal(actual, expected);
    auto const text = text_of(actual);
    return operation == "contains" ? platform::contains(text, text_of(expected))
                                   : text.starts_with(text_of(expected));
}

void compare(Stage const& stage, Arguments& arguments, std::string const& name,
             Value const& actual) {
    auto const operation = take_operator(arguments);
    auto const expected = take_expected(stage, arguments);
    // A number's text is a number beside a number, and shown without quotes like one.
    auto const shown_expected =
        std::holds_alternative<std::string>(actual) ? shown(text_of(expected)) : text_of(expected);
    if (!holds(actual, operation, expected))
        throw StepError("expected " + name + " " + operation + " " + shown_expected + ", found " +
                        shown(actual));
}

/// The control's own mark, whatever its class has for one.
bool is_checked(Control const& control) {
    if (auto const* const menu = dynamic_cast<platform::Menu const*>(&control))
        return menu->Checked;
    if (auto const* const box = dynamic_cast<platform::CheckBox const*>(&control))
        return box->Value == 1;
    if (auto const* const option = dynamic_cast<platform::OptionButton const*>(&control))
        return option->Value;
    throw StepError("expected a menu entry, check box or option button, found " +
                    control.full_name());
}

struct State {
    std::string_view word;
    std::string_view opposite;
    bool (*holds)(Control const&);
};

constexpr std::array states = {
    State{"enabled", "disabled", [](Control const& control) -> bool { return control.Enabled; }},
    State{"shown", "hidden", [](Control const& control) -> bool { return control.Visible; }},
    State{"checked", "unchecked", is_checked},
};

bool state_of(Stage const& stage, State const& state, std::string const& name) {
    // A form that is not loaded is hidden, and nothing else.
    if (state.word == "shown") {
        auto const visible = value_of_name(stage, name + ".Visible");
        return std::get<bool>(visible);
    }
    return state.holds(require_control(stage, name));
}

bool expect_state(Stage const& stage, Arguments& arguments) {
    for (auto const& state : states)
        for (bool const wanted : {true, false}) {
            auto const word = wanted ? state.word : state.opposite;
            if (!arguments.take_keyword(word))
                continue;
            do {
                auto const name = arguments.take("a control").text;
                if (state_of(stage, state, name) != wanted)
                    throw StepError("expected " + name + " " + std::string(word) + ", found it " +
                                    std::string(wanted ? state.opposite : state.word));
            } while (!arguments.empty());
            return true;
        }
    return false;
}

bool expect_existence(Stage const& stage, Arguments& arguments) {
    for (bool const wanted : {true, false}) {
        if (!arguments.take_keyword(wanted ? "exists" : "gone"))
            continue;
        do {
            auto const name = arguments.take("a control").text;
            if (name_exists(stage, name) != wanted)
                throw StepError("expected " + name + (wanted ? " to exist" : " to be gone") +
                                ", found " + (wanted ? "none" : "it"));
        } while (!arguments.empty());
        return true;
    }
    return false;
}

void expect_line_among(Stage const& stage, Arguments& arguments, std::string const& name,
                       bool wanted) {
    auto const line = text_of(take_expected(stage, arguments));
    auto const lines = stage.world.lines(name);
    bool const found = std::find(lines.begin(), lines.end(), line) != lines.end();
    if (found != wanted)
        throw StepError("expected " + std::string(wanted ? "a" : "no") + " line " + shown(line) +
                        " in " + name + ", found " + (wanted ? "none" : "one") + " among " +
                        std::to_string(lines.size()) + " lines");
}

void expect_same(Stage const& stage, std::string const& name, std::string const& other) {
    auto const bytes = stage.world.bytes(name);
    auto const other_bytes = stage.world.bytes(other);
    if (bytes == other_bytes)
        return;
    auto const places = std::min(bytes.size(), other_bytes.size());
    std::size_t place = 0;
    while (place < places && bytes[place] == other_bytes[place])
        ++place;
    throw StepError("expected " + name + " the same as " + other + ", found a difference at byte " +
                    std::to_string(place) + " (" + std::to_string(bytes.size()) + " and " +
                    std::to_string(other_bytes.size()) + " bytes)");
}

void expect_file(Stage const& stage, Arguments& arguments) {
    auto const name = take_text(stage, arguments, "a file name");
    if (arguments.take_keyword("exists")) {
        if (!stage.world.exists(name))
            throw StepError("expected the file " + name + ", found none");
    } else if (arguments.take_keyword("missing")) {
        if (stage.world.exists(name))
            throw StepError("expected no file " + name + ", found one");
    } else if (arguments.take_keyword("lines")) {
        auto const count = static_cast<double>(stage.world.lines(name).size());
        compare(stage, arguments, "lines of " + name, count);
    } else if (arguments.take_keyword("line")) {
        int const number = arguments.take_whole("a line number", 1, 1'000'000);
        auto const lines = stage.world.lines(name);
        if (static_cast<std::size_t>(number) > lines.size())
            throw StepError("expected line " + std::to_string(number) + " of " + name + ", found " +
                            std::to_string(lines.size()) + " lines");
        compare(stage, arguments, "line " + std::to_string(number) + " of " + name,
                lines[static_cast<std::size_t>(number) - 1]);
    } else if (arguments.take_keyword("has")) {
        expect_line_among(stage, arguments, name, true);
    } else if (arguments.take_keyword("hasnot")) {
        expect_line_among(stage, arguments, name, false);
    } else if (arguments.take_keyword("same")) {
        expect_same(stage, name, take_text(stage, arguments, "a file name"));
    } else {
        throw StepError("expected exists, missing, lines, line, has, hasnot or same");
    }
}

std::string hexadecimal(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (char const byte : bytes) {
        auto const value = static_cast<unsigned char>(byte);
        if (!text.empty())
            text += ' ';
        text += digits[value >> 4];
        text += digits[value & 15];
    }
    return text;
}

void expect_bytes(Stage const& stage, Arguments& arguments) {
    auto const name = take_text(stage, arguments, "a file name");
    auto const offset =
        static_cast<std::size_t>(arguments.take_whole("an offset in bytes", 0, 1'000'000'000));
    auto const operation = take_operator(arguments);
    if (operation != "==" && operation != "!=")
        throw StepError("expected == or != between bytes, found " + operation);
    auto expected = arguments.take("bytes").text;
    for (auto& digit : expected)
        if (digit >= 'A' && digit <= 'F')
            digit = static_cast<char>(digit - 'A' + 'a');
    auto const bytes = stage.world.bytes(name);
    auto const count = (expected.size() + 1) / 3;
    auto const found =
        hexadecimal(std::string_view(bytes).substr(std::min(offset, bytes.size()), count));
    if ((found == expected) != (operation == "=="))
        throw StepError("expected bytes of " + name + " at " + std::to_string(offset) + " " +
                        operation + " " + expected + ", found " + found);
}

void expect(Stage& stage, Arguments& arguments, Step const&) {
    if (expect_state(stage, arguments) || expect_existence(stage, arguments))
        return;
    if (arguments.take_keyword("file"))
        return expect_file(stage, arguments);
    if (arguments.take_keyword("bytes"))
        return expect_bytes(stage, arguments);
    auto const name = arguments.take("a name").text;
    compare(stage, arguments, name, value_of_name(stage, name));
}

void show(Stage& stage, Arguments& arguments, Step const& step) {
    do {
        auto const name = arguments.take("a name").text;
        std::string value;
        try {
            value = shown(value_of_name(stage, name));
        } catch (StepError const& error) {
            value = error.what(); // showing always passes
        }
        stage.out << step.line << ": " << name << " = " << value << std::endl;
    } while (!arguments.empty());
}

constexpr std::array kinds = {StepKind{"expect", expect}, StepKind{"show", show}};

} // namespace

std::span<StepKind const> expectation_steps() {
    return kinds;
}

} // namespace scenario
