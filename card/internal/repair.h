// Stores the values of a card file in the records, and repairs those that cannot stand.
#pragma once

#include "card/format.h"
#include "card/reading.h"

#include <string>
#include <string_view>

namespace kehystin {

class CardRepair {
  public:
    /// Stores in the reading's card and tells of repairs in its findings. Both must outlive it.
    CardRepair(Reading& reading, Surroundings const& around) : reading_(reading), around_(around) {}

    /// Stores one value, given as code page bytes. Raises overflow for a colour or a real number
    /// that does not fit its type.
    void store(CardMember const& member, int element, std::string const& key,
               std::string_view value);
    void store(FieldMember const& member, int number, std::string const& key,
               std::string_view value);

  private:
    struct Place; // what is stored, and how it is told

    void store_text(Place const& place, FixedTextRef member);
    void store_picture(Place const& place);
    void store_id(Place const& place, FixedTextRef member);
    void store_real(Place const& place, float& member);
    void store_date(Place const& place, double& member);
    void store_font(Place const& place, FixedTextRef member);
    void store_number(Place const& place, MemberRef const& member);
    /// The number that a value text stands for, put back into its range.
    double repaired_number(Place const& place);
    /// A row that nobody reads is not even made: a hostile file has thousands of long ones.
    bool has_room_for_rows() const { return report_size_ <= longest_report; }
    void tell(Finding::What what, Place const& place, std::string kept, std::string row = {});

    Reading& reading_;
    Surroundings const& around_;
    std::size_t report_size_ = 0;
};

} // namespace kehystin
