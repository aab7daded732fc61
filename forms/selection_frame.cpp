#include "forms/selection_frame.h"

namespace kehystin {

namespace {

std::string_view tag_of(Grab grab, std::string_view prefix) {
    switch (grab) {
    case Grab::none:
        return "";
    case Grab::move:
        return "MoveField";
    case Grab::band:
        return "FocusFields";
    case Grab::through:
        return prefix;
    case Grab::north:
        return "ScaleField_N";
    case Grab::south:
        return "ScaleField_S";
    case Grab::east:
        return "ScaleField_E";
    case Grab::west:
        return "ScaleField_W";
    case Grab::north_east:
        return "ScaleField_NE";
    case Grab::north_west:
        return "ScaleField_NW";
    case Grab::south_east:
        return "ScaleField_SE";
    case Grab::south_west:
        return "ScaleField_SW";
    }
    return "";
}

} // namespace

void SelectionFrame::set_grab(Grab grab, std::string_view prefix) {
    grab_ = grab;
    Tag = std::string(tag_of(grab, prefix));
}

} // namespace kehystin
