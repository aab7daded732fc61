// How a dialog lives: made, shown until it closes, and gone, whatever happens meanwhile.
#pragma once

#include "dialogs/help.h"
#include "forms/editor_form.h"
#include "platform/system.h"

#include <functional>
#include <memory>

namespace kehystin {

/// What a box has just refused is mended here: the text has the keyboard and is selected whole.
inline void lead_back_to(platform::TextBox& text) {
    text.SetFocus();
    text.select_all();
}

/// Makes the form of a dialog, lets `load` wire and fill it, and shows it until it is closed.
template <class DialogForm>
void show_dialog(std::unique_ptr<DialogForm>& form, std::function<void()> const& load) {
    struct Release {
        std::unique_ptr<DialogForm>& form;
        ~Release() { form.reset(); }
    } const release{form};
    form = std::make_unique<DialogForm>();
    form->KeyDown = help_KeyDown;
    load();
    form->ShowModal();
    // A list that was open went when the dialog came: its row gets the keyboard.
    auto const& system = platform::System::current();
    if (!system.focused() && !system.active_modal())
        fEditor->focusTimer.Enabled = true;
}

} // namespace kehystin
