// The look that all windows share: style, palette and fonts.
#pragma once

class QApplication;
class QFont;
class QPalette;

namespace desktop {

/// Window decoration inside the main window, in pixels. Cards are drawn for these measures: what
/// stands at the edge of one would be cut off by a wider frame.
inline constexpr int frameWidth = 4;
inline constexpr int captionHeight = 19;
inline constexpr int menuHeight = 19;
inline constexpr int scrollBarWidth = 16;
/// The main window's own menu bar is roomier than the number that the program reckons with, and as
/// high as the desktop's font needs.
int menuBarHeight();

/// Sets style, palette and font of the application, and follows those of the desktop from then on.
void applyLook(QApplication& application);

/// Puts on what a desktop wears: its colours, and its font for menus, boxes and the help.
void dress(QPalette const& colours, QFont const& font);

} // namespace desktop
