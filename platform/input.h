// What a user can do to a form. The desktop and the tests call the same functions; each refuses,
// by raising InputRefused, what a user could not do.
//
// Every function is an event edge: a failure inside a handler ends with a box and never comes out.
#pragma once

#include "platform/form.h"

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

/// A user could not have done that: the control is hidden, disabled, or behind a modal form. Says
/// nothing more where the memory for the words is missing.
class InputRefused : public std::exception {
  public:
    InputRefused() noexcept = default;
    explicit InputRefused(std::string why) noexcept : why_(std::move(why)) {}
    [[nodiscard]] char const* what() const noexcept override { return why_.c_str(); }

  private:
    std::string why_;
};

/// Keys without a character of their own.
enum class Key { enter, escape, tab, back_tab, del, backspace, up, down, left, right, home, end };

namespace input {

/// A click on a button, icon, label, picture, menu entry, check box or option button. Gives the
/// focus first where the control takes it.
void click(Control& control);
void double_click(Control& control);
/// The keyboard focus goes to a control.
void focus(Control& control);

/// Types text at the caret, key by key; the selected text is replaced.
void type(Control& control, std::string_view text);
/// One key without a character.
void press(Control& control, Key key);
/// Tab (step 1) or Shift+Tab (step -1): the next control that takes the focus, in a ring; of a bar
/// or, beside all bars, of the form. A group of option buttons is one stop.
void walk_focus(Control& from, int step);
/// From bar to bar: right, left, top, bottom, and back. The first control of it takes the focus.
void walk_bars(Form& form, int step);
/// Opens what belongs to a text box, as its button does. False where it has none.
bool open_beside(TextBox& box);
/// Up (-1) or Down (1) in a text box moves the bar beside it. False where it has none.
bool step_beside(TextBox& box, int steps);
/// The whole text is replaced in one change, as by pasting. The caret then stands behind its first
/// `caret` characters, or at its end.
void paste(TextBox& box, std::string_view text, std::optional<int> caret = std::nullopt);
/// The user moved the caret or the selection, in characters.
void select(TextBox& box, int start, int length);

void pick(ListControl& list, int index);
/// The user adds a line of an open list to what is chosen, by `AddByKey`. False where the box has
/// no such thing.
bool pick_also(ComboBox& box, int index);
/// The user takes the bar to a value from Min to Max.
void scroll(ScrollBar& bar, int value);
/// The user moves the bar by small changes towards its Max (towards its Min when negative), not
/// beyond its ends.
void step(ScrollBar& bar, int steps);

/// Mouse on the inside of a form, in pixels. A press belongs to the topmost object there that takes
/// the mouse, and so do the moves and the release after it, which is how a captured mouse works.
void mouse_press(Form& form, double x, double y, bool modifier, int button = 1);
void mouse_move(Form& form, double x, double y);
void mouse_release(Form& form, double x, double y);
void mouse_double_press(Form& form, double x, double y, bool modifier);
/// The object of a form that takes the mouse at a point, or null for the form itself.
Control* object_at(Form& form, double x, double y);
/// True where nothing stands on a form that would take a drop away from it.
bool takes_drop(Form& form, double x, double y);

/// A control that can be dragged is dropped on a form, at a point inside it in pixels.
void drop(Control& source, Form& form, double x, double y);

/// Files from outside are dropped on a form, wherever on it.
void drop_files(Form& form, std::vector<std::string> const& files);

/// A form takes another outer size or place, in twips.
void resize(Form& form, double width, double height);
void move_form(Form& form, double left, double top);
void set_window_state(Form& form, WindowState state);
/// The form's own close button.
void close(Form& form);
/// A click on the bare form, beside everything that stands in it.
void click_form(Form& form);

/// A menu shortcut; false when no reachable entry has it.
bool shortcut(Form& form, std::string_view keys);

/// A timer's moment has come.
void tick(Timer& timer);

} // namespace input
} // namespace platform
