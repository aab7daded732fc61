#include "disk/disk.h"
#include "disk/names_windows.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <random>

namespace disk {

namespace {

HANDLE handle_of(int descriptor) {
    return reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor));
}

struct Flags {
    DWORD access;
    DWORD making;
    char const* stream = "rb";
};

Flags flags_of(Open how) {
    switch (how) {
    case Open::to_read:
    case Open::to_read_at_once:
        return {GENERIC_READ, OPEN_EXISTING};
    case Open::to_write:
        return {GENERIC_WRITE, OPEN_EXISTING, "wb"};
    case Open::emptied:
    case Open::kept:
    case Open::own_emptied: // the folder itself is the user's
        return {GENERIC_WRITE, OPEN_ALWAYS, "wb"};
    case Open::own_kept:
        return {GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS, "r+b"};
    case Open::own_new:
        return {GENERIC_READ | GENERIC_WRITE, CREATE_NEW, "r+b"};
    }
    return {GENERIC_READ, OPEN_EXISTING};
}

struct Identity {
    DWORD volume;
    DWORD high;
    DWORD low;
    friend bool operator==(Identity const&, Identity const&) = default;
};

std::optional<Identity> identity_of(HANDLE handle) {
    BY_HANDLE_FILE_INFORMATION known{};
    if (!::GetFileInformationByHandle(handle, &known))
        return std::nullopt;
    return Identity{known.dwVolumeSerialNumber, known.nFileIndexHigh, known.nFileIndexLow};
}

/// A byte far behind all that a file holds: a lock keeps others from reading what it is on.
OVERLAPPED locked_place() {
    OVERLAPPED place{};
    place.OffsetHigh = 0x40000000;
    return place;
}

} // namespace

Kind kind_of(std::string const& path) {
    if (path.empty()) {
        errno = ENOENT;
        return Kind::missing;
    }
    auto const wide = wide_name(path);
    if (!is_name(wide))
        return Kind::unknown;
    if (wide.is_device)
        return Kind::special;
    WIN32_FILE_ATTRIBUTE_DATA known{};
    if (!done(::GetFileAttributesExW(wide.c_str(), GetFileExInfoStandard, &known), wide.name))
        return errno == ENOENT || errno == ENOTDIR ? Kind::missing : Kind::unknown;
    if ((known.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return Kind::folder;
    if (wide.is_folder) {
        errno = ENOTDIR;
        return Kind::missing;
    }
    return (known.dwFileAttributes & FILE_ATTRIBUTE_DEVICE) != 0 ? Kind::special : Kind::file;
}

bool may_be_written(std::string const& path) {
    auto const wide = wide_name(path);
    return is_name(wide) &&
           done(open_handle(wide.name, GENERIC_WRITE, OPEN_EXISTING) != nullptr, wide.name);
}

std::optional<std::time_t> changed_at(std::string const& path) {
    auto const wide = wide_name(path);
    WIN32_FILE_ATTRIBUTE_DATA known{};
    if (!is_name(wide) ||
        !done(::GetFileAttributesExW(wide.c_str(), GetFileExInfoStandard, &known), wide.name))
        return std::nullopt;
    ULARGE_INTEGER const ticks{
        {known.ftLastWriteTime.dwLowDateTime, known.ftLastWriteTime.dwHighDateTime}};
    constexpr std::int64_t second = 10'000'000;       // ticks
    constexpr std::int64_t to_epoch = 11'644'473'600; // seconds
    return static_cast<std::int64_t>(ticks.QuadPart) / second - to_epoch;
}

std::vector<std::string> names_in(std::string const& folder) {
    auto const wide = wide_name(folder);
    std::vector<std::string> names;
    if (!is_name(wide))
        return names;
    struct Close {
        using pointer = HANDLE;
        void operator()(HANDLE search) const { ::FindClose(search); }
    };
    WIN32_FIND_DATAW found{};
    auto const first = ::FindFirstFileW((wide.name + L"\\*").c_str(), &found);
    std::unique_ptr<HANDLE, Close> const search(first == INVALID_HANDLE_VALUE ? nullptr : first);
    if (!done(search != nullptr, wide.name))
        return names;
    do {
        auto name = narrow_text(found.cFileName);
        if (name != "." && name != "..")
            names.push_back(std::move(name));
    } while (::FindNextFileW(search.get(), &found));
    return names;
}

int open(std::string const& path, Open how) {
    auto const wide = wide_name(path);
    if (!is_name(wide))
        return -1;
    if (wide.is_folder && kind_of(path) != Kind::folder) {
        errno = ENOTDIR;
        return -1;
    }
    auto const [access, making, stream] = flags_of(how);
    auto file = handle_or_none(::CreateFileW(wide.c_str(), access, shared, nullptr, making,
                                             FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!done(file != nullptr, wide.name))
        return -1;
    bool const emptied = how == Open::emptied || how == Open::own_emptied;
    if (emptied && ::GetFileType(file.get()) == FILE_TYPE_DISK &&
        !done(::SetEndOfFile(file.get()), wide.name))
        return -1;
    int const flags = _O_BINARY | _O_NOINHERIT | (access == GENERIC_READ ? _O_RDONLY : 0);
    int const descriptor = ::_open_osfhandle(reinterpret_cast<std::intptr_t>(file.get()), flags);
    if (descriptor >= 0)
        static_cast<void>(file.release());
    return descriptor;
}

std::FILE* open_stream(std::string const& path, Open how) {
    int const descriptor = open(path, how);
    return descriptor < 0 ? nullptr : ::_fdopen(descriptor, flags_of(how).stream);
}

int close(int descriptor) {
    return ::_close(descriptor);
}

namespace {

DWORD one_piece(std::size_t size) {
    constexpr std::size_t most = 1024 * 1024 * 1024;
    return static_cast<DWORD>(std::min(size, most));
}

} // namespace

std::ptrdiff_t read(int descriptor, char* to, std::size_t size) {
    DWORD got = 0;
    if (::ReadFile(handle_of(descriptor), to, one_piece(size), &got, nullptr))
        return got;
    auto const error = ::GetLastError();
    if (error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF)
        return 0;
    errno = error_of(error, {});
    return -1;
}

std::ptrdiff_t write(int descriptor, char const* from, std::size_t size) {
    DWORD put = 0;
    return done(::WriteFile(handle_of(descriptor), from, one_piece(size), &put, nullptr))
               ? static_cast<std::ptrdiff_t>(put)
               : -1;
}

int flush(int descriptor) {
    return done(::FlushFileBuffers(handle_of(descriptor))) ? 0 : -1;
}

bool rewrite(int descriptor, std::string_view bytes) {
    auto const file = handle_of(descriptor);
    DWORD put = 0;
    return done(::SetFilePointerEx(file, {}, nullptr, FILE_BEGIN) && ::SetEndOfFile(file) &&
                ::WriteFile(file, bytes.data(), one_piece(bytes.size()), &put, nullptr) &&
                put == bytes.size());
}

bool is_regular(int descriptor) {
    return ::GetFileType(handle_of(descriptor)) == FILE_TYPE_DISK;
}

bool is_open_as(int descriptor, std::string const& path) {
    auto const wide = wide_name(path);
    auto const named =
        wide.name.empty() || wide.is_device ? nullptr : open_handle(wide.name, 0, OPEN_EXISTING);
    auto const known = named ? identity_of(named.get()) : std::nullopt;
    return known && known == identity_of(handle_of(descriptor));
}

bool lock(int descriptor) {
    auto place = locked_place();
    constexpr DWORD at_once = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
    bool const locked = done(::LockFileEx(handle_of(descriptor), at_once, 0, 1, 0, &place));
    if (!locked && errno == EBUSY)
        errno = EWOULDBLOCK;
    return locked;
}

bool is_locked(int descriptor) {
    auto place = locked_place();
    return !::LockFileEx(handle_of(descriptor), LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place);
}

bool rename(std::string const& path, std::string const& other) {
    auto const from = wide_name(path);
    auto const to = wide_name(other);
    if (!is_name(from) || !is_name(to))
        return false;
    constexpr int most_tries = 10; // whoever looks for viruses holds new files for a moment
    for (int i = 1;; ++i) {
        if (::MoveFileExW(from.c_str(), to.c_str(),
                          MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return true;
        auto const error = ::GetLastError();
        if (i == most_tries || (error != ERROR_ACCESS_DENIED && error != ERROR_SHARING_VIOLATION) ||
            kind_of(other) == Kind::folder) {
            errno = error_of(error, from.name);
            return false;
        }
        ::Sleep(20); // milliseconds
    }
}

bool remove(std::string const& path) {
    auto const wide = wide_name(path);
    return is_name(wide) && done(::DeleteFileW(wide.c_str()), wide.name);
}

bool flush_folder(std::string const&) {
    return true; // the system writes through where a name changes
}

bool flush_to_disk(std::string const& path) {
    auto const wide = wide_name(path);
    if (!is_name(wide))
        return false;
    auto const file = open_handle(wide.name, GENERIC_WRITE, OPEN_EXISTING);
    if (!done(file != nullptr, wide.name))
        return errno == EACCES || errno == EBUSY; // the system flushes it in its time
    return done(::FlushFileBuffers(file.get()), wide.name);
}

std::optional<std::string> new_file_beside(std::string const& path) {
    auto const folder = path.substr(0, path.find_last_of("\\/:") + 1);
    constexpr int most_tries = 100;
    for (int i = 0; i < most_tries; ++i) {
        auto name = folder + ".krt." + std::to_string(std::random_device()());
        int const descriptor = open(name, Open::own_new);
        if (descriptor >= 0) {
            close(descriptor);
            return name;
        }
        if (errno != EEXIST)
            break;
    }
    return std::nullopt;
}

bool keep_rights(std::string const& old, std::string const& now) {
    auto const from = wide_name(old);
    auto const to = wide_name(now);
    DWORD size = 0;
    constexpr auto part = DACL_SECURITY_INFORMATION;
    ::GetFileSecurityW(from.c_str(), part, nullptr, 0, &size);
    if (size == 0)
        return true; // there is no old one, or its disk knows no rights
    std::vector<std::byte> rights(size);
    return !::GetFileSecurityW(from.c_str(), part, rights.data(), size, &size) ||
           done(::SetFileSecurityW(to.c_str(), part, rights.data()), to.name);
}

void keep_for_the_user_alone(std::string const&) {
    // What lies in the folder of the user's data is nobody else's.
}

bool reader_is_gone(int descriptor, int error) {
    // The runtime has no number of its own for a pipe that is being closed.
    return error == EPIPE ||
           (error == EINVAL && ::GetFileType(handle_of(descriptor)) == FILE_TYPE_PIPE);
}

bool is_full(int error) {
    return error == ENOSPC || error == EFBIG;
}

} // namespace disk
