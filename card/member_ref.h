// MemberRef: one member of a record, whatever its type, for code that walks over tables of members.
#pragma once

#include "base/colour.h"
#include "base/fixed_text.h"
#include "base/numbers.h"

#include <string>
#include <variant>

namespace kehystin {

using namespace base;

/// `double*` is a date, `Colour*` any 32-bit number.
using MemberRef =
    std::variant<FixedTextRef, Integer*, Flag*, Colour*, float*, double*, std::string*>;

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

} // namespace kehystin
