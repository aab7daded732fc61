// Texts and values as they may stand in a page, whoever wrote them.
#pragma once

#include "base/colour.h"

#include <string>
#include <string_view>

namespace krt {

namespace base = kehystin::base;

/// A text between tags, or in an attribute with quotes around it. Control characters are blanks,
/// but for line breaks.
std::string html_text(std::string_view utf8);

/// A text with quotes around it, as a style sheet has it.
std::string css_text(std::string_view utf8);

/// "#c0c0c0", or the word that browsers have for a colour of the system.
std::string css_colour(base::Colour colour);

} // namespace krt
