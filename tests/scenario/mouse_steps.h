// Steps of the mouse on the card, and on the borders of windows.
#pragma once

#include "tests/scenario/stage.h"

namespace scenario {

void drop_on_card(Stage& stage, Arguments& arguments, Step const& step);
void press_mouse(Stage& stage, Arguments& arguments, Step const& step);
void move_mouse(Stage& stage, Arguments& arguments, Step const& step);
void release_mouse(Stage& stage, Arguments& arguments, Step const& step);
void double_press_mouse(Stage& stage, Arguments& arguments, Step const& step);
void resize_window(Stage& stage, Arguments& arguments, Step const& step);

} // namespace scenario
