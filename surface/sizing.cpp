#include "surface/sizing.h"

#include "forms/card_form.h"
#include "model/card.h"
#include "platform/system.h"

namespace kehystin {

namespace {

/// The numbers in which the kinds of object differ. They are settled one by one: the wide far zone
/// of the text-like kinds answers their sunken borders, the large smallest drag of check and option
/// keeps them from being sized below their mark, and zones at press and hover are not the same.
struct Zones {
    double near_press; ///< pixels, as all zones
    double far_press;
    double near_hover_top_left; ///< of x, for the top left corner
    double far_hover_side;
    double smallest; ///< the smallest size that a drag may give, in the event's unit
    double unit;     ///< event units per pixel
};

Zones zones_of(Style style) {
    switch (style) {
    case Style::CHK:
        return {5, 5, 5, 4, 210, twips_per_pixel};
    case Style::OPT:
        return {5, 5, 4, 4, 210, twips_per_pixel};
    case Style::TXT:
    case Style::STX:
    case Style::LST:
        return {4, 8, 4, 8, 30, twips_per_pixel};
    case Style::IMG: // its events count in pixels
        return {4, 4, 4, 4, 2, 1};
    case Style::OTS:
    case Style::CMB: // has no mouse
        break;
    }
    return {4, 4, 4, 4, 30, twips_per_pixel};
}

constexpr double corner_hover = 4;     // pixels, in all kinds
constexpr double near_bottom_left = 2; // the narrowest zone, in all kinds, at press and hover

/// A point over an object, with the object's size, in pixels.
struct Spot {
    double x, y, width, height;

    Spot(Control const& object, Zones const& zones, MouseArguments const& mouse)
        : x(mouse.X / zones.unit),
          y(mouse.Y / zones.unit),
          width(object.Width),
          height(object.Height) {}

    bool right_of(double zone) const { return x > width - zone; }
    bool below(double zone) const { return y > height - zone; }
};

Zones zones_of_field(int number) {
    return zones_of(field(number).kind()->style);
}

} // namespace

Grab grab_at(int number, MouseArguments const& mouse) {
    auto const zones = zones_of_field(number);
    Spot const spot(*fCard->visual_of(number), zones, mouse);
    double const near = zones.near_press;
    double const far = zones.far_press;
    if (spot.x < near && spot.y < near)
        return Grab::north_west;
    if (spot.right_of(far) && spot.below(far))
        return Grab::south_east;
    if (spot.right_of(far) && spot.y < near)
        return Grab::north_east;
    if (spot.x < near_bottom_left && spot.below(far))
        return Grab::south_west;
    if (spot.x < near)
        return Grab::west;
    if (spot.right_of(far))
        return Grab::east;
    if (spot.y < near)
        return Grab::north;
    if (spot.below(far))
        return Grab::south;
    return Grab::move;
}

int pointer_at(int number, MouseArguments const& mouse) {
    auto const zones = zones_of_field(number);
    Spot const spot(*fCard->visual_of(number), zones, mouse);
    bool const right = spot.right_of(corner_hover);
    bool const below = spot.below(corner_hover);
    if ((spot.x < zones.near_hover_top_left && spot.y < corner_hover) || (right && below))
        return pointer::size_nwse;
    if ((right && spot.y < corner_hover) || (spot.x < near_bottom_left && below))
        return pointer::size_nesw;
    if (spot.x < corner_hover || spot.right_of(zones.far_hover_side))
        return pointer::size_we;
    if (spot.y < corner_hover || spot.below(zones.far_hover_side))
        return pointer::size_ns;
    return pointer::normal;
}

bool stretch(int number, MouseArguments const& mouse) {
    auto const zones = zones_of_field(number);
    auto& frame = fCard->focus(number);
    auto const& object = *fCard->visual_of(number);
    Spot const spot(object, zones, mouse);
    double const smallest = zones.smallest;
    bool const west = has_edge(frame.grab(), Grab::west);
    bool const east = has_edge(frame.grab(), Grab::east);
    bool const north = has_edge(frame.grab(), Grab::north);
    bool const south = has_edge(frame.grab(), Grab::south);
    if ((west && mouse.X > spot.width * zones.unit - smallest) || (east && mouse.X < smallest) ||
        (north && mouse.Y > spot.height * zones.unit - smallest) || (south && mouse.Y < smallest))
        return false;
    if (west) {
        frame.Left = object.Left + spot.x - 1;
        frame.Width = object.Left - frame.Left + spot.width + 2;
    }
    if (north) {
        frame.Top = object.Top + spot.y - 1;
        frame.Height = object.Top - frame.Top + spot.height + 2;
    }
    // Without the frame's two pixels: the field comes out that much smaller than the pointer shows.
    if (east)
        frame.Width = spot.x;
    if (south)
        frame.Height = spot.y;
    return true;
}

Integer twips_at(int number, double position) {
    return Integer(position * (twips_per_pixel / zones_of_field(number).unit));
}

} // namespace kehystin
