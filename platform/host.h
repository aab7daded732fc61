// Host: everything that needs a real machine. The desktop implements it with Qt, the tests with a
// scripted one; the program asks both in the same words.
#pragma once

#include "platform/base.h"
#include "platform/drawing.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class Control;
class Form;
class Timer;

/// Flags of a message box: buttons, icon and default button are added up.
namespace box {
inline constexpr int ok = 0;
inline constexpr int ok_cancel = 1;
inline constexpr int yes_no_cancel = 3;
inline constexpr int yes_no = 4;
inline constexpr int critical = 16;
inline constexpr int question = 32;
inline constexpr int warning = 48;
inline constexpr int information = 64;
inline constexpr int second_default = 256;
} // namespace box

enum class Answer { ok = 1, cancel = 2, yes = 6, no = 7 };

/// A file dialog's settings, by the platform's names.
struct CommonDialog {
    std::string DefaultExt;
    /// "Text (*.x)|*.x|Text (*.*)|*.*"
    std::string Filter;
    int FilterIndex = 0;
    int Flags = 0;
    /// The folder that the dialog starts in; empty for the one that the last dialog ended in.
    std::string InitDir = {};
};

/// A window's outer place and size, in twips.
struct Bounds {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

/// A part of a form's inside, in pixels.
struct Area {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

struct ScreenMetrics {
    double width = 0;  ///< pixels
    double height = 0; ///< pixels
    double TwipsPerPixelX = 15;
    double TwipsPerPixelY = 15;
    int frame_width = 4;       ///< sizing frame, pixels
    int caption_height = 19;   ///< pixels
    int menu_height = 19;      ///< pixels
    int small_caption = 0;     ///< pixels
    int scroll_bar_width = 16; ///< pixels
};

/// The numbers of the mouse pointer's shapes that the program uses.
namespace pointer {
inline constexpr int normal = 0;
inline constexpr int size_nesw = 6;
inline constexpr int size_ns = 7;
inline constexpr int size_nwse = 8;
inline constexpr int size_we = 9;
inline constexpr int hourglass = 11;
} // namespace pointer

/// Thrown by Host::End and by nothing else: the session is over, and no handler may hold it up.
/// Deliberately not a std::exception, so that nothing that catches failures catches it.
struct SessionEnd {};

class Host {
  public:
    virtual ~Host() = default;

    // Boxes. They return when the user has answered.
    virtual Answer MsgBox(std::string_view text, int flags, std::string_view title) = 0;
    /// What the message boxes that follow are not to cover, as far as the screen has room beside
    /// it; none for no wish. May be ignored.
    virtual void keep_in_sight(std::vector<Control const*>) {}
    /// One line of text; empty when cancelled.
    virtual std::string InputBox(std::string_view prompt, std::string_view title,
                                 std::string_view default_text) = 0;
    /// The chosen path. A cancelled dialog raises `cancelled`.
    virtual std::string ShowOpen(CommonDialog const& dialog) = 0;
    virtual std::string ShowSave(CommonDialog const& dialog) = 0;
    /// A cancelled dialog raises `cancelled`.
    virtual Colour ShowColor(Colour start, int flags) = 0;
    /// Shows a form and returns when it is closing.
    virtual void show_modal(Form& form) = 0;

    // Fonts and pictures.
    virtual std::vector<std::string> fonts() const = 0;
    /// False for a name that the font system cannot take.
    virtual bool accepts_font(std::string_view name) const = 0;
    /// Pixels.
    virtual Size measure_text(Font const& font, std::string_view text) const = 0;
    /// Raises file_not_found, or invalid_picture for a file that cannot be shown; the error's text
    /// says why: no picture, too large, no converter for its kind.
    virtual Picture LoadPicture(std::string const& path) = 0;

    // The machine.
    virtual ScreenMetrics metrics() const = 0;
    /// The size inside a form's frame, caption and menu bar, in twips.
    virtual Size inner_size(Form const& form) const;
    /// What of a form's inside the user sees, in pixels from its corner.
    virtual Area visible_part(Form const& form) const;
    /// Where a form stands, and how large it is, when it is neither maximised nor minimised.
    virtual Bounds normal_bounds(Form const& form) const;
    virtual Date now() const = 0;
    /// The button number 1 of the mouse is down at this moment.
    virtual bool left_button_down() const = 0;
    /// Screen pixels.
    virtual std::pair<double, double> mouse_position() const = 0;
    /// The control that the mouse rests on, or null.
    virtual Control* control_under_mouse() const = 0;
    virtual std::string settings_folder() const = 0;
    virtual std::string program_folder() const = 0;
    /// Where the program keeps what must not be lost; empty where nothing is to be kept.
    virtual std::string state_folder() const { return {}; }
    virtual std::string command_line() const = 0;
    /// Files that the start is to open, each by its name as it stands; none where the command line
    /// says what to do.
    virtual std::vector<std::string> start_files() const { return {}; }
    /// A path that means the same file from any folder. A host without folders gives it as written.
    virtual std::string absolute_path(std::string const& path) const { return path; }
    /// Opens a page of a help file; false when nothing can show it.
    virtual bool open_help(std::string const& file, std::string const& topic) = 0;
    virtual bool open_link(std::string const& target) = 0;

    /// Called before each open, read, write and close of a file; an error raised here is the
    /// operation's own. Lets tests fail any single one.
    virtual void before_file_operation() {}

    /// The same for the operations by which the program keeps what must not be lost.
    virtual void before_rescue_operation() {}
    /// Runs work that touches nothing of the session: in the order in which it comes, on a thread
    /// of its own where the machine has one. It raises nothing.
    virtual void in_background(std::function<void()> const& work) { work(); }
    /// Returns when all of it is done.
    virtual void finish_background() {}

    /// Something failed that is no run-time error of the platform: a fault of the program.
    virtual void unhandled(std::string_view what) = 0;

    // What the host is told. All of these may be ignored.
    virtual void control_changed(Control&) {}
    virtual void control_added(Control&) {}
    virtual void control_removed(Control&) {}
    virtual void focus_changed(Control*) {}
    virtual void pointer_changed(int) {}
    virtual void timer_changed(Timer&) {}

    /// Ends the process's session at once: never returns.
    [[noreturn]] void End();

  protected:
    /// Called by End before everything unwinds.
    virtual void ending() {}
};

/// The host of the running session.
Host& host();

inline Answer MsgBox(std::string_view text, int flags, std::string_view title) {
    return host().MsgBox(text, flags, title);
}
inline std::string InputBox(std::string_view prompt, std::string_view title,
                            std::string_view default_text = {}) {
    return host().InputBox(prompt, title, default_text);
}
inline Picture LoadPicture(std::string const& path) {
    return host().LoadPicture(path);
}

} // namespace platform
