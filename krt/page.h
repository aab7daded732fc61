// A card as a page on which it can be tried in a browser.
#pragma once

#include "card/card.h"
#include "card/linking.h"

#include <functional>
#include <string>

namespace krt {

struct PageSource {
    kehystin::CardData const& card;
    /// Of the same card, whose fields have their `group` by it.
    kehystin::Linking const& linking;
    /// Where a "+" of the background picture points.
    std::string folder;
    /// Told of each picture that is left out: one line of Finnish.
    std::function<void(std::string const& what)> complain;
};

/// The whole page: HTML that needs nothing else and runs nothing.
std::string page_of(PageSource const& source);

} // namespace krt
