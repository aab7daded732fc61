// SVG files from anywhere, looked at before they are drawn.
#pragma once

#include <QString>

namespace draw {

/// An SVG file that is not packed, of a modest size, and that shows itself alone: one that names
/// or holds pictures, or names style sheets, would take files from where it points and any memory.
bool standsAlone(QString const& path);

} // namespace draw
