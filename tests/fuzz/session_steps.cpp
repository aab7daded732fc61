#include "tests/fuzz/session_steps.h"

#include "base/errors.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/input.h"
#include "platform/system.h"
#include "tests/faults/failing_memory.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace fuzz {

using namespace kehystin;
namespace input = platform::input;

namespace {

constexpr std::string_view texts[] = {
    "",    "1",    "0",      "25",          "-1",      "300",   "32767",  "99999",
    "1,5", "Nimi", "a|b|c|", "NOLINK",      "Ei",      "Kyllä", "Åäö",    "Tahoma",
    "#",   "  x ", "+",      "Manuaalinen", "0,0,255", "=",     "\u20ac", "[FIELDS]"};
constexpr std::string_view shortcuts[] = {"Ctrl+S", "Ctrl+N", "Ctrl+O", "Delete", "F1",
                                          "F2",     "F3",     "F4",     "F5",     "F6",
                                          "F7",     "F8",     "F9",     "F11",    "F12"};
constexpr platform::Key keys[] = {
    platform::Key::enter, platform::Key::escape,    platform::Key::tab,  platform::Key::back_tab,
    platform::Key::del,   platform::Key::backspace, platform::Key::up,   platform::Key::down,
    platform::Key::left,  platform::Key::right,     platform::Key::home, platform::Key::end};
/// The errors that a disk gives.
constexpr int disk_errors[] = {57, 61, 75, 76, 53};
constexpr int cards = 5;

/// For whoever looks for the cause of a finding: KEHYSTIN_FUZZ_TRACE=1 tells each step.
void trace(char const* what, std::string const& detail) {
    static bool const wanted = std::getenv("KEHYSTIN_FUZZ_TRACE") != nullptr;
    if (wanted)
        std::fprintf(stderr, "%s %s\n", what, detail.c_str());
}

} // namespace

SessionHost::SessionHost(std::string folder, Bytes& bytes)
    : ScriptedHost(folder), folder_(std::move(folder)), bytes_(bytes) {
    on_failure = [](std::string const& what) {
        std::fprintf(stderr, "%s\n", what.c_str());
        std::abort();
    };
}

std::string SessionHost::card_path(int number) const {
    return folder_ + static_cast<char>('a' + number) + ".krt";
}

std::string SessionHost::some_text() {
    if (!bytes_.one_in(4))
        return std::string(bytes_.one_of(texts));
    std::string text;
    for (int i = bytes_.below(12); i > 0; --i)
        text += static_cast<char>(bytes_.between(' ', '~'));
    if (bytes_.one_in(16))
        text.append(500, 'm');
    return text;
}

platform::Answer SessionHost::MsgBox(std::string_view text, int flags, std::string_view title) {
    using platform::Answer;
    faults::Unwatched const own;
    trace("  box", std::string(title) + ": " + std::string(text));
    platform::System::current().about_to_ask();
    boxes.push_back({std::string(title), std::string(text), flags, std::nullopt});
    switch (flags & 7) {
    case platform::box::ok_cancel:
        return bytes_.one_in(4) ? Answer::cancel : Answer::ok;
    case platform::box::yes_no:
        return bytes_.one_in(4) ? Answer::no : Answer::yes;
    case platform::box::yes_no_cancel:
        return bytes_.one_of(std::array{Answer::yes, Answer::no, Answer::cancel});
    default:
        return Answer::ok;
    }
}

std::string SessionHost::InputBox(std::string_view, std::string_view, std::string_view) {
    faults::Unwatched const own;
    return some_text();
}

std::string SessionHost::chosen_path() {
    faults::Unwatched const own;
    platform::System::current().about_to_ask();
    int const choice = bytes_.below(cards + 4);
    if (choice < cards)
        return card_path(choice);
    if (choice == cards)
        throw platform::RuntimeError(platform::ErrorNumber::cancelled);
    if (choice == cards + 1)
        return folder_ + "ei/ole.krt";
    if (choice == cards + 2)
        return folder_ + "windows"; // a folder
    return folder_ + "kuva.bmp";
}

std::string SessionHost::ShowOpen(platform::CommonDialog const&) {
    return chosen_path();
}

std::string SessionHost::ShowSave(platform::CommonDialog const&) {
    return chosen_path();
}

platform::Colour SessionHost::ShowColor(platform::Colour start, int) {
    return bytes_.one_in(2) ? start : bytes_.word();
}

void SessionHost::show_modal(platform::Form& form) {
    faults::Unwatched const own;
    button_down = false;
    for (int i = bytes_.below(16); i > 0 && !form.is_closing() && !bytes_.empty(); --i) {
        try {
            step_on_form(form);
        } catch (platform::InputRefused const&) {
            // Something stood in the way: a user would have noticed.
        }
    }
    std::vector<platform::Button*> ends; // a press may make and take away other controls
    for (auto* const control : form.controls())
        if (auto* const button = dynamic_cast<platform::Button*>(control);
            button && (button->Default || button->Cancel))
            ends.push_back(button);
    for (auto* const button : ends)
        if (!form.is_closing() && (bytes_.one_in(2) ? button->Default : button->Cancel) &&
            button->is_shown() && button->is_enabled())
            input::click(*button);
    if (!form.is_closing())
        form.Close();
}

template <class Class>
Class* SessionHost::reachable(platform::Form& form) {
    auto const& controls = form.controls();
    auto const count = controls.size();
    if (count == 0)
        return nullptr;
    auto const start = static_cast<std::size_t>(bytes_.word()) % count;
    for (std::size_t i = 0; i < count; ++i) {
        auto* const one = dynamic_cast<Class*>(controls[(start + i) % count]);
        if (one && one->is_enabled() && one->is_shown()) {
            trace("  control", one->full_name());
            return one;
        }
    }
    return nullptr;
}

template <class Class>
Class& SessionHost::require(platform::Form& form) {
    auto* const control = reachable<Class>(form);
    if (!control)
        throw platform::InputRefused(); // there is none
    return *control;
}

void SessionHost::wait(int milliseconds) {
    trace("  wait", std::to_string(milliseconds));
    clock.run(milliseconds);
}

/// What a user does in any window.
void SessionHost::step_on_form(platform::Form& form) {
    int const kind = bytes_.below(12);
    trace("  in a window", form.name() + " " + std::to_string(kind));
    switch (kind) {
    case 0:
    case 1:
        return input::click(require<platform::Button>(form));
    case 2:
        return input::click(require<platform::Control>(form));
    case 3: {
        auto& box = require<platform::TextBox>(form);
        input::focus(box);
        box.select_all();
        return input::type(box, some_text());
    }
    case 4: {
        auto& box = require<platform::TextBox>(form);
        input::focus(box);
        return input::paste(box, some_text());
    }
    case 5: {
        auto& list = require<platform::ListControl>(form);
        return input::pick(list, list.ListCount() > 0 ? bytes_.below(list.ListCount()) : 0);
    }
    case 6: {
        auto& bar = require<platform::ScrollBar>(form);
        if (bytes_.one_in(2))
            return input::step(bar, bytes_.between(-3, 3));
        auto const [least, most] = std::minmax({bar.Min.get(), bar.Max.get()});
        return input::scroll(bar, bytes_.between(least, most));
    }
    case 7: {
        auto* const focused = platform::System::current().focused();
        auto const key = bytes_.one_of(keys);
        return input::press(
            focused && &focused->form() == &form ? *focused : static_cast<platform::Control&>(form),
            key);
    }
    case 8:
        input::shortcut(form, bytes_.one_of(shortcuts));
        return;
    case 9:
        return input::double_click(require<platform::Control>(form));
    case 10:
        hover(&require<platform::Control>(form));
        return wait(bytes_.between(1, 600));
    default: {
        auto& control = require<platform::Control>(form);
        input::focus(control);
        return input::type(control, some_text());
    }
    }
}

/// Presses, moves and releases, on their own and in any order that a hand can give them.
void SessionHost::mouse_step() {
    int const kind = bytes_.below(4);
    trace("  mouse", std::to_string(kind));
    bool const inside = !bytes_.one_in(8);
    if (kind != 2) {
        mouse_x_ = bytes_.below(inside ? 256 : 2000) - (inside ? 0 : 500);
        mouse_y_ = bytes_.below(inside ? 256 : 2000) - (inside ? 0 : 500);
    }
    if (kind == 0 && !button_down) {
        button_down = true;
        return input::mouse_press(*fCard, mouse_x_, mouse_y_, bytes_.one_in(4),
                                  bytes_.between(1, 2));
    }
    if (kind == 2 && button_down) {
        button_down = false;
        return input::mouse_release(*fCard, mouse_x_, mouse_y_);
    }
    if (kind == 3 && !button_down)
        return input::mouse_double_press(*fCard, mouse_x_, mouse_y_, bytes_.one_in(4));
    input::mouse_move(*fCard, mouse_x_, mouse_y_);
}

/// A field from one of its nine places to another point, or a band from the bare card.
void SessionHost::drag() {
    if (button_down)
        return mouse_step();
    double x = bytes_.byte();
    double y = bytes_.byte();
    if (card.fields > 0 && !bytes_.one_in(4)) {
        auto const& one = field(bytes_.between(1, card.fields));
        constexpr std::array<double, 3> places = {0.01, 0.5, 0.99};
        x = one.left + one.width * bytes_.one_of(places);
        y = one.top + one.height * bytes_.one_of(places);
    }
    button_down = true;
    input::mouse_press(*fCard, x, y, bytes_.one_in(4));
    for (int i = bytes_.below(3); i >= 0 && fCard; --i) {
        x += bytes_.between(-100, 100);
        y += bytes_.between(-100, 100);
        input::mouse_move(*fCard, x, y);
    }
    mouse_x_ = x;
    mouse_y_ = y;
    if (!bytes_.one_in(8) && fCard) {
        button_down = false;
        input::mouse_release(*fCard, x, y);
    }
}

Step SessionHost::step() {
    struct Recovers {
        ~Recovers() { faults::memory = {}; }
    } const at_the_end_of_the_step;
    faults::memory = {failing_allocation_ != 0, 0, std::exchange(failing_allocation_, 0)};
    auto const step = [&] {
        try {
            return step_on_main_window();
        } catch (platform::InputRefused const&) {
            return Step::other;
        }
    }();
    memory_failed = memory_failed || (faults::memory.watched &&
                                      faults::memory.allocations >= faults::memory.failing);
    return step;
}

void SessionHost::timer_changed(platform::Timer& timer) {
    faults::Unwatched const own;
    ScriptedHost::timer_changed(timer);
}

Step SessionHost::step_on_main_window() {
    int const kind = bytes_.below(32);
    trace("step", std::to_string(kind));
    bool const on_card = session.cardFormLoaded && fCard;
    if (on_card && kind < 12) {
        if (kind < 4) {
            input::drop((*fEditor).*bytes_.one_of(EditorForm::drag_buttons), *fCard, bytes_.byte(),
                        bytes_.byte());
        } else if (kind < 7) {
            drag();
        } else if (kind < 10) {
            mouse_step();
        } else if (kind == 10) {
            input::pick(fEditor->cmb_field, bytes_.between(0, card.fields));
            return Step::chose;
        } else {
            input::resize(*fCard, bytes_.between(0, 20000), bytes_.between(0, 20000));
        }
        return Step::other;
    }
    switch (kind) {
    case 12:
        wait(bytes_.between(1, 1000));
        break;
    case 13:
        if (bytes_.one_in(2)) { // the disk has recovered
            fail_rescue_operation(0, 0);
            rescue_was_failed = false;
        }
        wait(3100);
        return Step::waited;
    case 14:
        input::click(fEditor->cmdTallenna);
        break;
    case 15:
        input::click(fEditor->cmdTallennaNimella);
        break;
    case 16:
        input::click(fEditor->cmd_open);
        break;
    case 17:
        input::click(bytes_.one_in(2) ? fEditor->cmd_new : fEditor->cmd_open);
        break;
    case 18:
        fail_file_operation(bytes_.between(0, 7), bytes_.one_of(disk_errors));
        break;
    case 19:
        fail_rescue_operation(bytes_.between(0, 11), bytes_.one_of(disk_errors));
        rescue_was_failed = true;
        break;
    case 20:
        if (bytes_.one_in(8))
            return Step::killed;
        input::click(require<platform::Menu>(*fEditor));
        break;
    case 21:
        if (bytes_.one_in(4))
            input::close(*fEditor);
        break;
    case 22:
        input::resize(*fEditor, bytes_.between(0, 20000), bytes_.between(0, 16000));
        break;
    case 23:
        // Somebody else writes the file.
        if (bytes_.one_in(2)) {
            std::ifstream from(card_path(bytes_.below(cards)), std::ios::binary);
            std::ofstream to(card_path(bytes_.below(cards)), std::ios::binary);
            if (from && from.peek() != std::ifstream::traits_type::eof())
                to << from.rdbuf();
        }
        break;
    case 24:
        failing_allocation_ = bytes_.between(1, bytes_.one_in(2) ? 100 : 4000); // of the next step
        break;
    case 25:
    case 26:
        input::click(require<platform::Menu>(*fEditor));
        break;
    default:
        step_on_form(*fEditor);
    }
    return Step::other;
}

} // namespace fuzz
