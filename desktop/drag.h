// Dragging a control from one window onto another.
#pragma once

#include <QMimeData>
#include <QStringList>

class QDrag;
class QWidget;

namespace platform {
class Button;
class Control;
} // namespace platform

namespace desktop {

/// A drag of the button, ready to run: an outline as large as what will be dropped follows the
/// pointer, where it would come to stand. Qt deletes the drag when it has ended, and the widget
/// deletes one that never ran.
QDrag* makeDrag(QWidget& widget, platform::Button& button);

/// The files of this machine that a drag from outside brings; none for any other drag.
QStringList draggedFiles(QMimeData const& data);

/// The control that a drag of this application carries; null for any other drag, and when the
/// control has gone meanwhile.
platform::Control* draggedControl(QMimeData const& data);

} // namespace desktop
