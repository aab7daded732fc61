// The program beside krt that paints cards: it needs Qt, which krt does without.
#pragma once

#include "card/card.h"
#include "krt/commands.h"

#include <optional>
#include <string>
#include <vector>

namespace krt {

/// What a program wrote, and how it ended.
struct Painted {
    std::string bytes;
    Status status = Status::failed;
};

/// Runs krt-draw with these words and a card on its standard input; its messages are krt's own.
/// Nothing, with a complaint, where it is not there, does not end well or writes nothing.
std::optional<Painted> paint(std::vector<std::string> const& words, kehystin::CardData card);

} // namespace krt
