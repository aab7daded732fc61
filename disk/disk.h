// The system's calls on files. All names are UTF-8, with either separator on Windows, where they
// may also be longer than the system takes by itself. What fails sets errno: ENOENT, ENOTDIR,
// EACCES, EBUSY (in use by another program), EROFS, EINVAL (a name that no file can have),
// ENAMETOOLONG, EIO or others, ENOSPC and its kin as is_full has them.
#pragma once

#include <cstddef>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace disk {

// Names.

/// The name as the standard library's files take it: by itself it reads narrow names in the code
/// page of the machine.
std::filesystem::path path_of(std::string_view name);
/// The reverse.
std::string text_of(std::filesystem::path const& path);
/// The other name for a path through links and "..": two paths with the same one are one file.
std::string one_name_of(std::string const& path);

// What is there.

/// `special` is a pipe or a device, whatever the name; `unknown` what the system cannot tell.
enum class Kind { missing, file, folder, special, unknown };
/// Sets errno for `missing` and `unknown`.
Kind kind_of(std::string const& path);
/// True for anything of that name, whatever it is, and where the system cannot tell.
bool is_there(std::string const& path);
/// True for a file that may be written, perhaps, but that this user may not read.
bool is_closed_to_reading(std::string const& path);
/// True for something that is there and is no regular file: a folder, a pipe, a device.
bool is_special(std::string const& path);
/// False, with errno, where the system would not open the file for writing.
bool may_be_written(std::string const& path);
/// When a file was last written.
std::optional<std::time_t> changed_at(std::string const& path);
/// What stands in a folder, by name; nothing for a folder that cannot be read.
std::vector<std::string> names_in(std::string const& folder);

// Open files, by descriptors. No process that is started gets them, and others may use and replace
// the file meanwhile.

enum class Open {
    to_read,
    to_read_at_once, ///< a pipe does not wait for its other end
    to_write,        ///< what is there: nothing is made
    emptied,         ///< made where it is missing, to be written
    kept,            ///< the same with what it holds
    own_emptied,     ///< `emptied`; a new one is for the user alone
    own_kept,        ///< to be read and written; a new one is for the user alone
    own_new,         ///< the same, and EEXIST where there is one
};
/// The descriptor, or -1.
int open(std::string const& path, Open how);
/// The same as a stream, or null.
std::FILE* open_stream(std::string const& path, Open how);
/// 0, or -1; the descriptor is gone in either case.
int close(int descriptor);
/// How many bytes were read, 0 at the end, or -1. Interruptions are passed over.
std::ptrdiff_t read(int descriptor, char* to, std::size_t size);
/// How many bytes were written, or -1. Interruptions are passed over.
std::ptrdiff_t write(int descriptor, char const* from, std::size_t size);
/// Down to the disk; 0, or -1.
int flush(int descriptor);
/// Replaces all that it holds.
bool rewrite(int descriptor, std::string_view bytes);
bool is_regular(int descriptor);
/// Whether a name leads to what is open.
bool is_open_as(int descriptor, std::string const& path);
/// Takes it for this process alone, at once; its bytes can be read all the same. The lock ends with
/// the descriptor, however the process ends. EWOULDBLOCK where another has it.
bool lock(int descriptor);
/// Whether another descriptor has it locked.
bool is_locked(int descriptor);

// Whole files.

/// The whole of a regular file; nothing for anything else, or one that cannot be read.
std::optional<std::string> bytes_on_disk(std::string const& path);
/// Fills a file with another's bytes.
bool copy_bytes(std::string const& path, std::string const& other);
/// A file takes another's name and place, at one moment.
bool rename(std::string const& path, std::string const& other);
bool remove(std::string const& path);
/// Flushes a file, and the folder that names it, to the disk. False where the disk did not take it;
/// a folder that may be written but not read is left to the system.
bool flush_to_disk(std::string const& path);
/// The same of a folder.
bool flush_folder(std::string const& path);
/// A file of a name of its own beside another, empty.
std::optional<std::string> new_file_beside(std::string const& path);
/// Gives a new file the rights, owner and group of an old one, as far as the user may, or those of
/// any new file where there is no old one.
bool keep_rights(std::string const& old, std::string const& now);
/// Takes all others' rights from a folder of the user's.
void keep_for_the_user_alone(std::string const& folder);

/// Whether writing failed for nobody reads the pipe any more.
bool reader_is_gone(int descriptor, int error);
/// A disk or a quota is full, or a file as large as can be.
bool is_full(int error);

// The user and the process.

/// Where the program keeps what must not be lost, with its closing separator; empty for a user
/// without a home.
std::string state_folder();
/// Where it keeps its settings; the same.
std::string settings_folder();
/// The words of the command line, without the program's own; "*" and "?" in the last part of a name
/// stand for what is there, also where no shell sees to it.
std::vector<std::string> words_of(int count, char** words);
std::tm local_time(std::time_t time);
int process_number();

} // namespace disk
