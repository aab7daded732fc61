#include "rescue/disk.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace rescue {

namespace {

class Opened {
  public:
    Opened(std::string const& path, int flags) : number_(::open(path.c_str(), flags | O_CLOEXEC)) {}
    ~Opened() {
        if (number_ >= 0)
            ::close(number_);
    }
    Opened(Opened const&) = delete;
    Opened& operator=(Opened const&) = delete;
    int number() const { return number_; }

  private:
    int number_;
};

/// Some file systems flush no folders, and some folders may only be written.
bool cannot_be_flushed(int error) {
    return error == EINVAL || error == ENOTSUP || error == EBADF || error == EACCES;
}

} // namespace

bool is_there(std::string const& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

std::optional<std::string> bytes_on_disk(std::string const& path) {
    Opened const file(path, O_RDONLY | O_NONBLOCK); // a pipe would wait for its other end
    struct stat status {};
    if (file.number() < 0 || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    constexpr std::size_t step = 256U * 1024;
    std::string bytes;
    for (;;) {
        auto const used = bytes.size();
        bytes.resize(used + step);
        auto const got = ::read(file.number(), bytes.data() + used, step);
        bytes.resize(used + (got > 0 ? static_cast<std::size_t>(got) : 0));
        if (got == 0)
            return bytes;
        if (got < 0 && errno != EINTR)
            return std::nullopt;
    }
}

bool is_closed_to_reading(std::string const& path) {
    return Opened(path, O_RDONLY | O_NONBLOCK).number() < 0 && errno == EACCES;
}

bool is_special(std::string const& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

bool flush_folder(std::string const& path) {
    Opened const folder(path, O_RDONLY | O_DIRECTORY);
    return (folder.number() >= 0 && ::fsync(folder.number()) == 0) || cannot_be_flushed(errno);
}

bool flush_to_disk(std::string const& path) {
    Opened const file(path, O_RDONLY);
    if (file.number() < 0)
        return errno == EACCES; // may be written but not read: the system flushes it in its time
    if (::fsync(file.number()) != 0 && errno != EINVAL)
        return false;
    // The folder that holds the file itself, whatever link leads there.
    auto const folder = std::filesystem::path(one_name_of(path)).parent_path().string();
    return flush_folder(folder.empty() ? "." : folder);
}

std::vector<std::string> names_in(std::string const& folder) {
    // Not by the standard library's iterator: that ends the process where its memory runs out.
    struct Close {
        void operator()(DIR* open) const { ::closedir(open); }
    };
    std::unique_ptr<DIR, Close> const open(::opendir(folder.c_str()));
    std::vector<std::string> names;
    while (auto const* const entry = open ? ::readdir(open.get()) : nullptr) {
        std::string const name = entry->d_name;
        if (name != "." && name != "..")
            names.push_back(name);
    }
    return names;
}

std::string one_name_of(std::string const& path) {
    std::error_code ignored;
    auto const name = std::filesystem::weakly_canonical(path, ignored);
    return ignored ? path : name.string();
}

} // namespace rescue
