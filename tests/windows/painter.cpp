// Stands for the program that paints: its picture is the card that it is given, and behind it its
// words, a line each. A card called "hidas" takes it longer than anybody waits.
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <string>

#include <windows.h>

int main(int argc, char* argv[]) {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    std::string card;
    for (int c = 0; (c = std::getchar()) != EOF;)
        card += static_cast<char>(c);
    if (card.find("hidas") != std::string::npos)
        Sleep(60'000);
    std::fwrite(card.data(), 1, card.size(), stdout);
    for (int i = 1; i < argc; ++i)
        std::printf("%s\n", argv[i]);
    return 0;
}
