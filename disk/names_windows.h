// Names, handles and errors as Windows has them, for what calls the system itself.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <windows.h>

namespace disk {

struct CloseHandleOf {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};
using Handle = std::unique_ptr<HANDLE, CloseHandleOf>;

inline Handle handle_or_none(HANDLE handle) {
    return Handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

/// UTF-16; empty where the text is no UTF-8.
std::wstring wide_text(std::string_view text);
std::string narrow_text(std::wstring_view text);

/// Capital letters make no other file.
std::wstring lower(std::wstring text);

struct WideName {
    std::wstring name; ///< from its drive or share on; empty where no file can have it
    bool is_device = false;
    bool is_folder = false; ///< it ends in a separator, which the name is without

    wchar_t const* c_str() const { return name.c_str(); }
};

/// The name as the system takes it, whatever its length and the folder of the moment.
WideName wide_name(std::string_view text);
/// False, with errno, for what cannot be a name.
bool is_name(WideName const& wide);

/// What errno calls it.
int error_of(DWORD error, std::wstring const& name);
/// Whether it was done; errno where it was not.
bool done(bool success, std::wstring const& name = {});

/// Others may do with the file what they like; it is theirs too.
inline constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A file or a folder; null where it cannot be opened.
Handle open_handle(std::wstring const& name, DWORD access, DWORD making);

} // namespace disk
