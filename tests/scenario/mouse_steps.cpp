#include "tests/scenario/mouse_steps.h"

#include "platform/input.h"
#include "tests/scenario/names.h"

namespace scenario {

namespace {

using platform::Form;
namespace input = platform::input;

constexpr std::string_view card_form = "fCard";

struct Point {
    double x;
    double y;
};

Point take_point(Stage const& stage, Arguments& arguments) {
    double const x = take_number(stage, arguments, "a place from the left, in pixels");
    return {x, take_number(stage, arguments, "a place from the top, in pixels")};
}

void remember(Stage& stage, Point point) {
    stage.mouse_x = point.x;
    stage.mouse_y = point.y;
}

void require_button_up(Stage const& stage) {
    if (stage.host.button_down)
        throw StepError("expected the mouse button up, found it down");
}

bool take_shift(Arguments& arguments) {
    return arguments.take_keyword("shift");
}

} // namespace

void drop_on_card(Stage& stage, Arguments& arguments, Step const&) {
    auto const tag = take_text(stage, arguments, "the tag of a button");
    auto& card = require_form(stage, card_form);
    auto const point = take_point(stage, arguments);
    arguments.finish();
    for (auto* const control : require_form(stage, "fEditor").controls()) {
        auto* const button = dynamic_cast<platform::Button*>(control);
        if (button && button->DragMode && button->Tag.get() == tag)
            return input::drop(*button, card, point.x, point.y);
    }
    throw StepError("expected a button of the field bar with the tag " + tag + ", found none");
}

void press_mouse(Stage& stage, Arguments& arguments, Step const&) {
    auto& card = require_form(stage, card_form);
    require_button_up(stage);
    auto const point = take_point(stage, arguments);
    bool const shift = take_shift(arguments);
    arguments.finish();
    remember(stage, point);
    stage.host.button_down = true;
    stage.card_pressed = true;
    input::mouse_press(card, point.x, point.y, shift);
}

void move_mouse(Stage& stage, Arguments& arguments, Step const&) {
    auto& card = require_form(stage, card_form);
    auto const point = take_point(stage, arguments);
    arguments.finish();
    remember(stage, point);
    input::mouse_move(card, point.x, point.y);
}

void release_mouse(Stage& stage, Arguments& arguments, Step const&) {
    if (!stage.host.button_down)
        throw StepError("expected the mouse button down, found it up");
    bool const on_card = stage.card_pressed && find_form(stage, card_form);
    if (!arguments.empty()) {
        auto const point = take_point(stage, arguments);
        arguments.finish();
        remember(stage, point);
        if (on_card)
            input::mouse_move(require_form(stage, card_form), point.x, point.y);
    }
    stage.host.button_down = false;
    stage.card_pressed = false;
    // The move may have taken the card away.
    if (auto* const card = on_card ? find_form(stage, card_form) : nullptr)
        input::mouse_release(*card, stage.mouse_x, stage.mouse_y);
}

void double_press_mouse(Stage& stage, Arguments& arguments, Step const&) {
    auto& card = require_form(stage, card_form);
    require_button_up(stage);
    auto const point = take_point(stage, arguments);
    bool const shift = take_shift(arguments);
    arguments.finish();
    remember(stage, point);
    input::mouse_double_press(card, point.x, point.y, shift);
}

void resize_window(Stage& stage, Arguments& arguments, Step const&) {
    auto name = card_form;
    if (arguments.take_keyword("fEditor"))
        name = "fEditor";
    auto& form = require_form(stage, name);
    double const unit = stage.host.metrics().TwipsPerPixelX;
    double const width = take_number(stage, arguments, "a width in pixels") * unit;
    double const height = take_number(stage, arguments, "a height in pixels") * unit;
    arguments.finish();
    if (name == card_form) {
        if (stage.card_pressed)
            throw StepError("expected the mouse button up, found it down");
        stage.host.button_down = true;
    }
    input::resize(form, width, height);
}

} // namespace scenario
