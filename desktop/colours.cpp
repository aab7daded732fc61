#include "desktop/colours.h"

#include "platform/form.h"

#include <QImage>

#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

using Role = QPalette::ColorRole;

constexpr double readable = 4.5; // contrast of a text
constexpr double visible = 3.5;  // and of a mark
/// Of a desktop with black and white alone: its frames are as strong as its texts.
constexpr double highest = 19;

QColor const face(240, 240, 240);
QColor const text(25, 28, 33);
QColor const shadow(176, 180, 186);
QColor const accent(47, 111, 191);

QPalette calmPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, face);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(246, 247, 249));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, face);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Light, Qt::white);
    palette.setColor(QPalette::Midlight, QColor(228, 231, 235));
    palette.setColor(QPalette::Mid, QColor(206, 214, 224));
    palette.setColor(QPalette::Dark, shadow);
    palette.setColor(QPalette::Shadow, QColor(120, 126, 134));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::ToolTipBase, QColor(255, 255, 231));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, QColor(130, 135, 142));
    for (auto const role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(150, 154, 160));
    palette.setColor(QPalette::Disabled, QPalette::Base, face);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, shadow);
    return palette;
}

QPalette const& calm() {
    static auto const palette = calmPalette();
    return palette;
}

struct Window {
    QPalette palette = calm();
    bool isCalm = true;
    int number = 0;
};

Window& window() {
    static Window one;
    return one;
}

/// `share` of the way from one colour to another.
QColor between(QColor const& from, QColor const& to, double share) {
    auto const mixed = [share](int one, int other) {
        return static_cast<int>(std::lround(one + (other - one) * share));
    };
    return {mixed(from.red(), to.red()), mixed(from.green(), to.green()),
            mixed(from.blue(), to.blue())};
}

double luminance(QColor const& colour) {
    auto const linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// A colour, or where it could not be made out on its ground one further towards `ink`.
QColor madeOut(QColor const& colour, QColor const& ground, QColor const& ink, double wanted) {
    for (double share = 0; share < 1; share += 0.1)
        if (auto const tried = between(colour, ink, share); contrast(tried, ground) >= wanted)
            return tried;
    return ink;
}

/// One ink must do for everything that the program writes, be it on a window or in a field.
QPalette withOneInk(QPalette palette) {
    auto const ink = palette.color(QPalette::WindowText);
    auto const ground = palette.color(QPalette::Window);
    for (auto const& [role, inkRole] : {std::pair(QPalette::Base, QPalette::Text),
                                        std::pair(QPalette::Button, QPalette::ButtonText),
                                        std::pair(QPalette::ToolTipBase, QPalette::ToolTipText)}) {
        bool const fits = contrast(ink, palette.color(role)) >= readable &&
                          contrast(palette.color(inkRole), ground) >= readable &&
                          contrast(palette.color(inkRole), palette.color(role)) >= readable;
        if (fits)
            continue;
        palette.setColor(role, between(ground, ink, 0.05));
        palette.setColor(inkRole, ink);
    }
    return palette;
}

/// What lies between window and text: frames, hovered and pressed grounds, what is off.
QPalette withShades(QPalette palette) {
    auto const ground = palette.color(QPalette::Window);
    auto const ink = palette.color(QPalette::WindowText);
    auto const base = palette.color(QPalette::Base);
    bool const strong = contrast(ground, ink) >= highest;
    palette.setColor(QPalette::Light, between(ground, ink, 0.06));
    palette.setColor(QPalette::Midlight, between(ground, ink, 0.1));
    palette.setColor(QPalette::Mid, between(ground, ink, 0.18));
    palette.setColor(QPalette::Dark, strong ? ink : between(ground, ink, 0.35));
    palette.setColor(QPalette::Shadow, strong ? ink : between(ground, ink, 0.55));
    palette.setColor(QPalette::AlternateBase, between(base, ink, 0.04));
    auto const pale = between(ground, ink, strong ? 0.65 : 0.5);
    palette.setColor(QPalette::PlaceholderText, pale);
    for (auto const role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, pale);
    palette.setColor(QPalette::Disabled, QPalette::Base, ground);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, between(ground, ink, 0.35));
    return palette;
}

/// What is chosen, and links.
QPalette withAccents(QPalette palette) {
    auto const ink = palette.color(QPalette::WindowText);
    auto base = palette.color(QPalette::Base);
    if (auto const window = palette.color(QPalette::Window);
        contrast(window, ink) < contrast(base, ink))
        base = window; // the harder ground of the two
    auto const chosen = madeOut(palette.color(QPalette::Highlight), base, ink, visible);
    auto chosenInk = palette.color(QPalette::HighlightedText);
    if (contrast(chosenInk, chosen) < visible)
        chosenInk =
            contrast(Qt::black, chosen) > contrast(Qt::white, chosen) ? Qt::black : Qt::white;
    for (auto const group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Highlight, chosen);
        palette.setColor(group, QPalette::HighlightedText, chosenInk);
    }
    for (auto const role : {QPalette::Link, QPalette::LinkVisited})
        palette.setColor(role, madeOut(palette.color(role), base, ink, readable));
    return palette;
}

/// The palette's own colour by a system colour's number. Those that are not listed are the face of
/// windows and bars.
QColor systemColour(int number, Ground ground) {
    auto const& palette = paletteOf(ground);
    switch (number) {
    case 2: // active caption
        return palette.color(QPalette::Mid);
    case 5: // window
        return palette.color(QPalette::Base);
    case 6:  // window frame
    case 21: // dark shadow
        return palette.color(QPalette::Shadow);
    case 7:  // menu text
    case 8:  // window text
    case 9:  // caption text
    case 18: // button text
        return palette.color(QPalette::WindowText);
    case 12: // application workspace
        return ground == Ground::card || window().isCalm
                   ? QColor(171, 177, 186)
                   : between(palette.color(QPalette::Window), Qt::black, 0.3);
    case 13: // highlight
        return palette.color(QPalette::Highlight);
    case 14: // highlighted text
        return palette.color(QPalette::HighlightedText);
    case 16: // button shadow
        return palette.color(QPalette::Dark);
    case 17: // grey text
        return palette.color(QPalette::Disabled, QPalette::WindowText);
    case 20: // button highlight
        return palette.color(QPalette::Light);
    case 22: // button light
        return palette.color(QPalette::Midlight);
    case 23: // tooltip text
        return palette.color(QPalette::ToolTipText);
    case 24: // tooltip
        return palette.color(QPalette::ToolTipBase);
    default:
        return palette.color(QPalette::Window);
    }
}

/// Light as it was between the desktop's text and its fields, and of its own hue.
class Fitting {
  public:
    Fitting()
        : ink_(window().palette.color(QPalette::Text)),
          base_(window().palette.color(QPalette::Base)),
          turns_(luminance(base_) < luminance(ink_)) {}

    QColor operator()(QColor const& colour) const {
        auto const grey = between(ink_, base_, colour.lightnessF());
        int const level = static_cast<int>(std::lround(colour.lightnessF() * 255));
        auto const tinted = [level](int part, int greyPart) {
            return std::clamp(greyPart + part - level, 0, 255);
        };
        return {tinted(colour.red(), grey.red()), tinted(colour.green(), grey.green()),
                tinted(colour.blue(), grey.blue())};
    }
    /// A drawing keeps its colours where light stays light.
    bool turns() const { return turns_; }

  private:
    QColor ink_;
    QColor base_;
    bool turns_;
};

} // namespace

double contrast(QColor const& one, QColor const& other) {
    auto const light = luminance(one);
    auto const otherLight = luminance(other);
    return (std::max(light, otherLight) + 0.05) / (std::min(light, otherLight) + 0.05);
}

Ground groundOf(platform::Control const& control) {
    if (control.form().kind() == platform::FormKind::child)
        return Ground::card;
    auto const* const shows = dynamic_cast<platform::TextControl const*>(&control);
    return shows && shows->is_sample ? Ground::card : Ground::window;
}

QColor toColour(platform::Colour colour, Ground ground) {
    auto const bits = static_cast<std::uint32_t>(colour);
    if (bits & 0x80000000U)
        return systemColour(static_cast<int>(bits & 0xffU), ground);
    QColor const given(static_cast<int>(bits & 0xffU), static_cast<int>((bits >> 8) & 0xffU),
                       static_cast<int>((bits >> 16) & 0xffU));
    if (ground == Ground::card || window().isCalm)
        return given;
    return given == accent ? window().palette.color(QPalette::Link) : Fitting()(given);
}

QPalette const& paletteOf(Ground ground) {
    return ground == Ground::card ? calm() : window().palette;
}

QPalette paletteFor(platform::Colour fore, platform::Colour back, Ground ground) {
    auto palette = paletteOf(ground);
    auto const foreColour = toColour(fore, ground);
    auto const backColour = toColour(back, ground);
    for (auto const role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Active, role, foreColour);
    for (auto const role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Inactive, role, foreColour);
    for (auto const role : {QPalette::Window, QPalette::Base})
        palette.setColor(role, backColour);
    if (back != platform::system_colour(15)) // the face of buttons is the palette's own affair
        palette.setColor(QPalette::Button, backColour);
    return palette;
}

QPalette windowPalette(QPalette const& desktop, QPalette const& usual) {
    constexpr Role telling[] = {QPalette::Window,    QPalette::WindowText, QPalette::Base,
                                QPalette::Text,      QPalette::Button,     QPalette::ButtonText,
                                QPalette::Highlight, QPalette::ToolTipBase};
    bool const chosen = std::any_of(std::begin(telling), std::end(telling), [&](Role role) {
        return desktop.color(role) != usual.color(role);
    });
    bool const dark =
        luminance(desktop.color(QPalette::Window)) < luminance(desktop.color(QPalette::WindowText));
    if (!chosen && !dark)
        return calm();
    return withAccents(withShades(withOneInk(desktop)));
}

void setWindowPalette(QPalette const& palette) {
    auto& now = window();
    if (palette == now.palette)
        return;
    now.isCalm = palette == calm();
    now.palette = palette;
    ++now.number;
}

bool needsFrames(QPalette const& palette) {
    return !window().isCalm &&
           palette.color(QPalette::Dark) == window().palette.color(QPalette::Dark);
}

int windowPaletteNumber() {
    return window().number;
}

void fitToGround(QImage& image, Ground ground) {
    Fitting const fit;
    if (ground == Ground::card || window().isCalm || !fit.turns())
        return;
    for (int y = 0; y < image.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            if (auto colour = QColor::fromRgb(qUnpremultiply(line[x])); qAlpha(line[x]) != 0) {
                auto const fitted = fit(colour).rgb();
                line[x] = qPremultiply(
                    qRgba(qRed(fitted), qGreen(fitted), qBlue(fitted), qAlpha(line[x])));
            }
    }
}

} // namespace desktop
