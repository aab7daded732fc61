// ScriptedHost: a machine without a screen. Boxes take their answers from a queue, the clock stands
// until it is told to run, text has simple measures, and what was shown can be asked afterwards.
#pragma once

#include "platform/host.h"
#include "tests/scenario/scripted_clock.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace scenario {

/// An answer waiting for its box. Nothing inside stands for a cancelled box.
struct InputAnswer {
    std::optional<std::string> text;
};
struct FileAnswer {
    std::optional<std::string> path;
};
struct ColourAnswer {
    std::optional<platform::Colour> colour;
};
using ScriptedAnswer = std::variant<platform::Answer, InputAnswer, FileAnswer, ColourAnswer>;

/// An answer as a scenario writes it.
std::string written(ScriptedAnswer const& answer);

/// A message or input box that was shown. Only a message box has flags, only an input box a
/// default text.
struct ShownBox {
    std::string title;
    std::string text;
    std::optional<int> flags;
    std::optional<std::string> default_text;
};

class ScriptedHost : public platform::Host {
  public:
    /// Settings and program folder are "windows/" and "program/" inside `folder`, which ends with
    /// its separator.
    explicit ScriptedHost(std::string folder = "./");

    // What the machine is like. Anyone may change it at any time.
    platform::Size screen{1280, 1024}; ///< pixels
    std::vector<std::string> font_names;
    std::string arguments; ///< the command line
    bool opens_links = true;
    bool button_down = false; ///< the left button of the mouse
    ScriptedClock clock;

    /// What boxes and dialogs answer: each takes the first that is of its kind.
    std::deque<ScriptedAnswer> answers;
    /// All message and input boxes so far.
    std::vector<ShownBox> boxes;
    /// The file dialog shown last.
    std::optional<platform::CommonDialog> file_dialog;
    /// "help FILE TOPIC" or "link TARGET": what was opened last.
    std::string opened;

    /// The mouse rests on a control, or on nothing.
    void hover(platform::Control* control) { hovered_ = control; }
    /// The file operation with that number, counted from 1 and from now on, raises the error.
    void fail_file_operation(int number, int error);
    /// The same for the operations that keep work from being lost.
    void fail_rescue_operation(int number, int error);

    /// What the user does while a modal form is open; it has to close the form. Without this a
    /// modal form is a failure.
    std::function<void(platform::Form&)> on_modal;
    /// Called while a message box stands, before it is answered.
    std::function<void()> on_box;
    /// Called for an unexpected box and for a fault of the program; must not return. Without this
    /// std::logic_error is thrown.
    std::function<void(std::string const&)> on_failure;

    platform::Answer MsgBox(std::string_view text, int flags, std::string_view title) override;
    std::string InputBox(std::string_view prompt, std::string_view title,
                         std::string_view default_text) override;
    std::string ShowOpen(platform::CommonDialog const& dialog) override;
    std::string ShowSave(platform::CommonDialog const& dialog) override;
    platform::Colour ShowColor(platform::Colour start, int flags) override;
    void show_modal(platform::Form& form) override;

    std::vector<std::string> fonts() const override { return font_names; }
    /// True for the names of the list, letter for letter.
    bool accepts_font(std::string_view name) const override;
    /// A character is 0.6 sizes wide and a line 1.5 sizes high; bold adds a pixel a character.
    platform::Size measure_text(platform::Font const& font, std::string_view text) const override;
    platform::Picture LoadPicture(std::string const& path) override;

    platform::ScreenMetrics metrics() const override;
    platform::Date now() const override { return clock.now(); }
    bool left_button_down() const override { return button_down; }
    /// The middle of what the mouse rests on.
    std::pair<double, double> mouse_position() const override;
    /// Null for a control that has been hidden under the mouse.
    platform::Control* control_under_mouse() const override;
    std::string settings_folder() const override { return folder_ + "windows/"; }
    std::string program_folder() const override { return folder_ + "program/"; }
    std::string state_folder() const override { return folder_ + "state/"; }
    std::string command_line() const override { return arguments; }
    bool open_help(std::string const& file, std::string const& topic) override;
    bool open_link(std::string const& target) override;

    void before_file_operation() override;
    void before_rescue_operation() override;
    void unhandled(std::string_view what) override;
    void control_removed(platform::Control& control) override;
    void timer_changed(platform::Timer& timer) override { clock.start(timer); }

  private:
    [[noreturn]] void fail(std::string const& what) const;
    /// Takes the next answer of the kind that the box asks for. `box` describes the box.
    template <class Kind>
    Kind take_answer(std::string const& box);
    std::string file_dialog_answer(platform::CommonDialog const& dialog);

    std::string folder_;
    platform::Control* hovered_ = nullptr;
    /// Counts down to the operation that fails.
    struct Failure {
        int operations = 0;
        int error = 0;
        void count();
    };
    Failure file_failure_;
    Failure rescue_failure_;
};

} // namespace scenario
