#include "forms/dialog_layout.h"

namespace kehystin {

void set_inner_size(Form& form, double width, double height) {
    constexpr double frame = 45;    // on each side of a window that cannot be sized
    constexpr double caption = 285; // above its inside
    form.Width = width + 2 * frame;
    form.Height = height + 2 * frame + caption;
}

void place_buttons(std::initializer_list<Button*> right, Button* left, double inner_width,
                   double inner_height) {
    using namespace layout;
    double const top = inner_height - margin - button_height;
    auto const count = static_cast<double>(right.size());
    double place = inner_width - margin - count * button_width - (count - 1) * gap;
    for (auto* const button : right) {
        button->Move(place, top, button_width, button_height);
        place += button_width + gap;
    }
    if (left)
        left->Move(margin, top, button_width, button_height);
}

} // namespace kehystin
