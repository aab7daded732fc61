// Dragging a control from one window onto another.
#pragma once

#include <QMimeData>

class QWidget;

namespace platform {
class Button;
class Control;
} // namespace platform

namespace desktop {

/// Drags a button's picture, in an outline, with the mouse. Returns when it was dropped or given
/// up.
void dragButton(QWidget& widget, platform::Button& button);

/// The control that a drag of this application carries; null for any other drag.
platform::Control* draggedControl(QMimeData const& data);

} // namespace desktop
