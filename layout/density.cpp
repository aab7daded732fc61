#include "layout/density.h"

#include "boxes/failure_report.h"
#include "layout/placing.h"
#include "links/link_list.h"
#include "model/card.h"
#include "platform/host.h"
#include "surface/rebuild.h"

#include <algorithm>
#include <map>

namespace kehystin {

namespace {

constexpr int gap_step = 2;    // pixels
constexpr int kind_gap = 4;    // more between fields of different kinds
constexpr int title_inset = 4; // a title stands that much lower than a sunken box

std::vector<int> data_fields() {
    std::vector<int> numbers;
    for (int i = 1; i <= card.fields; ++i)
        if (!field(i).is_title())
            numbers.push_back(i);
    return numbers;
}

/// The gap between the first two data fields, `step` wider; 0 without two. A first one that ends at
/// 0 is passed over.
Integer changed_gap(std::vector<int> const& numbers, int step) {
    auto place = numbers.begin();
    while (place != numbers.end() && field(*place).bottom() == 0)
        ++place;
    if (place == numbers.end() || std::next(place) == numbers.end())
        return 0;
    return field(*std::next(place)).top - field(*place).bottom() + step;
}

/// New tops by number: the data fields one below the other, the titles beside their first.
Places stacked(Integer gap, std::vector<int> const& numbers) {
    std::map<int, Integer> tops;
    for (std::size_t i = 1; i < numbers.size(); ++i) {
        auto const& previous = field(numbers[i - 1]);
        auto const moved = tops.find(numbers[i - 1]);
        Integer top = (moved == tops.end() ? previous.top : moved->second) + previous.height + gap;
        if (field(numbers[i]).style != previous.style)
            top += kind_gap;
        tops[numbers[i]] = top;
    }
    for (int i = 1; i <= card.fields; ++i) {
        int const linked = field(i).is_title() ? first_linked(i) : 0;
        if (linked <= 0)
            continue;
        auto const& data = field(linked);
        auto const moved = tops.find(linked);
        Integer const top = moved == tops.end() ? data.top : moved->second;
        tops[i] = top + (data.looks(Look::box) ? title_inset : 0);
    }
    return {tops.begin(), tops.end()};
}

/// Raises what the stack of the data fields will raise, before anything has changed.
void check_stack(int step) {
    auto const numbers = data_fields();
    stacked(changed_gap(numbers, step), numbers);
}

/// Sorts the records by their place from the top. Roles, manual links and the tab order go on
/// naming the old numbers. False when the surface could not be built again.
bool order_by_top(int step) {
    auto const before = fields;
    auto const first = fields.begin() + 1;
    auto const last = first + card.fields;
    auto const higher = [](Field const& a, Field const& b) { return a.top < b.top; };
    if (std::is_sorted(first, last, higher))
        return true;
    std::stable_sort(first, last, higher);
    try {
        check_stack(step);
    } catch (RuntimeError const&) {
        fields = before;
        throw;
    }
    if (!rebuild_in_place())
        return false;
    FillLinkList();
    return true;
}

void restack(int step) {
    if (!order_by_top(step))
        return;
    auto const numbers = data_fields();
    place_tops(stacked(changed_gap(numbers, step), numbers));
    finish_layout();
}

} // namespace

void cmd_dense_Click() {
    restack(-gap_step);
}

void cmd_expand_Click() {
    restack(gap_step);
}

void cmd_valign_link_Click() {
    auto const answer =
        MsgBox(lines({" Linkitettyjen kenttien otsikot ja datakentät     ",
                      " keskitetään pystysuunnassa ensimmäisen ",
                      " linkitetyn datakentän mukaan.     ", ""}),
               box::information + box::ok_cancel, " Linkitettyjen kenttien keskitys");
    if (answer == Answer::cancel)
        return;
    // One after the other: a list that is out of date may name a title that has just been moved.
    for (int i = 1; i <= card.fields; ++i)
        if (field(i).is_title() && contains(field(i).list.bytes(), "|"))
            place_tops({{i, field(first_linked(i)).top + title_inset}});
    finish_layout();
}

} // namespace kehystin
