// Colours: the program's numbers as they show on this desktop.
#pragma once

#include "platform/control.h"

#include <QColor>
#include <QPalette>

class QImage;

namespace desktop {

/// What a colour is for. A card's colours are data and the same on every desktop. The program's own
/// surfaces have theirs for a light desktop: on any other, what was light there becomes as light as
/// the desktop's fields, what was dark as dark as its texts, and hues stay.
enum class Ground { card, window };

/// What a control shows its colours on: a card or a sample of one, or a surface of the program.
Ground groundOf(platform::Control const& control);

QColor toColour(platform::Colour colour, Ground ground);

/// The colours that the style paints with.
QPalette const& paletteOf(Ground ground);

/// That palette with a control's own colours: `fore` for its text, `back` for windows, fields and
/// buttons alike.
QPalette paletteFor(platform::Colour fore, platform::Colour back, Ground ground);

/// The palette of the program's own surfaces from that of the desktop, which has no readable
/// texts, frames and states for all of them. A desktop that has not chosen any gets the calm light
/// one.
QPalette windowPalette(QPalette const& desktop, QPalette const& usual);

/// From here on the program's own surfaces have this palette. The widgets are not told.
void setWindowPalette(QPalette const& palette);

/// The style's own frames are darker than what they stand on, which shows on light grounds alone.
bool needsFrames(QPalette const& palette);

/// Counts the palettes that there have been: what was drawn for another is out of date.
int windowPaletteNumber();

/// Redraws a picture of the program's own for a ground.
void fitToGround(QImage& image, Ground ground);

/// How far two colours can be told apart, from 1 to 21; a text wants 4.5, a mark 3.
double contrast(QColor const& one, QColor const& other);

} // namespace desktop
