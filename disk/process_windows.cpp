#include "disk/disk.h"
#include "disk/names_windows.h"

#include <algorithm>

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

/// Not as the system matches: to it "*.krt" is also what has "~1.krt" as its short name.
bool is_like(std::wstring_view name, std::wstring_view pattern) {
    if (pattern.empty())
        return name.empty();
    auto const rest = pattern.substr(1);
    if (pattern.front() == L'*' && is_like(name, rest))
        return true;
    if (name.empty() || (pattern.front() != name.front() && pattern.find_first_of(L"*?") != 0))
        return false;
    return is_like(name.substr(1), pattern.front() == L'*' ? pattern : rest);
}

/// What there is like a word, which no name can be; the word itself where there is nothing.
std::vector<std::string> names_like(std::string const& word) {
    auto const own = word.find_last_of("\\/:") + 1;
    if (word.find_first_of("*?", own) == std::string::npos)
        return {word};
    auto const folder = word.substr(0, own);
    auto const pattern = lower(wide_text(word.substr(own)));
    std::vector<std::string> names;
    for (auto const& name : names_in(folder.empty() ? "." : folder))
        if ((name[0] != '.' || word[own] == '.') && is_like(lower(wide_text(name)), pattern))
            names.push_back(folder + name);
    if (names.empty())
        return {word};
    std::sort(names.begin(), names.end());
    return names;
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
        for (auto& name : names_like(narrow_text(wide.get()[i]))) // no shell does so before
            words.push_back(std::move(name));
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
