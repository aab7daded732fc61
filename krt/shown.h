// What the commands that show a card have in common.
#pragma once

#include "card/card.h"
#include "card/linking.h"
#include "krt/commands.h"

#include <optional>
#include <string>

namespace krt {

/// A card as the editor would open it.
struct Shown {
    kehystin::CardData card;
    kehystin::Linking linking;
    Status status; ///< whether anything was told
};

/// Tells the first findings on standard error. Nothing, with a complaint, for what cannot be read.
std::optional<Shown> read_to_show(std::string const& file);

} // namespace krt
