#include "cardfile/card_repair.h"

#include "forms/editor_form.h"
#include "model/session.h"
#include "platform/files.h"
#include "platform/host.h"

#include <cmath>

namespace kehystin {

namespace {

/// What a number beyond 16 bits counts as: it lies outside every range, and the row shows it.
constexpr double beyond_integers = 31111;

float& real(MemberRef const& member) {
    return *std::get<float*>(member);
}

void store_number(MemberRef const& member, double number) {
    if (auto* const* flag = std::get_if<Flag*>(&member))
        **flag = Flag(number != 0);
    else if (auto* const* colour = std::get_if<Colour*>(&member))
        **colour = to_long(number);
    else
        *std::get<Integer*>(member) = Integer(number);
}

/// A number beyond a double has no digits of its own: its row shows what is written.
std::string shown_number(double number, std::string_view value) {
    return std::isfinite(number) ? Format(number) : from_code_page(trimmed_view(value));
}

Date judged_date(std::string_view value) {
    auto const date = read_date(from_code_page(value));
    return date && *date <= Today() ? *date : Today();
}

/// The font name if the sample label takes it, otherwise the one that the label has then.
std::string accepted_font(std::string_view value) {
    auto& sample = fEditor->testFont;
    try {
        sample.FontName = Trim(from_code_page(value));
    } catch (RuntimeError const& error) {
        if (!error.is(ErrorNumber::invalid_property_value))
            throw;
    }
    return sample.FontName;
}

} // namespace

void CardRepair::add_row(std::string_view row) {
    // More than this nobody reads in a box.
    constexpr std::size_t longest_report = 100'000;
    if (report_.size() > longest_report)
        return;
    report_ += row;
    report_ += line_break;
}

void CardRepair::store_text(FixedTextRef member, std::string_view value, Repair const& repair,
                            RowHeads const& heads) {
    if (value.size() > member.length())
        add_row(heads.of_text + std::string(repair.label) + from_code_page(value) + "  ->  " +
                from_code_page(value.substr(0, member.length())) + std::string(repair.tail));
    member.assign_bytes(value);
}

void CardRepair::store_picture(std::string_view value) {
    auto path = trimmed_view(value);
    card.picture = "";
    // A picture that was never chosen has been written as NULs.
    if (path.empty() || path.front() == '\0')
        return;
    auto const expanded = path.front() == '+' ? session.cardFolder + from_code_page(path.substr(1))
                                              : from_code_page(path);
    if (names_a_file(expanded))
        card.picture = expanded;
    else
        missing_picture_ = expanded;
}

double CardRepair::repaired_number(std::string_view value, Judged judged, Repair const& repair,
                                   RowHeads const& heads) {
    // Judged as it is written: only what stands is rounded, when it is stored.
    double number = Val(value);
    if (judged != Judged::number && std::fabs(number) > 32767) {
        if (!repair.beyond_label.empty()) {
            add_row(std::string(repair.beyond_label) + shown_number(number, value) +
                    std::string(repair.tail));
            return repair.repaired;
        }
        number = beyond_integers;
    }
    double const highest =
        repair.highest + (repair.highest_of_card ? repair.highest_of_card(card) : 0);
    bool const stands = judged == Judged::guarded_flag
                            ? number == 0 || number == -1
                            : number >= repair.lowest && number <= highest;
    if (stands)
        return number;
    if (!repair.label.empty())
        add_row(heads.of_number + std::string(repair.label) + Format(number) +
                std::string(repair.tail));
    return judged == Judged::twips ? host().metrics().TwipsPerPixelX : repair.repaired;
}

void CardRepair::store(CardMember const& member, int element, std::string_view value) {
    auto const ref = member.ref(card, element);
    switch (member.judged) {
    case Judged::text:
        store_text(std::get<FixedTextRef>(ref), value, member.repair, {});
        break;
    case Judged::picture:
        store_picture(value);
        break;
    case Judged::id: {
        auto const id = trimmed_view(value);
        std::get<FixedTextRef>(ref).assign_bytes(id.size() == limits::id_length ? id : "");
        break;
    }
    case Judged::lowest: {
        double const number = Val(value);
        real(ref) = number < 1 ? 1 : to_single(number);
        break;
    }
    case Judged::highest: {
        // As both are stored: two numbers may be one in 32 bits.
        double const number = Val(value);
        bool const above = number > card.asiakasMin && to_single(number) > card.asiakasMin;
        real(ref) = above ? to_single(number) : card.asiakasMin + 100;
        break;
    }
    case Judged::date:
        *std::get<double*>(ref) = judged_date(value);
        break;
    case Judged::colour:
        store_number(ref, Val(value));
        break;
    default:
        store_number(ref, repaired_number(value, member.judged, member.repair, {}));
    }
}

void CardRepair::store(FieldMember const& member, int number, std::string_view value) {
    auto const ref = member.ref(field(number));
    // Rows of texts have a blank behind the number.
    RowHeads const heads{"field(" + Format(number), "field(" + Format(number) + " "};
    switch (member.judged) {
    case Judged::text:
        store_text(std::get<FixedTextRef>(ref), value, member.repair, heads);
        break;
    case Judged::font:
        std::get<FixedTextRef>(ref).assign_bytes(to_code_page(accepted_font(value)));
        break;
    case Judged::colour:
    case Judged::any_flag:
        store_number(ref, Val(value));
        break;
    default:
        store_number(ref, repaired_number(value, member.judged, member.repair, heads));
    }
}

} // namespace kehystin
