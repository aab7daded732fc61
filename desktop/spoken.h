// How screen readers come to what a widget says of itself.
#pragma once

#include <QAccessible>

namespace desktop {

/// From now on Qt finds widgets of a class by an interface of our own. Once is enough; more does no
/// harm.
template <class Widget, class Spoken>
void letSpeak() {
    QAccessible::installFactory([](QString const&, QObject* object) -> QAccessibleInterface* {
        auto* const widget = dynamic_cast<Widget*>(object);
        return widget ? new Spoken(*widget) : nullptr;
    });
}

} // namespace desktop
