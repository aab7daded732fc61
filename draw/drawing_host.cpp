#include "draw/drawing_host.h"

#include "desktop/fonts.h"
#include "desktop/look.h"
#include "desktop/pictures.h"
#include "platform/form.h"

#include <QDateTime>

namespace draw {

using platform::ErrorNumber;
using platform::RuntimeError;

namespace {

[[noreturn]] void cancel() {
    throw RuntimeError(ErrorNumber::cancelled);
}

} // namespace

platform::Answer DrawingHost::MsgBox(std::string_view text, int flags, std::string_view) {
    lastBox_ = text;
    constexpr int buttons = 7; // of a box's flags
    return (flags & buttons) == platform::box::ok ? platform::Answer::ok : platform::Answer::yes;
}

std::string DrawingHost::InputBox(std::string_view, std::string_view, std::string_view) {
    return {};
}

std::string DrawingHost::ShowOpen(platform::CommonDialog const&) {
    cancel();
}

std::string DrawingHost::ShowSave(platform::CommonDialog const&) {
    cancel();
}

platform::Colour DrawingHost::ShowColor(platform::Colour, int) {
    cancel();
}

bool DrawingHost::accepts_font(std::string_view name) const {
    return desktop::acceptsFontName(name);
}

platform::Size DrawingHost::measure_text(platform::Font const& font, std::string_view text) const {
    return desktop::measureText(font, text);
}

platform::Picture DrawingHost::readPicture(std::string const& path) {
    auto const require = [&](std::int64_t pixels) {
        if (pixels > most_ - taken_)
            throw RuntimeError(ErrorNumber::invalid_picture,
                               "Kuva on liian suuri, kortin kuvissa saa olla yhteensä " +
                                   std::to_string(most_ / desktop::megapixel) + " megapikseliä");
    };
    require(desktop::pixelsOf(path));
    auto picture = desktop::loadPicture(path);
    auto const size = picture.size();
    auto const pixels = static_cast<std::int64_t>(size.width * size.height);
    require(pixels);
    taken_ += pixels;
    return picture;
}

platform::Picture DrawingHost::LoadPicture(std::string const& path) {
    auto const known = pictures_.find(path);
    if (known != pictures_.end())
        return known->second;
    try {
        return pictures_[path] = readPicture(path);
    } catch (RuntimeError const& error) {
        hasLeftOut_ = true;
        complain_("kuvaa " + path + " ei voi näyttää: " + error.text());
        throw;
    }
}

platform::ScreenMetrics DrawingHost::metrics() const {
    platform::ScreenMetrics metrics;
    metrics.frame_width = desktop::frameWidth;
    metrics.caption_height = desktop::captionHeight;
    metrics.menu_height = desktop::menuHeight;
    metrics.scroll_bar_width = desktop::scrollBarWidth;
    return metrics;
}

platform::Date DrawingHost::now() const {
    auto const date = QDate::currentDate();
    return platform::to_date({date.year(), date.month(), date.day()});
}

void DrawingHost::unhandled(std::string_view what) {
    lastBox_ = what;
}

} // namespace draw
