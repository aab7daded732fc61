// Where windows that come up stand on the screen.
#pragma once

#include <QList>
#include <QMargins>
#include <QPoint>
#include <QRect>

class QWidget;

namespace desktop {

/// The part of the screen that windows may cover: the owner's screen, or the first without an
/// owner.
QRect roomFor(QWidget const* owner);

/// What the window manager puts around a window. Before one shows nobody knows: its owner's frame
/// says, or a guess that is no smaller than usual.
QMargins frameFor(QWidget const* owner);

/// Returns when the window manager has given a window that is just coming up its place, or after
/// half a second without one. The user's input waits.
void waitUntilPlaced(QWidget const* window);

/// The top left corner of a window of that size, frame included: inside the room, where it covers
/// fewest of what is to stay in sight, and of such places the nearest to the usual one. What is
/// larger than the room begins where the room does.
QPoint placeInSightOf(QSize size, QRect const& room, QPoint usual, QList<QRect> const& inSight);

/// Place and size, frame included, of a window to be read beside another: as large as wanted or as
/// the room beside the other lets it be, if it can be as large as `least` there; otherwise no wider
/// than half of the room or `least`, where it covers least of the other.
QRect roomBeside(QRect const& other, QRect const& room, QSize wanted, QSize least);

} // namespace desktop
