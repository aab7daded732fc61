// Names: what a scenario's names stand for in the running program.
#pragma once

#include "platform/form.h"
#include "tests/scenario/stage.h"

#include <string>
#include <string_view>

namespace scenario {

/// A loaded form by its name, or null.
platform::Form* find_form(Stage const& stage, std::string_view name);
/// A loaded form; raises StepError for one that is not.
platform::Form& require_form(Stage const& stage, std::string_view name);
/// A control or a form. A control that no form's name stands before is looked for in the topmost
/// modal form, then in the main window, then in the card. Raises StepError when there is none.
platform::Control& require_control(Stage const& stage, std::string_view name);

/// What a name has now; raises StepError for a name that has no value.
platform::Value value_of_name(Stage const& stage, std::string_view name);
/// Whether there is such a control, form, field, list item or other value.
bool name_exists(Stage const& stage, std::string_view name);

/// What a word stands for as a value: a colour's number for rgb(), the value that a name has now
/// behind @, and otherwise its text.
platform::Value value_of_word(Stage const& stage, Word const& word);
/// The next argument as a value, as its text, and as a number.
platform::Value take_value(Stage const& stage, Arguments& arguments, std::string_view what);
std::string take_text(Stage const& stage, Arguments& arguments, std::string_view what);
double take_number(Stage const& stage, Arguments& arguments, std::string_view what);

} // namespace scenario
