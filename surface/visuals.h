// The visual objects of the fields: how a record of each kind looks on the surface.
#pragma once

#include "model/kinds.h"
#include "platform/controls.h"

#include <string>

namespace kehystin {

/// Makes the object of a field and gives it look, place and content of the record. Trims the texts
/// of the record that it reads.
void build_visual(Kind const& kind, int number);

/// Makes the object of a field that was just dropped on the card. It differs from a loaded one on
/// purpose: a text field has the limit of its size, an image an underlined caption and the card's
/// colour where the card is transparent, and a file list another sample line.
void build_dropped_visual(Kind const& kind, int number);

/// The height that a drop-down takes from its font, in pixels.
double drop_down_height(platform::TextControl const& box);

/// Put tick and dot back to what the record says.
void restore_check(int number);
void restore_option(int number);

/// True for title, check and option fields of a transparent card, which take the card's colour.
bool shows_card_colour(Kind const& kind);

/// Writes a field's caption in the middle of a picture object, which is cleared first.
void print_image_text(platform::PictureBox& picture, int number);

/// Asks for a picture file and shows it in an image field: its path goes to `list`, the file's name
/// to the panel. A cancelled dialog changes nothing; a file that is no picture is told, and field
/// and picture stay as they were.
void load_image(int number);

/// Paints an object's own picture over its whole size.
void paint_stretched(platform::PictureBox& picture);

} // namespace kehystin
