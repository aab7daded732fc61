// SelectionFrame: what stands around a selected field, and the rubber band; it knows what the mouse
// does with it.
#pragma once

#include "platform/controls.h"

#include <string_view>

namespace kehystin {

/// What the press that is under way will do. A field is sized at one edge, or at two that meet.
enum class Grab : unsigned {
    none = 0,
    move = 1,
    band = 2,    ///< a rubber band is drawn
    through = 4, ///< a field that was pressed through the surface moves
    north = 8,
    south = 16,
    east = 32,
    west = 64,
    north_east = north | east,
    north_west = north | west,
    south_east = south | east,
    south_west = south | west,
};

/// Whether a grab sizes at this edge.
constexpr bool has_edge(Grab grab, Grab edge) {
    return (static_cast<unsigned>(grab) & static_cast<unsigned>(edge)) != 0;
}

class SelectionFrame : public platform::Shape {
  public:
    using Shape::Shape;

    Grab grab() const { return grab_; }
    /// Says it in the Tag, too. `prefix` is the kind's of a field pressed through the surface.
    void set_grab(Grab grab, std::string_view prefix = {});

  private:
    Grab grab_ = Grab::none;
};

} // namespace kehystin
