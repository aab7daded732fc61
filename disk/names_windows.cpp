#include "disk/names_windows.h"
#include "disk/disk.h"

#include <cerrno>

namespace disk {

namespace fs = std::filesystem;

namespace {

constexpr std::wstring_view any_length = L"\\\\?\\";
constexpr std::wstring_view any_length_share = L"\\\\?\\UNC\\";
constexpr std::wstring_view device = L"\\\\.\\";

/// Without what stands before names of any length.
std::wstring without_mark(std::wstring name) {
    if (name.starts_with(any_length_share))
        return L"\\\\" + name.substr(any_length_share.size());
    return name.starts_with(any_length) ? name.substr(any_length.size()) : name;
}

/// A letter and a colon are a drive; any other colon would open a part of a file that nobody sees.
bool has_colon(std::wstring_view name) {
    return name.find(L':', 2) != std::wstring_view::npos;
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

} // namespace

std::wstring lower(std::wstring text) {
    ::CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

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
    bool const is_folder = whole.ends_with(L'\\');
    while (whole.size() > 3 && whole.ends_with(L'\\'))
        whole.pop_back();
    constexpr std::size_t usual_length = 240; // a folder takes less than a file
    if (whole.size() < usual_length)
        return {whole, false, is_folder};
    if (whole.starts_with(L"\\\\"))
        return {std::wstring(any_length_share) + whole.substr(2), false, is_folder};
    return {std::wstring(any_length) + whole, false, is_folder};
}

bool is_name(WideName const& wide) {
    if (wide.name.empty())
        errno = EINVAL;
    return !wide.name.empty();
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

bool done(bool success, std::wstring const& name) {
    if (!success)
        errno = error_of(::GetLastError(), name);
    return success;
}

Handle open_handle(std::wstring const& name, DWORD access, DWORD making) {
    return handle_or_none(::CreateFileW(name.c_str(), access, shared, nullptr, making,
                                        FILE_FLAG_BACKUP_SEMANTICS, nullptr)); // folders too
}

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

} // namespace disk
