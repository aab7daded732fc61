// Picture files as the scripted host knows them: by their first bytes, and only their size.
#pragma once

#include "platform/drawing.h"

#include <optional>
#include <string>
#include <string_view>

namespace scenario {

/// The size in pixels that a picture file's bytes tell; nothing for bytes that are no picture.
std::optional<platform::Size> picture_size(std::string_view bytes);

/// The bytes of a picture of that size, of the kind that the file name's extension tells: a whole
/// .bmp, and the head of a .gif, .jpg, .ico or .wmf. Nothing for another extension, and for a
/// size that the kind cannot have.
std::optional<std::string> picture_bytes(std::string_view file_name, int width, int height);

} // namespace scenario
