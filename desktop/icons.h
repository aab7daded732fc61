// The program's own pictures: SVG sources by name, drawn when first shown.
#pragma once

#include "desktop/colours.h"

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace desktop {

/// The size of nearly all icons, in logical pixels: those of the bars, which are drawn beforehand.
inline constexpr int iconSize = 24;

/// The size that a picture's drawing was made for, in logical pixels.
int drawnSize(QString const& name);

/// The drawing of a picture by its name, `size` logical pixels wide and high, for a screen of this
/// pixel ratio, readable on its ground. "name0" is the grey state of "name". Null for a name
/// without a drawing.
QPixmap iconPixmap(QString const& name, int size, qreal pixelRatio, Ground ground);

/// The icon of the application itself.
QIcon applicationIcon();

} // namespace desktop
