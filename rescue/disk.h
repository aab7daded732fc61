// Bytes on the disk, by the system's calls: what must be certain of them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rescue {

/// True for anything of that name, whatever it is, and where the system cannot tell.
bool is_there(std::string const& path);

/// The whole of a regular file; nothing for anything else, or one that cannot be read.
std::optional<std::string> bytes_on_disk(std::string const& path);

/// True for a file that may be written, perhaps, but that this user may not read.
bool is_closed_to_reading(std::string const& path);

/// True for something that is there and is no regular file: a folder, a pipe, a device.
bool is_special(std::string const& path);

/// Flushes a file, and the folder that names it, to the disk. False where the disk did not take it;
/// a folder that may be written but not read is left to the system.
bool flush_to_disk(std::string const& path);
/// The same of a folder.
bool flush_folder(std::string const& path);

/// What stands in a folder, by name; nothing for a folder that cannot be read.
std::vector<std::string> names_in(std::string const& folder);

/// The other name for a path through links and "..": two paths with the same one are one file.
std::string one_name_of(std::string const& path);

} // namespace rescue
