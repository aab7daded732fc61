// Any bytes as a card file, by the library alone: read, linked, checked, written and read again.
#include "card/checks.h"
#include "card/identity.h"
#include "card/linking.h"
#include "card/reading.h"
#include "card/writing.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace kehystin;

void require(bool condition) {
    if (!condition)
        std::abort();
}

bool is_field(CardData const& data, int number) {
    return number >= 1 && number <= data.card.fields;
}

/// Nothing where the bytes are no card, or hold a number beyond its type.
std::optional<Reading> read(std::string_view bytes) {
    Surroundings around;
    around.today = 38124;
    around.folder = "+"; // a picture beside the card stays so
    try {
        auto reading = read_card(bytes, {}, around);
        if (reading.end == Reading::End::read)
            return reading;
    } catch (RuntimeError const&) {
    }
    return std::nullopt;
}

void check_links(CardData data) {
    auto const before = data;
    for (auto const& link : link_card(data).links)
        require(is_field(data, link.title) && is_field(data, link.data));
    for (auto const check : {Check::no_title, Check::unlinked_title, Check::columns,
                             Check::no_label, Check::same_title}) {
        auto const found = offenders(check, data);
        require(std::is_sorted(found.begin(), found.end()));
        require(found.empty() || (is_field(data, found.front()) && is_field(data, found.back())));
    }
    is_another_card(before, data);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    auto reading = read({reinterpret_cast<char const*>(data), size});
    if (!reading)
        return 0;
    auto& card = reading->data;
    require(card.card.fields >= 0 && card.card.fields <= limits::fields &&
            card.fields.size() == static_cast<std::size_t>(int{card.card.fields}) + 1);
    check_links(card);
    // A comma in a caption is written as it stands and ends it when it is read: behind one more
    // round the file must stay as it is.
    auto again = read(write_card(card));
    require(again.has_value());
    auto const written = write_card(again->data);
    auto last = read(written);
    require(last && last->findings.empty() && write_card(last->data) == written);
    return 0;
}
