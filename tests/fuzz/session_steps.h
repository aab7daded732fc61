// A user whose every step comes from bytes: on the main window, on the card, in dialogs and boxes.
#pragma once

#include "tests/fuzz/bytes.h"
#include "tests/scenario/scripted_host.h"

#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

/// Kinds of step that the checks after it tell apart.
enum class Step { other, chose, waited, killed };

/// The scripted host with a user of bytes before it.
class SessionHost : public scenario::ScriptedHost {
  public:
    /// `folder` ends with its separator. The bytes must outlive the host.
    SessionHost(std::string folder, Bytes& bytes);

    /// One step of the user. Raises SessionEnd where it ended the session.
    Step step();
    /// Whether an operation of the rescue has been made to fail in this session.
    bool rescue_was_failed = false;
    /// Whether the memory has run out in this session.
    bool memory_failed = false;
    std::string card_path(int number) const;

    platform::Answer MsgBox(std::string_view text, int flags, std::string_view title) override;
    std::string InputBox(std::string_view prompt, std::string_view title,
                         std::string_view default_text) override;
    std::string ShowOpen(platform::CommonDialog const& dialog) override;
    std::string ShowSave(platform::CommonDialog const& dialog) override;
    platform::Colour ShowColor(platform::Colour start, int flags) override;
    void show_modal(platform::Form& form) override;
    void timer_changed(platform::Timer& timer) override;

  private:
    Step step_on_main_window();
    void step_on_form(platform::Form& form);
    void mouse_step();
    void drag();
    void wait(int milliseconds);
    std::string chosen_path();
    std::string some_text();
    /// A control of the form that a user could reach, of a class if one is given; null without.
    template <class Class>
    Class* reachable(platform::Form& form);
    template <class Class>
    Class& require(platform::Form& form);

    std::string folder_;
    Bytes& bytes_;
    int failing_allocation_ = 0; ///< of the next step, 0 for none
    double mouse_x_ = 0;
    double mouse_y_ = 0;
};

} // namespace fuzz
