#include "disk/disk.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <process.h>
#include <random>
#include <string>

#include <windows.h>

#include <shellapi.h>

namespace disk {

namespace {

namespace fs = std::filesystem;

constexpr std::wstring_view any_length = L"\\\\?\\";
constexpr std::wstring_view any_length_share = L"\\\\?\\UNC\\";
constexpr std::wstring_view device = L"\\\\.\\";

struct CloseHandleOf {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};
using Handle = std::unique_ptr<HANDLE, CloseHandleOf>;

Handle handle_or_none(HANDLE handle) {
    return Handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

/// UTF-16; empty where the text is no UTF-8.
std::wstring wide_text(std::string_view text) {
    auto const size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0'); // never longer
    int const used = ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size,
                                           wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<std::size_t>(used));
    return wide;
}

std::string narrow_text(std::wstring_view text) {
    auto const size = static_cast<int>(text.size());
    std::string narrow(3 * text.size(), '\0');
    int const used = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(),
                                           static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(used));
    return narrow;
}

/// Without what stands before names of any length.
std::wstring without_mark(std::wstring name) {
    if (name.starts_with(any_length_share))
        return L"\\\\" + name.substr(any_length_share.size());
    return name.starts_with(any_length) ? name.substr(any_length.size()) : name;
}

struct WideName {
    std::wstring name; ///< from its drive or share on; empty where no file can have it
    bool is_device = false;

    wchar_t const* c_str() const { return name.c_str(); }
};

/// A letter and a colon are a drive; any other colon would open a part of a file that nobody sees.
bool has_colon(std::wstring_view name) {
    return name.find(L':', 2) != std::wstring_view::npos;
}

/// The name as the system takes it, whatever its length and the folder of the moment.
WideName wide_name(std::string_view text) {
    auto const wide = wide_text(text);
    if (wide.empty() || wide.find(L'\0') != std::wstring::npos)
        return {};
    if (wide.starts_with(any_length))
        return {wide};
    auto const needed = ::GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
    std::wstring whole(needed, L'\0');
    whole.resize(::GetFullPathNameW(wide.c_str(), needed, whole.data(), nullptr));
    if (whole.starts_with(device))
        return {whole, true};
    if (has_colon(whole))
        return {};
    while (whole.size() > 3 && whole.ends_with(L'\\'))
        whole.pop_back();
    constexpr std::size_t usual_length = 240; // a folder takes less than a file
    if (whole.size() < usual_length)
        return {whole};
    if (whole.starts_with(L"\\\\"))
        return {std::wstring(any_length_share) + whole.substr(2)};
    return {std::wstring(any_length) + whole};
}

/// Whether a file stands where the name needs a folder.
bool leads_through_a_file(std::wstring name) {
    for (auto at = name.rfind(L'\\'); at != std::wstring::npos && at > 2; at = name.rfind(L'\\')) {
        name.resize(at);
        auto const attributes = ::GetFileAttributesW(name.c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES)
            return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    }
    return false;
}

int error_of(DWORD error, std::wstring const& name) {
    switch (error) {
    case ERROR_PATH_NOT_FOUND:
        return leads_through_a_file(name) ? ENOTDIR : ENOENT;
    case ERROR_DIRECTORY:
        return ENOTDIR;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_NETWORK_UNREACHABLE:
    case ERROR_HOST_UNREACHABLE:
        return ENOENT;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_BUSY:
        return EBUSY;
    case ERROR_WRITE_PROTECT:
        return EROFS;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
        return leads_through_a_file(name) ? ENOTDIR : EINVAL;
    case ERROR_FILENAME_EXCED_RANGE:
        return ENAMETOOLONG;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return EEXIST;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_NOT_ENOUGH_QUOTA:
        return ENOSPC;
    case ERROR_FILE_TOO_LARGE:
        return EFBIG;
    case ERROR_CRC:
    case ERROR_SEEK:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_GEN_FAILURE:
    case ERROR_IO_DEVICE:
    case ERROR_DISK_CORRUPT:
    case ERROR_FILE_CORRUPT:
    case ERROR_UNEXP_NET_ERR:
    case ERROR_NETNAME_DELETED:
    case ERROR_DEV_NOT_EXIST:
        return EIO;
    case ERROR_BROKEN_PIPE:
    case ERROR_NO_DATA:
        return EPIPE;
    case ERROR_INVALID_HANDLE:
        return EBADF;
    default:
        return EACCES;
    }
}

/// Whether it was done; errno where it was not.
bool done(bool success, std::wstring const& name = {}) {
    if (!success)
        errno = error_of(::GetLastError(), name);
    return success;
}

/// False, with errno, for what cannot be a name.
bool is_name(WideName const& wide) {
    if (wide.name.empty())
        errno = EINVAL;
    return !wide.name.empty();
}

HANDLE handle_of(int descriptor) {
    return reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor));
}

/// Others may do with the file what they like; it is theirs too.
constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

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

Handle open_handle(std::wstring const& name, DWORD access, DWORD making) {
    return handle_or_none(::CreateFileW(name.c_str(), access, shared, nullptr, making,
                                        FILE_FLAG_BACKUP_SEMANTICS, nullptr)); // folders too
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

/// Behind all links, as the system has it; empty where there is none.
std::wstring final_name(std::wstring const& name) {
    auto const handle = open_handle(name, 0, OPEN_EXISTING);
    if (!handle)
        return {};
    auto const size = ::GetFinalPathNameByHandleW(handle.get(), nullptr, 0, 0);
    std::wstring whole(size, L'\0');
    whole.resize(::GetFinalPathNameByHandleW(handle.get(), whole.data(), size, 0));
    return without_mark(std::move(whole));
}

/// Capital letters make no other file.
std::wstring lower(std::wstring text) {
    ::CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

/// A byte far behind all that a file holds: a lock keeps others from reading what it is on.
OVERLAPPED locked_place() {
    OVERLAPPED place{};
    place.OffsetHigh = 0x40000000;
    return place;
}

std::wstring variable(wchar_t const* name) {
    std::wstring value(32767, L'\0'); // as long as one can be
    value.resize(::GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

bool is_whole(std::wstring_view path) {
    return path.starts_with(L"\\\\") || path.substr(0, 3).ends_with(L":\\") ||
           path.substr(0, 3).ends_with(L":/");
}

std::string data_folder(std::string_view below) {
    auto const data = variable(L"APPDATA");
    if (!is_whole(data))
        return {};
    auto folder = narrow_text(data);
    if (!folder.ends_with('\\') && !folder.ends_with('/'))
        folder += '\\';
    return folder + std::string(below);
}

} // namespace

fs::path path_of(std::string_view name) {
    auto const wide = wide_text(name);
    constexpr std::size_t usual_length = 200; // something may come behind it
    return wide.size() < usual_length ? fs::path(wide) : fs::path(wide_name(name).name);
}

std::string text_of(fs::path const& path) {
    return narrow_text(without_mark(path.native()));
}

std::string one_name_of(std::string const& path) {
    auto const wide = wide_name(path);
    if (wide.name.empty() || wide.is_device)
        return path;
    // What is not there yet stands behind what is.
    std::wstring behind;
    for (auto name = wide.name;;) {
        auto const found = final_name(name);
        if (!found.empty())
            return narrow_text(lower(found + behind));
        auto const at = name.rfind(L'\\');
        if (at == std::wstring::npos || at < 3)
            return narrow_text(lower(without_mark(wide.name)));
        behind.insert(0, name, at);
        name.resize(at);
        if (name.ends_with(L':')) { // of a drive only its root is a folder
            name += L'\\';
            behind.erase(0, 1);
        }
    }
}

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

bool is_full(int error) {
    return error == ENOSPC || error == EFBIG;
}

std::string state_folder() {
    return data_folder("kehystin\\rescue\\");
}

std::string settings_folder() {
    return data_folder("kehystin\\");
}

std::vector<std::string> words_of(int, char**) {
    // What main is given has been squeezed through the code page.
    int count = 0;
    struct Free {
        void operator()(wchar_t** words) const { ::LocalFree(words); }
    };
    std::unique_ptr<wchar_t*, Free> const wide(::CommandLineToArgvW(::GetCommandLineW(), &count));
    std::vector<std::string> words;
    for (int i = 1; wide && i < count; ++i)
        words.push_back(narrow_text(wide.get()[i]));
    return words;
}

std::tm local_time(std::time_t time) {
    std::tm local{};
    ::localtime_s(&local, &time);
    return local;
}

int process_number() {
    return ::_getpid();
}

} // namespace disk
