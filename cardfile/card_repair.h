// Stores the values of a card file in the records, and repairs those that cannot stand.
#pragma once

#include "cardfile/format.h"

#include <string>
#include <string_view>

namespace kehystin {

class CardRepair {
  public:
    /// Stores one value, given as code page bytes. Raises overflow for a colour or a real number
    /// that does not fit its type.
    void store(CardMember const& member, int element, std::string_view value);
    void store(FieldMember const& member, int number, std::string_view value);

    /// One row for each repair that is told, each ending in a line break.
    std::string const& report() const { return report_; }
    /// The path of a background picture that was not found; empty without one.
    std::string const& missing_picture() const { return missing_picture_; }

  private:
    /// `row_of_number` and `row_of_text` are what stands before the label in a row.
    struct RowHeads {
        std::string of_number;
        std::string of_text;
    };

    void store_text(FixedTextRef member, std::string_view value, Repair const& repair,
                    RowHeads const& heads);
    void store_picture(std::string_view value);
    /// The number that a value text stands for, put back into its range.
    double repaired_number(std::string_view value, Judged judged, Repair const& repair,
                           RowHeads const& heads);
    void add_row(std::string_view row);

    std::string report_;
    std::string missing_picture_;
};

} // namespace kehystin
