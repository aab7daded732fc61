// The look that all windows share: style, palette, and the system's colours by number.
#pragma once

#include "platform/base.h"

#include <QColor>
#include <QPalette>

class QApplication;

namespace desktop {

/// Window decoration inside the main window, in pixels. Cards are drawn for these measures: what
/// stands at the edge of one would be cut off by a wider frame.
inline constexpr int frameWidth = 4;
inline constexpr int captionHeight = 19;
inline constexpr int menuHeight = 19;
inline constexpr int scrollBarWidth = 16;
/// The main window's own menu bar is roomier than the number that the program reckons with.
inline constexpr int menuBarHeight = 24;

/// Sets style, palette and font of the application.
void applyLook(QApplication& application);

QColor toColour(platform::Colour colour);

/// The application's palette with a control's own colours: `fore` for its text, `back` for
/// windows, fields and buttons alike.
QPalette paletteFor(platform::Colour fore, platform::Colour back);

} // namespace desktop
