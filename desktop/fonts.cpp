#include "desktop/fonts.h"

#include "desktop/text.h"
#include "platform/base.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QStringList>

#include <algorithm>
#include <array>
#include <deque>
#include <utility>

namespace desktop {

namespace {

/// Cards come with font names of other machines. These faces are as wide as those they stand in
/// for, or nearest to it, so that what fits a field there fits it here.
struct StandIn {
    char const* name;
    char const* face;
};
constexpr std::array standIns = {
    StandIn{"Arial", "Liberation Sans"},
    StandIn{"Courier New", "Liberation Mono"},
    StandIn{"MS Sans Serif", "Liberation Sans"},
    StandIn{"Tahoma", "Liberation Sans"},
    StandIn{"Times New Roman", "Liberation Serif"},
};

QFont makeFont(platform::Font const& font) {
    QFont made;
    auto const name = toQt(font.name);
    // Letters of the code page stand side by side as they are; shaping them would only take time.
    int strategy = QFont::PreferNoShaping;
    auto family = name;
    for (auto const& [known, face] : standIns)
        if (name.compare(QLatin1String(known), Qt::CaseInsensitive) == 0) {
            strategy |= QFont::NoFontMerging; // these faces have the whole code page
            if (!QFontDatabase::hasFamily(name))
                family = QLatin1String(face);
        }
    made.setFamily(family);
    made.setStyleStrategy(static_cast<QFont::StyleStrategy>(strategy));
    made.setPixelSize(std::max(1, static_cast<int>(std::lround(font.size * 96 / 72))));
    made.setBold(font.bold);
    made.setItalic(font.italic);
    made.setUnderline(font.underline);
    return made;
}

struct Face {
    platform::Font described;
    QFont font;
    QFontMetricsF metrics;
};

Face const& faceFor(platform::Font const& font) {
    static std::deque<Face> made;
    for (auto const& face : made)
        if (face.described == font)
            return face;
    constexpr std::size_t enough = 200;
    if (made.size() == enough)
        made.pop_front();
    auto const qtFont = makeFont(font);
    return made.emplace_back(Face{font, qtFont, QFontMetricsF(qtFont)});
}

platform::Font& interfaceFace() {
    static platform::Font face{"MS Sans Serif", 9, false, false, false};
    return face;
}

} // namespace

QFont const& fontFor(platform::Font const& font) {
    return faceFor(font).font;
}

QFont interfaceFont() {
    return fontFor(interfaceFace());
}

void setInterfaceFont(QFont const& desktop) {
    auto& face = interfaceFace();
    face = {};
    auto const family = desktop.family();
    // Names of no face in particular; the last two are those of Windows.
    constexpr std::array generic = {QLatin1String("Sans"), QLatin1String("Sans Serif"),
                                    QLatin1String("MS Shell Dlg"), QLatin1String("MS Shell Dlg 2")};
    bool const any =
        family.isEmpty() || std::find(generic.begin(), generic.end(), family) != generic.end();
    face.name = any ? "MS Sans Serif" : fromQt(family);
    face.size = desktop.pointSizeF() > 0 ? desktop.pointSizeF() : desktop.pixelSize() * 72.0 / 96;
    face.bold = desktop.bold();
    face.italic = desktop.italic();
}

QFont boxFont() {
    auto font = interfaceFont();
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

platform::Size measureText(platform::Font const& font, std::string_view text) {
    auto const& metrics = faceFor(font).metrics;
    return {metrics.horizontalAdvance(toQt(text)), metrics.height()};
}

std::vector<std::string> fontNames() {
    auto families = QFontDatabase::families();
    for (auto const& [name, face] : standIns)
        if (!families.contains(QLatin1String(name)))
            families.append(QLatin1String(name));
    families.sort(Qt::CaseInsensitive);
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(families.size()));
    for (auto const& family : std::as_const(families))
        names.push_back(fromQt(family));
    return names;
}

bool acceptsFontName(std::string_view name) {
    return platform::is_font_name(name);
}

} // namespace desktop
