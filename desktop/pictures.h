// Picture files: reading them, and drawing what was read.
#pragma once

#include "platform/drawing.h"

#include <QRectF>

#include <string>

class QPainter;

namespace desktop {

/// Reads a picture file of any kind that Qt knows, or a metafile; no path gives the empty
/// picture. Raises file_not_found, or invalid_picture with a text that says why: no picture, too
/// large, no converter for its kind.
platform::Picture loadPicture(std::string const& path);

/// Draws a picture at its own size from a corner, or one of the program's own as large as fits the
/// place, in its middle. An empty picture draws nothing.
void drawPicture(QPainter& painter, platform::Picture const& picture, QRectF const& place);

/// Draws a loaded picture stretched to the place.
void drawStretched(QPainter& painter, platform::Picture const& picture, QRectF const& place);

} // namespace desktop
