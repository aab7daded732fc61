#include "disk/disk.h"

#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace disk {

namespace {

namespace fs = std::filesystem;

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

struct Flags {
    int flags;
    mode_t rights = 0;
    char const* stream = "rb";
};

Flags flags_of(Open how) {
    constexpr mode_t for_all = 0666;
    constexpr mode_t for_the_user_alone = 0600;
    switch (how) {
    case Open::to_read:
        return {O_RDONLY};
    case Open::to_read_at_once:
        return {O_RDONLY | O_NONBLOCK};
    case Open::to_write:
        return {O_WRONLY, 0, "wb"};
    case Open::emptied:
        return {O_WRONLY | O_CREAT | O_TRUNC, for_all, "wb"};
    case Open::kept:
        return {O_WRONLY | O_CREAT, for_all, "wb"};
    case Open::own_emptied:
        return {O_WRONLY | O_CREAT | O_TRUNC, for_the_user_alone, "wb"};
    case Open::own_kept:
        return {O_RDWR | O_CREAT, for_the_user_alone, "r+b"};
    case Open::own_new:
        return {O_RDWR | O_CREAT | O_EXCL, for_the_user_alone, "r+b"};
    }
    return {O_RDONLY};
}

/// By the first of these variables that holds a path.
std::string folder_of(char const* variable, std::string const& in_home) {
    auto const value_of = [](char const* name) {
        auto const* const value = std::getenv(name);
        return std::string(value && *value == '/' ? value : "");
    };
    auto folder = value_of(variable);
    if (folder.empty() && !value_of("HOME").empty())
        folder = value_of("HOME") + "/" + in_home;
    return folder.empty() ? folder : folder + (folder.ends_with('/') ? "" : "/") + "kehystin/";
}

} // namespace

fs::path path_of(std::string_view name) {
    return name;
}

std::string text_of(fs::path const& path) {
    return path.string();
}

std::string one_name_of(std::string const& path) {
    std::error_code ignored;
    auto const name = fs::weakly_canonical(path, ignored);
    return ignored ? path : name.string();
}

Kind kind_of(std::string const& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return errno == ENOENT || errno == ENOTDIR ? Kind::missing : Kind::unknown;
    if (S_ISREG(status.st_mode))
        return Kind::file;
    return S_ISDIR(status.st_mode) ? Kind::folder : Kind::special;
}

bool may_be_written(std::string const& path) {
    return ::access(path.c_str(), W_OK) == 0;
}

std::optional<std::time_t> changed_at(std::string const& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return status.st_mtime;
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

int open(std::string const& path, Open how) {
    auto const [flags, rights, stream] = flags_of(how);
    return ::open(path.c_str(), flags | O_CLOEXEC, rights);
}

std::FILE* open_stream(std::string const& path, Open how) {
    int const descriptor = open(path, how);
    return descriptor < 0 ? nullptr : ::fdopen(descriptor, flags_of(how).stream);
}

int close(int descriptor) {
    return ::close(descriptor);
}

std::ptrdiff_t read(int descriptor, char* to, std::size_t size) {
    for (;;) {
        auto const got = ::read(descriptor, to, size);
        if (got >= 0 || errno != EINTR)
            return got;
    }
}

std::ptrdiff_t write(int descriptor, char const* from, std::size_t size) {
    for (;;) {
        auto const put = ::write(descriptor, from, size);
        if (put >= 0 || errno != EINTR)
            return put;
    }
}

int flush(int descriptor) {
    return ::fsync(descriptor);
}

bool rewrite(int descriptor, std::string_view bytes) {
    return ::ftruncate(descriptor, 0) == 0 &&
           ::pwrite(descriptor, bytes.data(), bytes.size(), 0) == std::ssize(bytes);
}

bool is_regular(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool is_open_as(int descriptor, std::string const& path) {
    struct stat open {};
    struct stat named {};
    return ::fstat(descriptor, &open) == 0 && ::stat(path.c_str(), &named) == 0 &&
           open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

bool lock(int descriptor) {
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
}

bool is_locked(int descriptor) {
    return ::flock(descriptor, LOCK_SH | LOCK_NB) != 0;
}

bool rename(std::string const& path, std::string const& other) {
    return ::rename(path.c_str(), other.c_str()) == 0;
}

bool remove(std::string const& path) {
    return ::unlink(path.c_str()) == 0;
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
    auto const folder = fs::path(one_name_of(path)).parent_path().string();
    return flush_folder(folder.empty() ? "." : folder);
}

std::optional<std::string> new_file_beside(std::string const& path) {
    auto pattern = (fs::path(path).parent_path() / ".krt.XXXXXX").string();
    int const descriptor = ::mkstemp(pattern.data());
    if (descriptor < 0)
        return std::nullopt;
    ::close(descriptor);
    return pattern;
}

bool keep_rights(std::string const& old, std::string const& now) {
    struct stat known {};
    auto const mask = ::umask(0);
    ::umask(mask);
    mode_t mode = 0666 & ~mask;
    if (::stat(old.c_str(), &known) == 0) {
        mode = known.st_mode & 0777;
        // A group that the user may not give has no more rights than the others.
        if (::chown(now.c_str(), known.st_uid, known.st_gid) != 0 &&
            ::chown(now.c_str(), static_cast<uid_t>(-1), known.st_gid) != 0)
            mode &= ~static_cast<mode_t>(S_IRWXG) | ((mode & S_IRWXO) << 3);
    }
    return ::chmod(now.c_str(), mode) == 0;
}

void keep_for_the_user_alone(std::string const& folder) {
    struct stat status {};
    if (::stat(folder.c_str(), &status) == 0 && status.st_uid == ::getuid() &&
        (status.st_mode & 0777) != 0700)
        ::chmod(folder.c_str(), 0700);
}

bool reader_is_gone(int, int error) {
    return error == EPIPE;
}

bool is_full(int error) {
    return error == ENOSPC || error == EDQUOT || error == EFBIG;
}

std::string state_folder() {
    return folder_of("XDG_STATE_HOME", ".local/state");
}

std::string settings_folder() {
    return folder_of("XDG_CONFIG_HOME", ".config");
}

std::vector<std::string> words_of(int count, char** words) {
    return {words + (count > 0 ? 1 : 0), words + count};
}

std::tm local_time(std::time_t time) {
    std::tm local{};
    ::localtime_r(&time, &local);
    return local;
}

int process_number() {
    return ::getpid();
}

} // namespace disk
