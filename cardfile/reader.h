// Reads a card file into the open card, with the questions and messages that reading brings up.
#pragma once

#include <string>

namespace kehystin {

/// True when the records hold a card to show. False when the file was not read or the user gave up:
/// the records are then as they were.
///
/// All questions and messages are its own. Changes testFont's font name along the way.
bool ReadCardFile(std::string const& path);

} // namespace kehystin
