#include "platform/files.h"

#include "disk/disk.h"
#include "platform/base.h"
#include "platform/host.h"

#include <algorithm>
#include <cerrno>

namespace platform {

namespace {

[[noreturn]] void raise_system_error(int error) {
    if (disk::is_full(error))
        throw RuntimeError(ErrorNumber::disk_full);
    switch (error) {
    case ENOENT:
        throw RuntimeError(ErrorNumber::file_not_found);
    case ENOTDIR:
        throw RuntimeError(ErrorNumber::path_not_found);
    case ENAMETOOLONG:
    case EINVAL:
        throw RuntimeError(ErrorNumber::bad_file_name);
    case EIO:
        throw RuntimeError(ErrorNumber::disk_io);
    default:
        throw RuntimeError(ErrorNumber::path_file_access);
    }
}

void require_usable_name(std::string const& path) {
    if (path.empty() || path.find('\0') != std::string::npos)
        throw RuntimeError(ErrorNumber::bad_file_name);
}

/// Counts as one operation, and opens. A missing folder is path_not_found when writing.
int open_file(std::string const& path, disk::Open how) {
    host().before_file_operation();
    require_usable_name(path);
    int const descriptor = disk::open(path, how);
    if (descriptor < 0) {
        if (errno == ENOENT && how != disk::Open::to_read)
            throw RuntimeError(ErrorNumber::path_not_found);
        raise_system_error(errno);
    }
    return descriptor;
}

/// Closes a descriptor whatever happens, without a word.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0)
            disk::close(number_);
    }
    Descriptor(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor const&) = delete;

    int number() const { return number_; }
    void close() {
        host().before_file_operation();
        int const number = number_;
        number_ = -1;
        if (disk::close(number) != 0)
            raise_system_error(errno);
    }

  private:
    int number_;
};

std::size_t read_some(int descriptor, char* to, std::size_t size) {
    std::size_t done = 0;
    while (done < size) {
        auto const got = disk::read(descriptor, to + done, size - done);
        if (got == 0)
            break;
        if (got < 0)
            raise_system_error(errno == EISDIR ? EACCES : errno);
        done += static_cast<std::size_t>(got);
    }
    return done;
}

void write_all(int descriptor, char const* from, std::size_t size) {
    while (size > 0) {
        auto const put = disk::write(descriptor, from, size);
        if (put < 0)
            raise_system_error(errno);
        from += put;
        size -= static_cast<std::size_t>(put);
    }
}

} // namespace

bool file_exists(std::string const& path) {
    require_usable_name(path);
    auto const kind = disk::kind_of(path);
    if (kind == disk::Kind::missing || kind == disk::Kind::unknown) {
        if (errno == ENAMETOOLONG || errno == EINVAL)
            throw RuntimeError(ErrorNumber::bad_file_name);
        if (errno == ENOTDIR)
            throw RuntimeError(ErrorNumber::path_not_found);
    }
    return kind == disk::Kind::file;
}

bool names_a_file(std::string const& path) {
    try {
        return !path.empty() && file_exists(path);
    } catch (RuntimeError const&) {
        return false;
    }
}

InputFile::InputFile(std::string const& path) {
    Descriptor const file(open_file(path, disk::Open::to_read));
    host().before_file_operation();
    // Read to the end instead of trusting the size: a pipe or a device has none, and one byte more
    // than allowed tells that the file is too large.
    constexpr std::size_t step = 256U * 1024;
    for (std::size_t used = 0;;) {
        bytes_.resize(used + step);
        std::size_t const got = read_some(file.number(), bytes_.data() + used, step);
        used += got;
        if (used > largest_input)
            throw RuntimeError(ErrorNumber::out_of_memory);
        if (got < step) {
            bytes_.resize(used);
            break;
        }
    }
}

void InputFile::reopen() {
    host().before_file_operation();
    host().before_file_operation();
}

void InputFile::close() {
    if (!open_)
        return;
    open_ = false;
    host().before_file_operation();
}

OutputFile::OutputFile(std::string const& path)
    : descriptor_(open_file(path, disk::Open::emptied)) {}

OutputFile::~OutputFile() {
    if (descriptor_ >= 0)
        disk::close(descriptor_);
}

void OutputFile::write(std::string_view bytes) {
    host().before_file_operation();
    write_all(descriptor_, bytes.data(), bytes.size());
}

void OutputFile::close() {
    Descriptor file(descriptor_);
    descriptor_ = -1;
    file.close();
}

void read_record(std::string const& path, std::size_t size, std::vector<std::byte>& record) {
    Descriptor file(open_file(path, disk::Open::to_read));
    host().before_file_operation();
    std::vector<std::byte> read(size);
    read.resize(read_some(file.number(), reinterpret_cast<char*>(read.data()), size));
    record = std::move(read);
    file.close();
}

void write_record(std::string const& path, std::vector<std::byte> const& record) {
    Descriptor file(open_file(path, disk::Open::kept));
    host().before_file_operation();
    write_all(file.number(), reinterpret_cast<char const*>(record.data()), record.size());
    file.close();
}

} // namespace platform
