// Steps that a user takes on controls and windows. Those of the mouse on the card: mouse_steps.
#include "platform/base.h"
#include "platform/input.h"
#include "platform/system.h"
#include "tests/scenario/mouse_steps.h"
#include "tests/scenario/names.h"
#include "tests/scenario/script.h"

#include <array>

namespace scenario {

namespace {

using platform::Control;
using platform::Form;
using platform::Key;
namespace input = platform::input;

template <class C>
C& take_control(Stage const& stage, Arguments& arguments, std::string_view what) {
    auto const& word = arguments.take(what);
    auto* const control = dynamic_cast<C*>(&require_control(stage, word.text));
    if (!control)
        throw StepError("expected " + std::string(what) + ", found " + word.text +
                        ", which is none");
    return *control;
}

Control& take_control(Stage const& stage, Arguments& arguments) {
    return take_control<Control>(stage, arguments, "a control");
}

void launch(Stage& stage, Arguments& arguments, Step const&) {
    if (stage.program)
        throw StepError("expected the program to have ended, found it running");
    stage.host.arguments = arguments.empty() ? "" : take_text(stage, arguments, "a command line");
    arguments.finish();
    stage.host.boxes.clear();
    stage.program = std::make_unique<kehystin::Program>(stage.host);
    stage.program->Main();
}

void kill(Stage& stage, Arguments& arguments, Step const&) {
    if (!stage.program)
        throw StepError("expected the program running, found that it has ended");
    arguments.finish();
    stage.program.reset();
}

void click(Stage& stage, Arguments& arguments, Step const&) {
    auto& control = take_control(stage, arguments);
    arguments.finish();
    if (auto* const form = dynamic_cast<Form*>(&control))
        input::click_form(*form);
    else
        input::click(control);
}

void double_click(Stage& stage, Arguments& arguments, Step const&) {
    auto& control = take_control(stage, arguments);
    arguments.finish();
    input::double_click(control);
}

void focus(Stage& stage, Arguments& arguments, Step const&) {
    auto& control = take_control(stage, arguments);
    arguments.finish();
    input::focus(control);
}

/// Key by key; a line break is the Enter key.
void type_keys(Control& control, std::string_view text) {
    for (;;) {
        auto const end = text.find('\n');
        input::type(control, text.substr(0, end));
        if (end == std::string_view::npos)
            return;
        input::press(control, Key::enter);
        text.remove_prefix(end + 1);
    }
}

void type(Stage& stage, Arguments& arguments, Step const&) {
    auto& control = take_control(stage, arguments);
    auto const text = take_text(stage, arguments, "a text");
    arguments.finish();
    input::focus(control);
    if (auto* const box = dynamic_cast<platform::TextBox*>(&control))
        box->select_all();
    type_keys(control, text);
}

void set(Stage& stage, Arguments& arguments, Step const&) {
    auto& box = take_control<platform::TextBox>(stage, arguments, "a text box");
    auto const text = take_text(stage, arguments, "a text");
    arguments.finish();
    input::focus(box);
    input::paste(box, with_program_breaks(text));
}

constexpr std::array named_keys = {
    std::pair("Enter", Key::enter), std::pair("Escape", Key::escape),
    std::pair("Tab", Key::tab),     std::pair("BackTab", Key::back_tab),
    std::pair("Delete", Key::del),  std::pair("Backspace", Key::backspace),
    std::pair("Up", Key::up),       std::pair("Down", Key::down),
    std::pair("Left", Key::left),   std::pair("Right", Key::right),
    std::pair("Home", Key::home),   std::pair("End", Key::end),
};

bool is_shortcut(std::string_view key) {
    constexpr std::string_view control_key = "Ctrl+";
    if (key.starts_with(control_key))
        return platform::Len(key.substr(control_key.size())) == 1;
    auto const number = key.starts_with('F') ? read_number(key.substr(1)) : std::nullopt;
    return number && *number >= 1 && *number <= 12;
}

/// A control takes the focus for its key. For a form the key goes to what has the focus there, and
/// while a modal form is open, to that one.
Control& receiver_of_key(Control& named) {
    if (!dynamic_cast<Form*>(&named)) {
        input::focus(named);
        return named;
    }
    auto const& system = platform::System::current();
    auto* const modal = system.active_modal();
    auto* const focused = system.focused();
    if (focused && (!modal || &focused->form() == modal))
        return *focused;
    return modal ? *modal : named;
}

void press_key(Stage& stage, Arguments& arguments, Step const&) {
    auto& named = take_control(stage, arguments);
    auto const key = take_text(stage, arguments, "a key");
    arguments.finish();
    auto& control = receiver_of_key(named);
    if (is_shortcut(key)) {
        // The card's window has no menus of its own: its keys are the main window's.
        auto* const modal = platform::System::current().active_modal();
        input::shortcut(modal ? *modal : require_form(stage, "fEditor"), key);
        return;
    }
    for (auto const& [name, code] : named_keys)
        if (key == name)
            return input::press(control, code);
    if (platform::Len(key) != 1)
        throw StepError("expected a key, found " + key);
    type_keys(control, key);
}

void pick(Stage& stage, Arguments& arguments, Step const&) {
    auto& list = take_control<platform::ListControl>(stage, arguments, "a list");
    auto const& word = arguments.take("an item");
    arguments.finish();
    auto const item = text_of(value_of_word(stage, word));
    int const first = list.control_class() == platform::ControlClass::tree_view ? 1 : 0;
    if (auto const index = word.quoted ? std::nullopt : read_number(item))
        return input::pick(list, static_cast<int>(*index) - first);
    int const index = list.find_item(with_program_breaks(item));
    if (index < 0)
        throw StepError("expected the item " + shown(item) + " in " + list.full_name() +
                        ", found none");
    input::pick(list, index);
}

void scroll(Stage& stage, Arguments& arguments, Step const&) {
    auto& bar = take_control<platform::ScrollBar>(stage, arguments, "a scroll bar");
    auto const value = take_number(stage, arguments, "a value");
    arguments.finish();
    input::scroll(bar, static_cast<int>(value));
}

void close(Stage& stage, Arguments& arguments, Step const&) {
    auto& form = take_control<Form>(stage, arguments, "a form");
    arguments.finish();
    input::close(form);
}

void tick(Stage& stage, Arguments& arguments, Step const&) {
    int const milliseconds = arguments.take_whole("milliseconds", 0, 1'000'000'000);
    arguments.finish();
    stage.host.clock.run(milliseconds);
}

void hover(Stage& stage, Arguments& arguments, Step const&) {
    if (arguments.take_keyword("nothing"))
        return stage.host.hover(nullptr);
    auto& control = take_control(stage, arguments);
    if (!control.is_shown())
        throw StepError("expected " + control.full_name() + " shown, found it hidden");
    stage.host.hover(&control);
}

constexpr std::array kinds = {
    StepKind{"launch", launch},
    StepKind{"kill", kill},
    StepKind{"click", click},
    StepKind{"dblclick", double_click},
    StepKind{"focus", focus},
    StepKind{"type", type},
    StepKind{"key", press_key},
    StepKind{"set", set},
    StepKind{"pick", pick},
    StepKind{"scroll", scroll},
    StepKind{"close", close},
    StepKind{"tick", tick},
    StepKind{"hover", hover},
    StepKind{"drop", drop_on_card},
    StepKind{"press", press_mouse},
    StepKind{"move", move_mouse},
    StepKind{"release", release_mouse},
    StepKind{"dblpress", double_press_mouse},
    StepKind{"resize", resize_window},
};

} // namespace

std::span<StepKind const> user_steps() {
    return kinds;
}

} // namespace scenario
