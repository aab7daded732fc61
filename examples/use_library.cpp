// The smallest use of the card library: reads a card, links it and says what the register would
// stumble over.
#include "card/checks.h"
#include "card/linking.h"
#include "card/reading.h"

#include <fstream>
#include <iostream>
#include <iterator>

int main(int argc, char* argv[]) {
    std::ifstream file(argc > 1 ? argv[1] : "", std::ios::binary);
    std::string const bytes{std::istreambuf_iterator<char>(file), {}};
    auto reading = kehystin::read_card(bytes, {}, {});
    if (reading.end != kehystin::Reading::End::read)
        return 2;
    auto const linking = kehystin::link_card(reading.data);
    auto const loose = kehystin::offenders(kehystin::Check::no_title, reading.data);
    std::cout << linking.links.size() << " links, " << loose.size() << " fields without a title\n";
}
