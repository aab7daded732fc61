// The visual objects of the fields: how a record of each kind looks on the surface.
#pragma once

#include "card/kinds.h"
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

/// Bring the object of a field, and its frame where it has a share in it, in line with the record.
/// A field without an object is passed over.
void show_place(int number);
void show_font(int number);
void show_fore_color(int number);
/// With the transparency of titles. An image gets its own colour.
void show_background(int number);
/// An image takes the colour of a transparent card, or its own back. A loaded one has its own until
/// the card is made transparent.
void show_image_background(int number);
void show_caption(int number);
void show_value(int number);
/// Text fields take no more characters than the field's size.
void show_size_limit(int number);
void show_align(int number);
void show_border(int number);
/// The rows of a drop-down and the chosen one.
void show_list(int number);

/// True for a font that objects take and a record can name.
bool is_usable_font(std::string const& name);

/// The height that a drop-down takes from its font, in pixels.
double drop_down_height(platform::TextControl const& box);

/// Put tick and dot back to what the record says.
void restore_check(int number);
void restore_option(int number);

/// True for title, check and option fields of a transparent card, which take the card's colour.
bool shows_card_colour(Kind const& kind);

} // namespace kehystin
