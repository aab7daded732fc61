// The open card. Its records are the single truth: everything shown is a view of them, and whoever
// writes a member refreshes what shows it.
#pragma once

#include "card/card.h"
#include "platform/base.h"

#include <string_view>

namespace kehystin {

using namespace platform;

/// There is one.
extern CardData open_card;

/// The open card as it was last read or saved.
extern CardData kept_card;
/// True while the open card differs from that, or counts as changed all the same.
bool is_unsaved();

/// Its records, as most of the program calls them.
extern Card& card;
extern std::vector<Field>& fields;

/// A field by number; raises subscript_out_of_range outside 0 to the array's end.
inline Field& field(int number) {
    return open_card.field(number);
}

/// Makes the record a grey card of the usual size without fields. The other members stay as the
/// last card left them.
void empty_card(std::string_view name);

} // namespace kehystin
