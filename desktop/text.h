// Text between the program (UTF-8) and Qt (UTF-16), and lengths between twips and pixels.
#pragma once

#include "platform/form.h"

#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

namespace desktop {

inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string fromQt(QString const& text) {
    return text.toStdString();
}

inline std::vector<std::string> fromQt(QStringList const& texts) {
    std::vector<std::string> all;
    for (auto const& text : texts)
        all.push_back(fromQt(text));
    return all;
}

/// For a title or an entry: the name of a file may hold line breaks.
inline QString toQtLine(std::string_view text) {
    auto line = toQt(text);
    for (auto& letter : line)
        if (letter.category() == QChar::Other_Control)
            letter = u' ';
    return line;
}

/// Line breaks as Qt draws them.
inline QString toQtLines(std::string_view text) {
    return toQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

/// Qt counts UTF-16 units in a text, the program counts characters.
inline int toCharacters(QString const& text, int units) {
    return static_cast<int>(QStringView(text).left(units).toUcs4().size());
}

inline int toUnits(QString const& text, int characters) {
    int units = 0;
    for (; characters > 0 && units < text.size(); --characters)
        units += text.at(units).isHighSurrogate() ? 2 : 1;
    return units;
}

/// Every pixel is 15 twips, also on a screen whose device pixels are smaller.
inline constexpr double twipsPerPixel = 15;

inline int twipsToPixels(double twips) {
    return static_cast<int>(std::lround(twips / twipsPerPixel));
}

/// A length inside a form, which counts in twips or in pixels.
inline double toPixels(platform::Form const& form, double length) {
    return form.scale() == platform::ScaleMode::pixels ? length : length / twipsPerPixel;
}

/// Where a control stands in its container, in pixels.
inline QRect rectOf(platform::Control const& control) {
    auto const pixels = [&](double length) {
        return static_cast<int>(std::lround(toPixels(control.form(), length)));
    };
    int const left = pixels(control.Left);
    int const top = pixels(control.Top);
    // The far edges are rounded, not the lengths: neighbours that touch in twips touch in pixels.
    return {left, top, pixels(control.Left + control.Width) - left,
            pixels(control.Top + control.Height) - top};
}

} // namespace desktop
