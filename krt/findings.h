// What was found in a card, in words for people and for programs.
#pragma once

#include "card/checks.h"
#include "card/linking.h"
#include "card/reading.h"

#include <string>
#include <string_view>

namespace krt {

namespace base = kehystin::base;

/// A text of a card, or the name of a file, as it can stand in a line: without what would break or
/// colour it, and with a sign for each byte that is no text.
std::string plain(std::string_view text);
/// The same between quotes, and short.
std::string quoted(std::string const& value);

/// "repaired" and so on, as programs know it.
std::string_view name_of(kehystin::Finding::What what);
/// "no_title" and so on.
std::string_view name_of(kehystin::Check check);

/// What is the matter, in one line of Finnish.
std::string text_of(kehystin::Finding const& finding);
std::string text_of(kehystin::Check check, std::size_t count);

/// The field that a key belongs to, 0 for one of the card.
int field_of(std::string_view key);

/// A key that came later than the file is no fault of it.
bool is_fault(kehystin::Finding const& finding);

/// What a command that reads a card for something else says of its faults, in one line; empty
/// without any.
std::string faults_of(kehystin::Reading const& reading);

/// What is said of a linking that ended before its time.
std::string text_of(base::RuntimeError const& linking_failure);

/// What a check has to tell: nothing about as many columns as the register takes.
std::vector<int> told(kehystin::Check check, kehystin::CardData& card);

} // namespace krt
