#include "desktop/form_painter.h"

#include "desktop/colours.h"
#include "desktop/control_painter.h"
#include "desktop/drawing_painter.h"
#include "desktop/pictures.h"
#include "desktop/text.h"

#include <QPainter>

namespace desktop {

using platform::ControlClass;

bool isOutline(ControlClass kind) {
    return kind == ControlClass::shape || kind == ControlClass::line;
}

QRect placeOf(platform::Control const& control) {
    if (control.control_class() == ControlClass::line)
        return lineBounds(static_cast<platform::Line const&>(control));
    auto place = rectOf(control);
    // An outline without width or height still shows.
    if (control.control_class() == ControlClass::shape)
        place.setSize(place.size().expandedTo({1, 1}));
    return place;
}

void paintGround(QPainter& painter, platform::Form const& form, QRect const& inside) {
    drawPicture(painter, form.Picture, inside, groundOf(form));
    paintDrawing(painter, form.drawing(), form, toPixels(form, 1));
}

void paintForm(QPainter& painter, platform::Form const& form, QRect const& inside) {
    painter.fillRect(inside, toColour(form.BackColor, groundOf(form)));
    paintGround(painter, form, inside);
    auto const paint = [&](auto const& wanted) {
        for (auto const* const control : form.children())
            if (control->Visible && wanted(control->control_class()))
                paintControl(painter, *control, placeOf(*control));
    };
    paint([](ControlClass kind) { return !isOutline(kind); });
    paint([](ControlClass kind) { return kind == ControlClass::line; });
    paint([](ControlClass kind) { return kind == ControlClass::shape; });
}

} // namespace desktop
