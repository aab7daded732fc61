// What the register program would stumble over in a card.
#pragma once

#include "card/card.h"

#include <vector>

namespace kehystin {

enum class Check {
    no_title,       ///< data fields without a title
    unlinked_title, ///< titles without data fields that are not marked to be so
    columns,        ///< titles with data fields: the columns of the register
    no_label,       ///< check and option fields that show no label
    same_title,     ///< titles with data fields, of the same caption
};

/// In the order in which a card is checked before it is written.
inline constexpr Check all_checks[] = {Check::no_title, Check::unlinked_title, Check::columns,
                                       Check::no_label, Check::same_title};

/// More columns than this are too many.
inline constexpr int most_columns = 50;

/// Numbers of the fields that a check is about, each once and ascending; of the columns all. Goes
/// by the links that the records have. Trims the texts of the records that it reads. Raises
/// subscript_out_of_range where there are less fields than the card says.
std::vector<int> offenders(Check check, CardData& card);

} // namespace kehystin
