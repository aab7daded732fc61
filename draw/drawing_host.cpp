#include "draw/drawing_host.h"

#include "desktop/fonts.h"
#include "desktop/look.h"
#include "desktop/pictures.h"
#include "desktop/text.h"
#include "draw/foreign_svg.h"
#include "platform/form.h"

#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>

namespace draw {

using platform::ErrorNumber;
using platform::RuntimeError;

namespace {

[[noreturn]] void cancel() {
    throw RuntimeError(ErrorNumber::cancelled);
}

/// What a picture file takes at most, by its own word, in pixels of four bytes; 0 where it does not
/// say. Raises invalid_picture where its word is worth nothing.
std::int64_t pixelsOf(std::string const& path) {
    auto const file = desktop::toQt(path);
    if (!QFileInfo(file).isFile())
        return 0;
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    // Of a drawing the size alone would already read all that it names.
    if (reader.format().startsWith("svg") && !standsAlone(file))
        throw RuntimeError(ErrorNumber::invalid_picture,
                           "SVG-kuva on pakattu, liian suuri tai vaatii muita tiedostoja");
    auto const size = reader.size();
    if (!size.isValid())
        return 0;
    constexpr int usual = 32; // bits of a pixel
    int const bits = QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel();
    // It stands in memory as it was until it has been turned into the usual.
    int const times = bits > usual ? 1 + (bits + usual - 1) / usual : 1;
    return std::int64_t{size.width()} * size.height() * times;
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
    require(pixelsOf(path));
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
    auto const refused = refused_.find(path);
    if (refused != refused_.end())
        throw refused->second;
    try {
        return pictures_[path] = readPicture(path);
    } catch (RuntimeError const& error) {
        refused_.emplace(path, error);
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
