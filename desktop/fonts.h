// Fonts: the program's names and points to Qt's faces and pixels.
#pragma once

#include "platform/drawing.h"

#include <QFont>

#include <string>
#include <string_view>
#include <vector>

namespace desktop {

/// The face for a font of the program, its size in whole pixels at 96 dots an inch. Kept once made.
QFont const& fontFor(platform::Font const& font);

/// The face of menus, boxes, the help and everything else that no control describes: the desktop's,
/// in the program's own family where the desktop names just any.
QFont interfaceFont();
void setInterfaceFont(QFont const& desktop);
/// The same for boxes, which show names of files in any script; finding faces for all of them takes
/// its time.
QFont boxFont();

/// Pixels.
platform::Size measureText(platform::Font const& font, std::string_view text);

/// Every family, by name: the machine's own and those that other faces stand in for.
std::vector<std::string> fontNames();

/// False for no name, one that is too long for a font, and one with control characters.
bool acceptsFontName(std::string_view name);

} // namespace desktop
