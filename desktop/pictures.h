// Picture files: reading them, and drawing what was read.
#pragma once

#include "desktop/colours.h"
#include "platform/drawing.h"

#include <QRectF>

#include <string>

class QPainter;

namespace desktop {

inline constexpr qint64 megapixel = 1'000'000;
/// The most pixels of a picture: a file may claim any size, and more than this is a mistake or an
/// attack. Qt's reader goes by it too, and the help's pictures by Qt's.
inline constexpr qint64 mostPixels = 64 * megapixel;

/// Reads a picture file of any kind that Qt knows, or a metafile; no path gives the empty
/// picture. Raises file_not_found, or invalid_picture with a text that says why: no picture, too
/// large, no converter for its kind. A metafile takes up to two seconds, in which Qt's events pass,
/// but no input of a user.
platform::Picture loadPicture(std::string const& path);
/// By its name: a converter is needed to read it.
bool isMetafile(std::string const& path);
/// What a picture file takes by its own word, in pixels; 0 where it does not say.
qint64 pixelsOf(std::string const& path);

/// Draws a picture at its own size from a corner, or one of the program's own as large as fits the
/// place, in its middle and fit for that ground. An empty picture draws nothing.
void drawPicture(QPainter& painter, platform::Picture const& picture, QRectF const& place,
                 Ground ground);

/// Draws a loaded picture stretched to the place.
void drawStretched(QPainter& painter, platform::Picture const& picture, QRectF const& place);

} // namespace desktop
