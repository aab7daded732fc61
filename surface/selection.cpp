#include "surface/selection.h"

#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "mainwindow/command_state.h"
#include "model/card.h"
#include "model/session.h"
#include "panel/selection_rows.h"
#include "platform/host.h"
#include "platform/system.h"
#include "surface/drag.h"

#include <cmath>

namespace kehystin {

namespace {

/// The lowest field at a point whose kind is pressed through the surface, 0 without one.
int field_pressed_through_surface(double x, double y) {
    for (int i = 1; i <= card.fields; ++i) {
        auto const* const object = fCard->visual_of(i);
        if (object && field(i).kind()->pressed_through && object->covers(x, y))
            return i;
    }
    return 0;
}

void press_field(int number, MouseArguments const& mouse) {
    fCard->bigfocus.set_grab(Grab::through, field(number).kind()->prefix);
    set_focus(number);
    fCard->grabX = Integer(mouse.X);
    fCard->grabY = Integer(mouse.Y);
}

void begin_band(MouseArguments const& mouse) {
    fCard->bandX = Integer(mouse.X);
    fCard->bandY = Integer(mouse.Y);
    fCard->bigfocus.Move(mouse.X, mouse.Y);
    fCard->bigfocus.set_grab(Grab::band);
}

void stretch_band(MouseArguments const& mouse) {
    auto& band = fCard->bigfocus;
    auto const across = Integer(mouse.X - fCard->bandX);
    auto const down = Integer(mouse.Y - fCard->bandY);
    band.Move(across > 0 ? double(fCard->bandX) : mouse.X,
              down > 0 ? double(fCard->bandY) : mouse.Y, std::abs(across), std::abs(down));
    band.Visible = true;
    band.bring_to_front();
    System::current().set_MousePointer(pointer::size_nwse);
}

/// The band's box in whole pixels. Touching it is enough to be caught.
struct Box {
    int left, top, right, bottom;

    explicit Box(SelectionFrame const& band)
        : left(Integer(band.Left.get())),
          top(Integer(band.Top.get())),
          right(left + Integer(band.Width.get())),
          bottom(top + Integer(band.Height.get())) {}

    bool touches(Field const& one) const {
        // Wider than 16 bits: a field at the end of the range can still be caught and brought back.
        int const field_right = int{one.left} + int{one.width};
        int const field_bottom = int{one.top} + int{one.height};
        return field_right >= left && one.left <= right && field_bottom >= top && one.top <= bottom;
    }
};

/// Selects what the band touches. What it does not touch stays selected with a modifier held.
/// Returns how many fields it caught.
int select_by_band(bool keep_others) {
    Box const box(fCard->bigfocus);
    int caught = 0;
    for (int i = 1; i <= card.fields; ++i) {
        if (!fCard->focus.has(i))
            continue;
        auto& frame = fCard->focus(i);
        if (box.touches(field(i))) {
            frame.Visible = true;
            frame.bring_to_front();
            ++caught;
        } else if (!keep_others) {
            frame.Visible = false;
        }
    }
    fCard->bigfocus.Visible = false;
    return caught;
}

void select_card() {
    fEditor->cmb_field.ListIndex = 0;
    fEditor->focusTimer.Enabled = true;
    using enum Code;
    UpdateCommandState(keep, off, off, off, off, keep);
}

void release_on_surface(MouseArguments const& mouse) {
    auto& band = fCard->bigfocus;
    System::current().set_MousePointer(pointer::normal);
    bool const moved_field = band.grab() == Grab::through;
    band.set_grab(Grab::none);
    if (moved_field) {
        move_fields();
        return;
    }
    int const caught = band.Visible ? select_by_band(mouse.Shift != 0) : 0;
    if (caught == 0)
        select_card();
    else
        set_pro();
}

} // namespace

void set_focus(int index) {
    auto& frame = fCard->focus(index);
    frame.Visible = true;
    frame.bring_to_front();
    set_pro();
}

void add_to_selection(int number) {
    if (!session.pro_updating && number >= 1 && number <= card.fields)
        set_focus(number);
}

void zip_focus() {
    for (int i = 0; i <= card.fields; ++i) {
        if (!fCard->focus.has(i))
            continue;
        fCard->focus(i).Visible = false;
        fCard->focus(i).set_grab(Grab::none);
        if (i > 0)
            fCard->place_frame(i);
    }
    fCard->bigfocus.Visible = false;
    fCard->bigfocus.set_grab(Grab::none);
}

void Form_MouseDown(int, MouseArguments const& mouse) {
    if (session.pro_updating)
        return;
    drag_step([&] {
        if (mouse.Shift == 0)
            zip_focus();
        if (int const number = field_pressed_through_surface(mouse.X, mouse.Y))
            press_field(number, mouse);
        else
            begin_band(mouse);
    });
}

void Form_MouseMove(int, MouseArguments const& mouse) {
    if (session.pro_updating)
        return;
    drag_step([&] {
        if (fCard->bigfocus.grab() == Grab::band)
            stretch_band(mouse);
        else if (fCard->bigfocus.grab() == Grab::through)
            move_frames_on_surface(mouse);
        else
            System::current().set_MousePointer(pointer::normal);
    });
}

void Form_MouseUp(int, MouseArguments const& mouse) {
    if (session.pro_updating)
        return;
    drag_step([&] { release_on_surface(mouse); });
}

} // namespace kehystin
