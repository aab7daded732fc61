// Files that are given to the program rather than chosen in it: several on the command line, or
// dropped on the main window. One card is open at a time.
#pragma once

#include <string>
#include <vector>

namespace kehystin {

/// The first one that is no folder; empty where there is none.
std::string first_file(std::vector<std::string> const& given);

/// A box about the ones that first_file leaves, or about folders that are no cards; nothing where
/// one file was given.
void tell_of_others(std::vector<std::string> const& given);

/// Opens the first file by session.startFile and the open command, with its question, then tells of
/// the others.
void open_given_files(std::vector<std::string> const& given);

} // namespace kehystin
