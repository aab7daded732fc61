// What a screen reader finds on a card: the canvas, and on it each control that its form tells in
// words. Nothing of it is made before somebody asks.
#pragma once

#include <QAccessible>

namespace desktop {

class CardCanvas;

/// From now on Qt finds what stands on a CardCanvas. Once is enough; more does no harm.
void letCardsSpeak();

/// Tells those who listen what has changed on a card since the last time: objects that have come
/// or gone, their names, places and states. For use while accessibility is active.
void tellChanges(CardCanvas& canvas,
                 void (*tell)(QAccessibleEvent* event) = &QAccessible::updateAccessibility);

} // namespace desktop
