#include "desktop/keyboard.h"

#include "desktop/text.h"
#include "platform/input.h"
#include "platform/system.h"

#include <QKeySequence>
#include <QWidget>

namespace desktop {

namespace {

/// The control of the form with the keyboard, or the form itself.
platform::Control& focusedIn(platform::Form& form) {
    auto* const focused = platform::System::current().focused();
    return focused && &focused->form() == &form ? *focused : form;
}

} // namespace

bool sendDialogKey(platform::Form& form, EventGate& gate, QKeyEvent const& event) {
    bool const enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (!enter && event.key() != Qt::Key_Escape)
        return false;
    auto const key = enter ? platform::Key::enter : platform::Key::escape;
    gate.run([&] { platform::input::press(focusedIn(form), key); });
    return true;
}

bool sendFunctionKey(platform::Form& form, EventGate& gate, QKeyEvent const& event) {
    if (event.key() < Qt::Key_F1 || event.key() > Qt::Key_F12)
        return false;
    auto const keys = fromQt(QKeySequence(event.keyCombination()).toString());
    gate.run([&] { platform::input::shortcut(form, keys); });
    return true;
}

void showFocusIn(QWidget& window, bool shows) {
    if (window.testAttribute(Qt::WA_KeyboardFocusChange) == shows)
        return;
    window.setAttribute(Qt::WA_KeyboardFocusChange, shows);
    if (auto* const focused = window.focusWidget())
        focused->update();
}

bool showsFocus(QWidget const& widget) {
    return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

bool sendBarKey(platform::Form& form, EventGate& gate, QKeyEvent const& event) {
    auto const modifiers = event.modifiers() & ~Qt::ShiftModifier;
    if (event.key() != Qt::Key_F6 || modifiers != Qt::ControlModifier)
        return false;
    int const step = event.modifiers() & Qt::ShiftModifier ? -1 : 1;
    gate.run([&] { platform::input::walk_bars(form, step); });
    return true;
}

bool walkFocus(platform::Form& form, EventGate& gate, bool next) {
    auto& from = focusedIn(form);
    gate.run([&] {
        if (&from != &form)
            return platform::input::walk_focus(from, next ? 1 : -1);
        if (form.kind() == platform::FormKind::main)
            return platform::input::walk_bars(form, next ? 1 : -1);
        for (auto* const control : form.tab_order())
            if (control->can_take_focus())
                return platform::input::focus(*control);
    });
    return true;
}

} // namespace desktop
