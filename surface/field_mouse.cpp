#include "surface/field_mouse.h"

#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "mainwindow/status_bar.h"
#include "model/session.h"
#include "platform/system.h"
#include "surface/drag.h"
#include "surface/selection.h"
#include "surface/sizing.h"

namespace kehystin {

namespace {

void press(int number, MouseArguments const& mouse) {
    bool const was_selected = fCard->is_selected(number);
    if (mouse.Shift == 0)
        zip_focus();
    fCard->focus(number).set_grab(was_selected ? grab_at(number, mouse) : Grab::move);
    set_focus(number);
    fCard->grabX = twips_at(number, mouse.X);
    fCard->grabY = twips_at(number, mouse.Y);
}

void drag(int number, MouseArguments const& mouse) {
    if (fCard->focus(number).grab() == Grab::move) {
        move_focus(twips_at(number, mouse.X), twips_at(number, mouse.Y));
        return;
    }
    if (stretch(number, mouse) && fEditor->stsBar.Visible)
        upd_sts();
}

} // namespace

void field_MouseDown(int index, MouseArguments const& mouse) {
    if (session.pro_updating)
        return;
    drag_step([&] { press(index, mouse); });
}

void field_MouseMove(int index, MouseArguments const& mouse) {
    if (session.pro_updating || !fCard->is_selected(index))
        return;
    if (fCard->focus(index).grab() != Grab::none) {
        drag_step([&] { drag(index, mouse); });
        return;
    }
    System::current().set_MousePointer(pointer_at(index, mouse));
}

void field_MouseUp(int index, MouseArguments const&) {
    if (session.pro_updating || !fCard->focus.has(index) ||
        fCard->focus(index).grab() == Grab::none)
        return;
    drag_step([&] {
        move_fields();
        fCard->focus(index).set_grab(Grab::none);
    });
}

} // namespace kehystin
