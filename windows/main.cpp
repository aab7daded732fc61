// kehystin.exe: one program is the editor, the reader of its help, and what paints for krt. The
// other two are processes of their own of the same file.
#include "desktop/application.h"
#include "desktop/help_reader.h"
#include "draw/run.h"
#include "windows/registration.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

std::string utf8(wchar_t const* text) {
    auto const size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string bytes(size > 0 ? static_cast<std::size_t>(size) : 1, '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes.data(), size, nullptr, nullptr);
    bytes.pop_back();
    return bytes;
}

/// The command line as it was given, which the narrow one is not outside the code page.
std::vector<std::string> givenWords() {
    int count = 0;
    auto* const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> given;
    for (int i = 0; i < count; ++i)
        given.push_back(utf8(words[i]));
    LocalFree(words);
    return given;
}

/// krt's painter: its own words begin behind the option.
int draw(std::vector<std::string>& words) {
    words.erase(words.begin());
    std::vector<char*> arguments;
    for (auto& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    for (auto* const stream : {stdin, stdout})
        _setmode(_fileno(stream), _O_BINARY);
    return draw::run(static_cast<int>(words.size()), arguments.data());
}

} // namespace

int main(int argc, char* argv[]) {
    auto words = givenWords();
    std::string_view const first = words.size() > 1 ? std::string_view(words[1]) : "";
    if (first == desktop::help_reader::option && words.size() == 3)
        return desktop::help_reader::run(words[2].c_str());
    if (first == "--draw")
        return draw(words);
    if (first == "--register")
        return windows::registerCards();
    if (first == "--unregister")
        return windows::unregisterCards();
    return desktop::runApplication(argc, argv);
}
