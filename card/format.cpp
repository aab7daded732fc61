#include "card/format.h"

#include <array>

namespace kehystin {

namespace {

template <auto Member>
MemberRef of_card(Card& record, int) {
    if constexpr (requires { static_cast<FixedTextRef>(record.*Member); })
        return static_cast<FixedTextRef>(record.*Member);
    else
        return &(record.*Member);
}

template <auto Member>
MemberRef element_of_card(Card& record, int element) {
    return &(record.*Member).at(static_cast<std::size_t>(element));
}

template <auto Member>
MemberRef of_field(Field& record) {
    if constexpr (requires { static_cast<FixedTextRef>(record.*Member); })
        return static_cast<FixedTextRef>(record.*Member);
    else
        return &(record.*Member);
}

double card_fields(Card const& record) {
    return int{record.fields};
}
double card_width(Card const& record) {
    return int{record.width};
}
double card_height(Card const& record) {
    return int{record.height};
}

using C = Card;
using F = Field;
using enum Judged;

// clang-format off
constexpr std::array card_table = {
    CardMember{"name", 0, 0, of_card<&C::name>, text,
               {.label = "Korttimallin nimi:  ", .tail = "     (max 50 merkkiä)"},
               Written::padded, "[CARD]"},
    CardMember{"fields", 0, 0, of_card<&C::fields>, guarded,
               {0, limits::fields, nullptr, 0, "Korttimallin kenttien lukumäärä:  ", "  ->  0     (0 - 300)"}},
    CardMember{"color", 0, 0, of_card<&C::color>, colour},
    CardMember{"transp", 0, 0, of_card<&C::transp>, guarded_flag,
               {-1, 0, nullptr, -1, "Kenttien läpinäkyvyys kortilla:  ", "  ->  -1     (0 tai -1)"}},
    CardMember{"width", 0, 0, of_card<&C::width>, guarded,
               {limits::smallest_card, limits::largest_card, nullptr, 300, "Korttimallin leveys:  ", "  ->  300     (60 - 3000)", "card.width:  "}},
    CardMember{"height", 0, 0, of_card<&C::height>, guarded,
               {limits::smallest_card, limits::largest_card, nullptr, 300, "Korttimallin korkeus:  ", "  ->  300     (60 - 3000)"}},
    CardMember{"picture", 0, 0, of_card<&C::picture>, picture, {}, Written::padded},
    CardMember{"STPP", 0, 0, of_card<&C::STPP>, twips, {1, 30}, Written::trimmed, {}, ""},
    CardMember{"ID", 0, 0, of_card<&C::ID>, id, {}, Written::trimmed, {}, ""},
    CardMember{"fldSpeci", 1, 30, element_of_card<&C::fldSpeci>, guarded,
               {0, 0, card_fields, 0}, Written::trimmed, "[SPECI]", "0"},
    CardMember{"dateStyle", 1, 4, element_of_card<&C::dateStyle>, guarded,
               {0, 4, nullptr, 1}, Written::trimmed, "[DATES]", "1"},
    CardMember{"asiakasStyle", 0, 0, of_card<&C::asiakasStyle>, guarded,
               {0, 2, nullptr, 1}, Written::trimmed, "[ASIAKAS]", "1"},
    CardMember{"asiakasMin", 0, 0, of_card<&C::asiakasMin>, lowest, {}, Written::trimmed, {}, "1"},
    CardMember{"asiakasMax", 0, 0, of_card<&C::asiakasMax>, highest, {}, Written::trimmed, {}, "1000"},
    CardMember{"asiakasStep", 0, 0, of_card<&C::asiakasStep>, guarded, {1, 9999, nullptr, 1}, Written::trimmed, {}, "1"},
    CardMember{"asiakasNum", 0, 0, of_card<&C::asiakasNum>, guarded, {1, 20, nullptr, 4}, Written::trimmed, {}, "4"},
    CardMember{"asiakasZero", 0, 0, of_card<&C::asiakasZero>, flag, {-1, 0, nullptr, -1}, Written::trimmed, {}, "-1"},
    CardMember{"autoZip", 0, 0, of_card<&C::autoZip>, flag, {-1, 0, nullptr, -1}, Written::trimmed, {}, "-1"},
    CardMember{"editDate", 0, 0, of_card<&C::editDate>, date, {}, Written::trimmed, {}, ""},
};

constexpr auto style_tail = [] {
    auto text = std::to_array("  ->  0     (0 - 7)");
    text[text.size() - 3] = '0' + highest_style;
    return text;
}();

// The bounds are what the register program has always accepted, also where the row names others.
constexpr std::array field_table = {
    FieldMember{"style", of_field<&F::style>, guarded, {0, highest_style, nullptr, 0, ").style:  ", style_tail.data()}},
    FieldMember{"caption", of_field<&F::caption>, text, {.label = ").caption:  ", .tail = "     (max 100 merkkiä)"}},
    FieldMember{"group", of_field<&F::group>, text, {.label = ").group:  ", .tail = "     (max 100 merkkiä)"}},
    FieldMember{"list", of_field<&F::list>, text, {.label = ").list:  ", .tail = "     (max 400 merkkiä)"}, Written::commas_guarded},
    FieldMember{"size", of_field<&F::size>, guarded, {1, limits::largest_size, nullptr, 1, ").size:  ", "  ->  1     (1 - 30000)"}},
    FieldMember{"value", of_field<&F::value>, text, {.label = ").value:  ", .tail = "     (max 50 merkkiä)"}, Written::value},
    FieldMember{"left", of_field<&F::left>, guarded, {0, 0, card_width, 20, ").left:  ", "  ->  20     (1 - kortin leveys)"}},
    FieldMember{"top", of_field<&F::top>, guarded, {0, 0, card_height, 20, ").top:  ", "  ->  20     (1 - kortin korkeus)"}},
    FieldMember{"width", of_field<&F::width>, guarded, {1, 300, card_width, 100, ").width:  ", "  ->  100     (1 - kortin leveys)"}},
    FieldMember{"height", of_field<&F::height>, guarded, {1, 300, card_height, 25, ").height:  ", "  ->  25     (1 - kortin korkeus)"}},
    FieldMember{"fontName", of_field<&F::fontName>, font},
    FieldMember{"fontSize", of_field<&F::fontSize>, guarded, {limits::smallest_font, limits::largest_font, nullptr, 8, ").fontSize:  ", "  ->  8     (4 - 32)"}},
    FieldMember{"fontBold", of_field<&F::fontBold>, guarded_flag, {-1, 0, nullptr, 0, ").fontBold:  ", "  ->  0     (0 tai -1)"}},
    FieldMember{"fontItalic", of_field<&F::fontItalic>, guarded_flag, {-1, 0, nullptr, 0, ").fontItalic:  ", "  ->  0     (0 tai -1)"}},
    FieldMember{"foreColor", of_field<&F::foreColor>, colour},
    FieldMember{"backColor", of_field<&F::backColor>, colour},
    FieldMember{"tabIndex", of_field<&F::tabIndex>, number, {0, limits::largest_tab_index}},
    FieldMember{"align", of_field<&F::align>, number, {0, 2}, Written::trimmed, "0"},
    FieldMember{"scaling", of_field<&F::scaling>, number, {0, 3}, Written::trimmed, "1"},
    FieldMember{"border", of_field<&F::border>, number, {0, 2}, Written::trimmed, "1"},
    FieldMember{"linkitys", of_field<&F::linkitys>, any_flag, {}, Written::trimmed, "0"},
    FieldMember{"linkki", of_field<&F::linkki>, number, {1, 0, card_fields, 0}, Written::trimmed, "0"},
};
// clang-format on

} // namespace

std::span<CardMember const> card_members() {
    return card_table;
}

std::span<FieldMember const> field_members() {
    return field_table;
}

std::string card_key(CardMember const& member, int element) {
    auto key = "card." + std::string(member.name);
    return member.last == 0 ? key : key + "(" + std::to_string(element) + ")";
}

std::string field_key_head(int number) {
    return "field(" + std::to_string(number) + ").";
}

std::string field_key(FieldMember const& member, int number) {
    return field_key_head(number) + std::string(member.name);
}

} // namespace kehystin
