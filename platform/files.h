// Files: reading and writing whole ones, fixed records. Every open, read, write and close goes
// through Host::before_file_operation. Names are used as given.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// Files up to this size are read; a larger one raises out_of_memory.
inline constexpr std::size_t largest_input = 64U * 1024 * 1024;

/// True when a regular file of that name exists. A name that no file system takes raises
/// bad_file_name.
/// A path through something that is no folder raises path_not_found.
bool file_exists(std::string const& path);
/// The same without raising: a name that no file can have names none, nor does an empty one.
bool names_a_file(std::string const& path);

/// A text file opened for reading. The whole file is read once, at the opening.
class InputFile {
  public:
    /// Raises file_not_found, path_not_found or path_file_access.
    explicit InputFile(std::string const& path);

    /// Valid as long as the file.
    std::string_view bytes() const { return bytes_; }

    /// Closes and opens again, for another walk from the top.
    void reopen();
    /// Closing what is closed already does nothing.
    void close();

  private:
    std::string bytes_;
    bool open_ = true;
};

/// A text file opened for output. The old contents are gone from the moment of opening.
class OutputFile {
  public:
    /// Raises path_not_found or path_file_access.
    explicit OutputFile(std::string const& path);
    ~OutputFile();
    OutputFile(OutputFile const&) = delete;
    OutputFile& operator=(OutputFile const&) = delete;

    /// Writes code page bytes. Raises disk_full or disk_io.
    void write(std::string_view bytes);
    /// Raises what the last write of the system's own buffers raises.
    void close();

  private:
    int descriptor_ = -1;
};

/// Reads the first `size` bytes of a file, or fewer where the file ends earlier, into `record`.
/// What was read stays there when the closing raises.
void read_record(std::string const& path, std::size_t size, std::vector<std::byte>& record);
/// Puts a record at the start of a file, which is made if it does not exist; what the file holds
/// behind the record stays.
void write_record(std::string const& path, std::vector<std::byte> const& record);

} // namespace platform
