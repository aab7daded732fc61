#include "surface/frames.h"

#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/session.h"

namespace kehystin {

namespace {

Colour frame_colour() {
    return session.fieldsLocked ? colours::white : colours::red;
}

} // namespace

void add_frame(int number) {
    fCard->focus.Load(number).BorderColor = frame_colour();
    fCard->place_frame(number);
}

void show_lock_state() {
    fEditor->pic_lock.Visible = static_cast<bool>(session.fieldsLocked);
    if (!session.cardFormLoaded)
        return;
    auto const colour = frame_colour();
    fCard->bigfocus.BorderColor = colour;
    for (int i = 0; i <= card.fields; ++i)
        if (fCard->focus.has(i))
            fCard->focus(i).BorderColor = colour;
}

void cmd_lock_Click() {
    session.fieldsLocked = !session.fieldsLocked;
    fEditor->cmd_lock.Checked = static_cast<bool>(session.fieldsLocked);
    show_lock_state();
}

void unlock_fields() {
    session.fieldsLocked = true;
    cmd_lock_Click();
}

} // namespace kehystin
