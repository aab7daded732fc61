#include "tests/scenario/scripted_host.h"

#include "disk/disk.h"
#include "platform/base.h"
#include "platform/form.h"
#include "platform/system.h"
#include "tests/scenario/pictures.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace scenario {

using platform::Answer;
using platform::ErrorNumber;
using platform::RuntimeError;

namespace {

constexpr int buttons_of_flags = 7;

bool has_button(int flags, Answer answer) {
    switch (flags & buttons_of_flags) {
    case platform::box::ok:
        return answer == Answer::ok;
    case platform::box::ok_cancel:
        return answer == Answer::ok || answer == Answer::cancel;
    case platform::box::yes_no:
        return answer == Answer::yes || answer == Answer::no;
    case platform::box::yes_no_cancel:
        return answer != Answer::ok;
    default:
        return false;
    }
}

std::string in_quotes(std::string_view text) {
    return "\"" + platform::Replace(text, platform::line_break, "\\n") + "\"";
}

struct Writer {
    std::string operator()(Answer answer) const {
        switch (answer) {
        case Answer::ok:
            return "answer ok";
        case Answer::cancel:
            return "answer cancel";
        case Answer::yes:
            return "answer yes";
        case Answer::no:
            return "answer no";
        }
        return "answer";
    }
    std::string operator()(InputAnswer const& answer) const {
        return "input " + (answer.text ? in_quotes(*answer.text) : "cancel");
    }
    std::string operator()(FileAnswer const& answer) const {
        return "file " + (answer.path ? in_quotes(*answer.path) : "cancel");
    }
    std::string operator()(ColourAnswer const& answer) const {
        return "color " + (answer.colour ? std::to_string(*answer.colour) : "cancel");
    }
};

double center_of(platform::Control const& control,
                 platform::Property<double> platform::Control::*place,
                 platform::Property<double> platform::Control::*size, double unit) {
    double center = control.*size / 2;
    for (auto const* at = &control; at != &control.form(); at = at->container())
        center += at->*place;
    return center * unit;
}

} // namespace

std::string written(ScriptedAnswer const& answer) {
    return std::visit(Writer{}, answer);
}

ScriptedHost::ScriptedHost(std::string folder)
    : font_names{"Arial", "Courier New", "MS Sans Serif", "Tahoma", "Times New Roman"},
      folder_(std::move(folder)) {
    clock.set(platform::to_date({2004, 5, 17, 9, 30}));
}

void ScriptedHost::fail(std::string const& what) const {
    if (on_failure) {
        on_failure(what);
        std::abort();
    }
    throw std::logic_error(what);
}

template <class Kind>
Kind ScriptedHost::take_answer(std::string const& box) {
    auto const found =
        std::find_if(answers.begin(), answers.end(), [](ScriptedAnswer const& answer) {
            return std::holds_alternative<Kind>(answer);
        });
    if (found == answers.end())
        fail("expected an answer, found none for the " + box);
    auto const taken = std::get<Kind>(*found);
    answers.erase(found);
    return taken;
}

Answer ScriptedHost::MsgBox(std::string_view text, int flags, std::string_view title) {
    platform::System::current().about_to_ask();
    if (on_box)
        on_box();
    boxes.push_back({std::string(title), std::string(text), flags, std::nullopt});
    auto const box =
        "box " + in_quotes(title) + " (flags " + std::to_string(flags) + "): " + in_quotes(text);
    auto const answer = take_answer<Answer>(box);
    if (!has_button(flags, answer))
        fail("expected the answer of a button on the " + box + ", found `" + written(answer) + "`");
    return answer;
}

std::string ScriptedHost::InputBox(std::string_view prompt, std::string_view title,
                                   std::string_view default_text) {
    platform::System::current().about_to_ask();
    boxes.push_back(
        {std::string(title), std::string(prompt), std::nullopt, std::string(default_text)});
    auto const box = "input box " + in_quotes(title) + ": " + in_quotes(prompt);
    return take_answer<InputAnswer>(box).text.value_or("");
}

std::string ScriptedHost::file_dialog_answer(platform::CommonDialog const& dialog) {
    platform::System::current().about_to_ask();
    file_dialog = dialog;
    auto const answer = take_answer<FileAnswer>("file dialog " + in_quotes(dialog.Filter));
    if (!answer.path)
        throw RuntimeError(ErrorNumber::cancelled);
    return *answer.path;
}

std::string ScriptedHost::ShowOpen(platform::CommonDialog const& dialog) {
    return file_dialog_answer(dialog);
}

std::string ScriptedHost::ShowSave(platform::CommonDialog const& dialog) {
    return file_dialog_answer(dialog);
}

platform::Colour ScriptedHost::ShowColor(platform::Colour, int) {
    platform::System::current().about_to_ask();
    auto const answer = take_answer<ColourAnswer>("colour dialog");
    if (!answer.colour)
        throw RuntimeError(ErrorNumber::cancelled);
    return *answer.colour;
}

void ScriptedHost::show_modal(platform::Form& form) {
    if (!on_modal)
        fail("expected no modal form, found " + form.name());
    on_modal(form);
}

bool ScriptedHost::accepts_font(std::string_view name) const {
    return std::find(font_names.begin(), font_names.end(), name) != font_names.end();
}

platform::Size ScriptedHost::measure_text(platform::Font const& font, std::string_view text) const {
    // Six tenths by way of a whole number, so that a half is a half.
    double const character = platform::round_to_even(font.size * 6 / 10) + (font.bold ? 1 : 0);
    double const line = platform::round_to_even(font.size * 1.5);
    platform::Size size;
    for (;;) {
        auto const end = std::min(text.find(platform::line_break), text.size());
        auto const characters = static_cast<double>(platform::Len(text.substr(0, end)));
        size.width = std::max(size.width, character * characters);
        size.height += line;
        if (end == text.size())
            return size;
        text.remove_prefix(end + platform::line_break.size());
    }
}

platform::Picture ScriptedHost::LoadPicture(std::string const& path) {
    if (path.empty())
        return {};
    if (!disk::is_there(path))
        throw RuntimeError(ErrorNumber::file_not_found);
    std::ifstream file(disk::path_of(path), std::ios::binary);
    std::ostringstream bytes;
    if (!(bytes << file.rdbuf()))
        throw RuntimeError(file.is_open() ? ErrorNumber::invalid_picture
                                          : ErrorNumber::path_file_access);
    auto const size = picture_size(bytes.view());
    if (!size)
        throw RuntimeError(ErrorNumber::invalid_picture);
    return platform::Picture::loaded(path, *size, std::make_shared<platform::Size>(*size));
}

platform::ScreenMetrics ScriptedHost::metrics() const {
    platform::ScreenMetrics metrics;
    metrics.width = screen.width;
    metrics.height = screen.height;
    return metrics;
}

platform::Control* ScriptedHost::control_under_mouse() const {
    return hovered_ && hovered_->is_shown() ? hovered_ : nullptr;
}

std::pair<double, double> ScriptedHost::mouse_position() const {
    if (!hovered_)
        return {0, 0};
    auto const& form = hovered_->form();
    auto const screen_metrics = metrics();
    double const twips = screen_metrics.TwipsPerPixelX;
    double const unit = form.scale() == platform::ScaleMode::pixels ? 1 : 1 / twips;
    double x = form.Left / twips + screen_metrics.frame_width +
               center_of(*hovered_, &platform::Control::Left, &platform::Control::Width, unit);
    double y = form.Top / twips + screen_metrics.frame_width + screen_metrics.caption_height +
               center_of(*hovered_, &platform::Control::Top, &platform::Control::Height, unit);
    if (form.kind() == platform::FormKind::main)
        y += screen_metrics.menu_height;
    return {x, y};
}

bool ScriptedHost::open_help(std::string const& file, std::string const& topic) {
    opened = "help " + file + " " + topic;
    return true;
}

bool ScriptedHost::open_link(std::string const& target) {
    opened = "link " + target;
    return opens_links;
}

void ScriptedHost::fail_file_operation(int number, int error) {
    file_failure_ = {number, error};
}

void ScriptedHost::fail_rescue_operation(int number, int error) {
    rescue_failure_ = {number, error};
}

void ScriptedHost::Failure::count() {
    if (operations > 0 && --operations == 0)
        throw RuntimeError(error);
}

void ScriptedHost::before_file_operation() {
    file_failure_.count();
}

void ScriptedHost::before_rescue_operation() {
    rescue_failure_.count();
}

void ScriptedHost::unhandled(std::string_view what) {
    fail("unhandled exception: " + std::string(what));
}

void ScriptedHost::control_removed(platform::Control& control) {
    clock.forget(control);
    if (hovered_ == &control)
        hovered_ = nullptr;
}

} // namespace scenario
