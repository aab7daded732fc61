// The pictures of image fields: loading, scaling, and the caption that stands where there is none.
#pragma once

#include "platform/base.h"
#include "platform/controls.h"

#include <string>

namespace kehystin {

using namespace platform;

/// Fills the object of an image field from its record, as on loading the card.
void fill_image(int number);

/// Writes a field's caption in the middle of a picture object, which is cleared first.
void print_image_text(PictureBox& picture, int number);

/// Paints an object's own picture over its whole size.
void paint_stretched(PictureBox& picture);

/// What depends on size and look of an image field is done again: its caption, or a stretched
/// picture. Does nothing for fields of other kinds.
void refresh_image(int number);

/// True when the file of an image field can be read as a picture.
bool has_readable_picture(int number);

/// Loads the picture of an image field anew and shows it by the field's scaling, in the record's
/// size but where the frame follows the picture. Without a readable picture the caption stands.
void show_scaled(int number);

/// The field has no picture any more: its caption stands.
void remove_image(int number);

/// Asks for a picture file; empty when the user chose none.
std::string choose_picture();

/// The box for a file that is no picture.
void report_unreadable_picture(RuntimeError const& error);

/// Asks for a picture file and shows it in an image field: its path goes to `list`, the file's name
/// to the panel. A cancelled dialog changes nothing; a file that is no picture is told, and field
/// and picture stay as they were. True when the field has the new picture.
bool load_image(int number);

} // namespace kehystin
