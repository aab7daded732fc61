// The boxes of failed commands.
#pragma once

#include "base/maker.h"
#include "platform/base.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace kehystin {

/// Lines joined by line breaks, without one behind the last. Lines of boxes end in blanks on
/// purpose, and begin with one.
std::string lines(std::initializer_list<std::string_view> parts);

/// "  (6)  Ylivuoto"
std::string number_and_text(platform::RuntimeError const& error);

/// The two closing lines that ask the user to report a failure.
std::string support_lines();
/// The line that names the support address.
std::string support_address_line();

/// The box titled " Tiedoksi": the command's own line, number and text, an extra line if there is
/// one, and the closing lines.
void standard_report(std::string_view line, platform::RuntimeError const& error,
                     std::string_view extra = {});

} // namespace kehystin
