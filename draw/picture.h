// A form as a picture.
#pragma once

#include "platform/form.h"

#include <QSize>
#include <QString>

#include <optional>

class QIODevice;

namespace draw {

enum class Format { png, svg, pdf };

struct Picture {
    Format format = Format::png;
    double scale = 1; ///< pixels of the picture to one of the form
    int longest = 0;  ///< a PNG is made smaller until its longer side has no more pixels; 0 for any
    QString title = {};

    /// How many pixels the style's small drawings have to one of the form.
    double detail() const;
    /// The pixels that stand in memory for a form of that size: none for a drawing of lines and
    /// letters.
    std::int64_t pixelsOf(QSize form) const;
    /// Paints the form to the end of `to`. False where it takes no more.
    bool write(platform::Form const& form, QSize size, QIODevice& to) const;

  private:
    QSize pixels(QSize form) const;
    bool writePng(platform::Form const& form, QSize size, QIODevice& to) const;
    bool writeSvg(platform::Form const& form, QSize size, QIODevice& to) const;
    bool writePdf(platform::Form const& form, QSize size, QIODevice& to) const;
};

/// "png" and so on; nothing for another word.
std::optional<Format> formatNamed(QStringView word);

} // namespace draw
