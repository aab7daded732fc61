#include "disk/disk.h"
#include "disk/names_windows.h"

#include <process.h>

#include <shellapi.h>

namespace disk {

namespace {

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
