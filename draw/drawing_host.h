// DrawingHost: a machine on which nobody sits. Nothing is shown, and every question is answered
// with yes.
#pragma once

#include "platform/host.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace draw {

class DrawingHost : public platform::Host {
  public:
    /// Told of each picture that is left out: one line of Finnish.
    using Complaint = std::function<void(std::string const& what)>;
    explicit DrawingHost(Complaint complain) : complain_(std::move(complain)) {}

    /// The pictures of a card have so many pixels together; one that is too much is left out.
    void setMostPixels(std::int64_t pixels) { most_ = pixels; }
    bool hasLeftOut() const { return !refused_.empty(); }
    /// What the last box said; empty without one.
    std::string const& lastBox() const { return lastBox_; }

    platform::Answer MsgBox(std::string_view text, int flags, std::string_view title) override;
    std::string InputBox(std::string_view prompt, std::string_view title,
                         std::string_view default_text) override;
    std::string ShowOpen(platform::CommonDialog const& dialog) override;
    std::string ShowSave(platform::CommonDialog const& dialog) override;
    platform::Colour ShowColor(platform::Colour start, int flags) override;
    void show_modal(platform::Form&) override {}

    std::vector<std::string> fonts() const override { return {}; }
    bool accepts_font(std::string_view name) const override;
    platform::Size measure_text(platform::Font const& font, std::string_view text) const override;
    /// A picture that several fields show is read, and told, once.
    platform::Picture LoadPicture(std::string const& path) override;

    platform::ScreenMetrics metrics() const override;
    platform::Date now() const override;
    bool left_button_down() const override { return false; }
    std::pair<double, double> mouse_position() const override { return {}; }
    platform::Control* control_under_mouse() const override { return nullptr; }
    std::string settings_folder() const override { return {}; }
    std::string program_folder() const override { return {}; }
    std::string command_line() const override { return {}; }
    bool open_help(std::string const&, std::string const&) override { return false; }
    bool open_link(std::string const&) override { return false; }
    void unhandled(std::string_view what) override;

  private:
    platform::Picture readPicture(std::string const& path);

    Complaint complain_;
    std::int64_t most_ = 0;
    std::int64_t taken_ = 0;
    std::map<std::string, platform::Picture> pictures_;
    std::map<std::string, platform::RuntimeError> refused_;
    std::string lastBox_;
};

} // namespace draw
