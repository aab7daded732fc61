#include "card/internal/repair.h"

#include <cmath>

namespace kehystin {

/// `number` is the field's, 0 for the card.
struct CardRepair::Place {
    Judged judged;
    Repair const& repair;
    int number;
    std::string const& key;
    std::string_view value;

    std::string row_head(bool of_text) const {
        // Rows of texts have a blank behind the number.
        return number == 0 ? "" : "field(" + Format(number) + (of_text ? " " : "");
    }
};

namespace {

/// What a number beyond 16 bits counts as: it lies outside every range, and the row shows it.
constexpr double beyond_integers = 31111;

/// Of a value that cannot stand so much is kept to tell it: a hostile file has thousands of them.
constexpr std::size_t longest_told = 500;

/// A number beyond a double has no digits of its own: its row shows what is written.
std::string shown_number(double number, std::string_view value) {
    return std::isfinite(number) ? Format(number) : from_code_page(trimmed_view(value));
}

void put_number(MemberRef const& member, double number) {
    if (auto* const* flag = std::get_if<Flag*>(&member))
        **flag = Flag(number != 0);
    else if (auto* const* colour = std::get_if<Colour*>(&member))
        **colour = to_long(number);
    else
        *std::get<Integer*>(member) = Integer(number);
}

} // namespace

void CardRepair::tell(Finding::What what, Place const& place, std::string kept, std::string row) {
    report_size_ += row.size();
    reading_.findings.push_back({what, place.key,
                                 from_code_page(place.value.substr(0, longest_told)),
                                 std::move(kept), std::move(row)});
}

void CardRepair::store_text(Place const& place, FixedTextRef member) {
    member.assign_bytes(place.value);
    if (place.value.size() <= member.length())
        return;
    auto kept = from_code_page(place.value.substr(0, member.length()));
    std::string row;
    if (has_room_for_rows())
        row = place.row_head(true) + std::string(place.repair.label) + from_code_page(place.value) +
              "  ->  " + kept + std::string(place.repair.tail);
    tell(Finding::What::cut, place, std::move(kept), std::move(row));
}

void CardRepair::store_picture(Place const& place) {
    auto& picture = reading_.data.card.picture;
    auto const path = trimmed_view(place.value);
    picture = "";
    // A picture that was never chosen has been written as NULs.
    if (path.empty() || path.front() == '\0')
        return;
    auto const expanded = path.front() == '+' ? around_.folder + from_code_page(path.substr(1))
                                              : from_code_page(path);
    if (!around_.has_file || around_.has_file(expanded)) {
        picture = expanded;
        return;
    }
    reading_.missing_picture = expanded;
    tell(Finding::What::missing_picture,
         {place.judged, place.repair, place.number, place.key, path}, {});
}

void CardRepair::store_id(Place const& place, FixedTextRef member) {
    auto const id = trimmed_view(place.value);
    bool const stands = id.size() == limits::id_length;
    member.assign_bytes(stands ? id : "");
    if (!stands && !id.empty())
        tell(Finding::What::repaired, place, {});
}

void CardRepair::store_real(Place const& place, float& member) {
    double const written = Val(place.value);
    float const lowest = reading_.data.card.asiakasMin;
    bool const is_lowest = place.judged == Judged::lowest;
    // The highest as both are stored: two numbers may be one in 32 bits.
    bool const stands = is_lowest ? written >= 1 : written > lowest && to_single(written) > lowest;
    member = stands ? to_single(written) : is_lowest ? 1 : lowest + 100;
    // Beyond 31 bits a hundred more is the same number: it may stand there already.
    if (!stands && written != static_cast<double>(member))
        tell(Finding::What::repaired, place, Format(static_cast<double>(member)));
}

void CardRepair::store_date(Place const& place, double& member) {
    auto const date = read_date(from_code_page(place.value));
    bool const stands = date && (!around_.today || *date <= *around_.today);
    member = stands ? *date : around_.today.value_or(0);
    if (!stands)
        tell(Finding::What::repaired, place, short_date(member));
}

void CardRepair::store_font(Place const& place, FixedTextRef member) {
    auto const wanted = Trim(from_code_page(place.value));
    auto const kept = around_.kept_font ? around_.kept_font(wanted) : wanted;
    member.assign_bytes(to_code_page(kept));
    if (kept != wanted)
        tell(Finding::What::repaired, place, kept);
}

double CardRepair::repaired_number(Place const& place) {
    // Judged as it is written: only what stands is rounded, when it is stored.
    auto const& repair = place.repair;
    double number = Val(place.value);
    double const repaired =
        place.judged == Judged::twips ? around_.twips_per_pixel : double(repair.repaired);
    if (place.judged != Judged::number && std::fabs(number) > 32767) {
        if (!repair.beyond_label.empty()) {
            tell(Finding::What::repaired, place, Format(repaired),
                 std::string(repair.beyond_label) + shown_number(number, place.value) +
                     std::string(repair.tail));
            return repaired;
        }
        number = beyond_integers;
    }
    double const highest =
        repair.highest + (repair.highest_of_card ? repair.highest_of_card(reading_.data.card) : 0);
    bool const stands = place.judged == Judged::guarded_flag
                            ? number == 0 || number == -1
                            : number >= repair.lowest && number <= highest;
    // What would be put in its place already stands there: nothing is repaired, nothing told.
    if (stands || number == repaired)
        return number;
    std::string row;
    if (!repair.label.empty() && has_room_for_rows())
        row = place.row_head(false) + std::string(repair.label) + Format(number) +
              std::string(repair.tail);
    tell(Finding::What::repaired, place, Format(repaired), std::move(row));
    return repaired;
}

void CardRepair::store_number(Place const& place, MemberRef const& member) {
    bool const any = place.judged == Judged::colour || place.judged == Judged::any_flag;
    put_number(member, any ? Val(place.value) : repaired_number(place));
}

void CardRepair::store(CardMember const& member, int element, std::string const& key,
                       std::string_view value) {
    auto const ref = member.ref(reading_.data.card, element);
    Place const place{member.judged, member.repair, 0, key, value};
    switch (member.judged) {
    case Judged::text:
        return store_text(place, std::get<FixedTextRef>(ref));
    case Judged::picture:
        return store_picture(place);
    case Judged::id:
        return store_id(place, std::get<FixedTextRef>(ref));
    case Judged::lowest:
    case Judged::highest:
        return store_real(place, *std::get<float*>(ref));
    case Judged::date:
        return store_date(place, *std::get<double*>(ref));
    default:
        return store_number(place, ref);
    }
}

void CardRepair::store(FieldMember const& member, int number, std::string const& key,
                       std::string_view value) {
    auto const ref = member.ref(reading_.data.field(number));
    Place const place{member.judged, member.repair, number, key, value};
    switch (member.judged) {
    case Judged::text:
        return store_text(place, std::get<FixedTextRef>(ref));
    case Judged::font:
        return store_font(place, std::get<FixedTextRef>(ref));
    default:
        return store_number(place, ref);
    }
}

} // namespace kehystin
