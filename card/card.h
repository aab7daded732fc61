// A card: the record of the card itself and the records of its fields.
#pragma once

#include "base/date.h"
#include "card/kinds.h"
#include "card/member_ref.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace kehystin {

struct Card {
    FixedText<50> name;
    Integer fields; ///< number of fields, and the highest field number
    Colour color = 0;
    Integer transp; ///< -1: title, check and option fields show the card behind them
    Integer width;  ///< pixels, of the card's window with its frame
    Integer height; ///< pixels
    FixedText<150> picture;
    Integer STPP; ///< twips per pixel of the screen of the last save; only stored
    std::array<Integer, 31> fldSpeci{}; ///< field numbers by role, 0 none; index 0 is never used
    std::array<Integer, 5> dateStyle{}; ///< index 0 is never used
    Integer asiakasStyle;
    float asiakasMin = 0;
    float asiakasMax = 0;
    Integer asiakasStep;
    Integer asiakasNum;
    Flag asiakasZero;
    Flag autoZip;
    Date editDate = 0;
    FixedText<20> ID;
    FixedText<180> reserved; ///< travels with whole records, is neither read nor written

    bool operator==(Card const&) const = default;
};

/// What `value` of a title says that must never receive automatic links.
inline constexpr std::string_view no_link = "NOLINK";

struct Field {
    Integer style; ///< the code of a Style
    FixedText<100> caption;
    FixedText<100> group; ///< data field: caption of the linked title, empty without a link
    FixedText<400> list;  ///< title: its data fields; drop-down: rows; image: path of the file
    Integer size;         ///< characters that the register accepts
    FixedText<50> value;
    Integer left; ///< pixels, as top, width and height
    Integer top;
    Integer width;
    Integer height;
    FixedText<50> fontName;
    Integer fontSize; ///< points
    Integer fontBold;
    Integer fontItalic;
    Colour backColor = 0;
    Colour foreColor = 0;
    Integer tabIndex;
    Integer align;
    Integer scaling;
    Integer border;
    Flag linkitys;          ///< -1: linked by hand
    Integer linkki;         ///< number of the linked title
    FixedText<78> reserved; ///< travels with whole records, is neither read nor written

    bool is(Style one) const { return style == code_of(one); }
    bool is_title() const { return is(Style::OTS); }
    /// Null when `style` names no kind; what asks for a column then gets a no.
    Kind const* kind() const { return kind_of(int{style}); }
    bool looks(Look look) const { return kind() && kind()->look == look; }
    bool holds(Value what) const { return kind() && kind()->value == what; }
    /// A title that must never receive automatic links.
    bool is_nolink() const { return trimmed_view(value.bytes()) == no_link; }
    Integer right() const { return left + width; }
    Integer bottom() const { return top + height; }

    bool operator==(Field const&) const = default;
};

namespace limits {
inline constexpr int fields = 300; // checked on reading only
inline constexpr int smallest_card = 60;
inline constexpr int largest_card = 3000;
inline constexpr int largest_field = 3000; // pixels each way
inline constexpr int smallest_font = 4;
inline constexpr int largest_font = 32;
inline constexpr int largest_size = 30000;
inline constexpr int largest_tab_index = 990;
inline constexpr std::size_t id_length = 20;
} // namespace limits

/// A whole card. Its fields are known by number, 1 to card.fields; element 0 exists and is never a
/// field. The array may be longer than the card: a delete only lowers `fields`.
struct CardData {
    Card card;
    std::vector<Field> fields = std::vector<Field>(1);

    /// How many fields the card says it has; none where it says less than none.
    std::size_t count() const;
    /// A field by number; raises subscript_out_of_range outside 0 to the array's end.
    Field& field(int number);
    Field const& field(int number) const;
};

/// True where the card and its fields are the same in every member.
bool is_same_card(CardData const& one, CardData const& other);

} // namespace kehystin
