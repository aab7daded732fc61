#include "dialogs/header_band.h"

#include "forms/dialog_layout.h"

namespace kehystin {

void paint_header_band(Form& form, Label& label) {
    constexpr Colour edge = system_colour(16);
    constexpr double pixel = 15;
    constexpr double text_height = 240;
    double const width = form.Width;
    form.Cls();
    form.DrawFilledBox(0, 0, width, layout::header_band - pixel, colours::white);
    form.DrawLine(0, layout::header_band - pixel, width, layout::header_band - pixel, edge);
    label.BackStyle = static_cast<int>(BackStyle::transparent);
    label.FontSize = 9;
    label.FontBold = true;
    label.Move(layout::gap, (layout::header_band - text_height) / 2, width - 2 * layout::margin,
               text_height);
}

} // namespace kehystin
