// kehystin.exe: one program is the editor, the reader of its help, and what paints for krt. The
// other two are processes of their own of the same file.
#include "desktop/application.h"
#include "desktop/help_reader.h"
#include "disk/disk.h"
#include "draw/run.h"
#include "windows/registration.h"

#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

/// krt's painter, whose own words begin behind the option.
int paint(std::vector<std::string>& words) {
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
    SetErrorMode(SEM_FAILCRITICALERRORS); // a drive without its disk is a failure like others
    auto words = disk::words_of(argc, argv);
    std::string_view const first = words.empty() ? std::string_view() : words.front();
    if (first == desktop::help_reader::option && words.size() == 2)
        return desktop::help_reader::run(words[1].c_str());
    if (first == "--draw")
        return paint(words);
    if (first == "--register")
        return windows::registerCards();
    if (first == "--unregister")
        return windows::unregisterCards();
    return desktop::runApplication(argc, argv);
}
