// A host without a screen that answers every box yes and every dialog with cancel.
#pragma once

#include "platform/base.h"
#include "platform/host.h"
#include "platform/input.h"

#include <cstdlib>

namespace kehystin {

class FuzzHost : public platform::Host {
  public:
    using Size = platform::Size;

    platform::Answer MsgBox(std::string_view, int flags, std::string_view) override {
        // Every box must be answered by a button that it has.
        return (flags & 7) == platform::box::yes_no ? platform::Answer::yes : platform::Answer::ok;
    }
    std::string InputBox(std::string_view, std::string_view, std::string_view) override {
        return {};
    }
    std::string ShowOpen(platform::CommonDialog const&) override { return cancelled(); }
    std::string ShowSave(platform::CommonDialog const&) override { return cancelled(); }
    platform::Colour ShowColor(platform::Colour start, int) override { return start; }
    /// A dialog is closed by its OK at once.
    void show_modal(platform::Form& form) override {
        if (auto* const ok = form.find("cmd_ok"))
            platform::input::click(*ok);
    }
    std::vector<std::string> fonts() const override { return {"MS Sans Serif"}; }
    bool accepts_font(std::string_view name) const override { return name == "MS Sans Serif"; }
    Size measure_text(platform::Font const&, std::string_view text) const override {
        return {5.0 * static_cast<double>(text.size()), 12};
    }
    platform::Picture LoadPicture(std::string const&) override {
        throw platform::RuntimeError(platform::ErrorNumber::invalid_picture);
    }
    platform::ScreenMetrics metrics() const override {
        platform::ScreenMetrics screen;
        screen.width = 1280;
        screen.height = 1024;
        return screen;
    }
    platform::Date now() const override { return 38124; }
    bool left_button_down() const override { return false; }
    std::pair<double, double> mouse_position() const override { return {0, 0}; }
    platform::Control* control_under_mouse() const override { return nullptr; }
    std::string settings_folder() const override { return "./"; }
    std::string program_folder() const override { return "./"; }
    std::string command_line() const override { return {}; }
    bool open_help(std::string const&, std::string const&) override { return false; }
    bool open_link(std::string const&) override { return false; }
    /// Nothing but run-time errors may come out of the program.
    void unhandled(std::string_view) override { std::abort(); }

  private:
    [[noreturn]] static std::string cancelled() {
        throw platform::RuntimeError(platform::ErrorNumber::cancelled);
    }
};

} // namespace kehystin
