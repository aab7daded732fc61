#include "card/column_order.h"

#include <string>
#include <string_view>
#include <vector>

namespace kehystin {

namespace {

bool names_a_field(CardData const& card, double number) {
    return number >= 1 && number <= card.card.fields;
}

std::vector<double> numbers_of(std::string_view list) {
    std::vector<double> numbers;
    for (;;) {
        auto const bar = list.find('|');
        numbers.push_back(round_to_even(Val(list.substr(0, bar))));
        if (bar == std::string_view::npos)
            return numbers;
        list.remove_prefix(bar + 1);
    }
}

/// Old numbers in their new order, and the new number of each.
class NewOrder {
  public:
    explicit NewOrder(CardData const& card) : new_number_(card.count() + 1, 0) {}

    bool has(int number) const { return new_number_[static_cast<std::size_t>(number)] != 0; }
    void append(int number) {
        old_numbers_.push_back(number);
        new_number_[static_cast<std::size_t>(number)] = static_cast<int>(old_numbers_.size());
    }
    /// The new number of a field; a number that names none stays.
    Integer follow(Integer number) const {
        bool const known =
            number >= 1 && static_cast<std::size_t>(int{number}) < new_number_.size();
        return known ? Integer(new_number_[static_cast<std::size_t>(int{number})]) : number;
    }
    std::vector<int> const& old_numbers() const { return old_numbers_; }

  private:
    std::vector<int> old_numbers_;
    std::vector<int> new_number_;
};

struct MovedTitle {
    int number;
    std::vector<int> data;
};

MovedTitle move_with_data(CardData const& card, int title, NewOrder& order) {
    MovedTitle moved{title, {}};
    order.append(title);
    for (double const wanted : numbers_of(trimmed_view(card.field(title).list.bytes()))) {
        if (!names_a_field(card, wanted))
            continue;
        int const number = static_cast<int>(wanted);
        if (card.field(number).is_title() || order.has(number))
            continue;
        order.append(number);
        moved.data.push_back(number);
    }
    return moved;
}

void append_rest(CardData const& card, NewOrder& order) {
    for (int i = 1; i <= card.card.fields; ++i)
        if (!order.has(i))
            order.append(i);
}

/// Still by the old numbers of the fields, with what they name by the new ones.
void renumber_links(CardData& card, std::vector<MovedTitle> const& titles, NewOrder const& order) {
    // A link by hand that no list knows of follows its title too. One made by geometry is only a
    // memory, which the next linking renews.
    for (int i = 1; i <= card.card.fields; ++i) {
        auto& one = card.field(i);
        if (!one.is_title() && one.linkitys)
            one.linkki = order.follow(one.linkki);
    }
    for (auto const& title : titles) {
        std::string list;
        for (int const number : title.data) {
            card.field(number).linkki = order.follow(title.number);
            list += (list.empty() ? "" : "|") + std::to_string(order.follow(number));
        }
        // Longer numbers may not all fit any more; half a number would name another field.
        while (list.size() > decltype(Field::list)::length)
            list.erase(list.rfind('|'));
        card.field(title.number).list.assign_bytes(list);
    }
}

void renumber_roles(Card& record, NewOrder const& order) {
    for (auto& role : record.fldSpeci)
        role = order.follow(role);
}

void reorder(CardData& card, NewOrder const& order) {
    auto moved = card.fields;
    std::size_t next = 1;
    for (int const number : order.old_numbers())
        moved[next++] = card.field(number);
    card.fields = std::move(moved);
}

} // namespace

void order_columns(CardData& card, std::span<int const> titles) {
    card.field(static_cast<int>(card.count())); // raises here or nowhere
    NewOrder order(card);
    std::vector<MovedTitle> moved;
    for (int const title : titles)
        if (names_a_field(card, title) && card.field(title).is_title() && !order.has(title))
            moved.push_back(move_with_data(card, title, order));
    append_rest(card, order);
    renumber_links(card, moved, order);
    renumber_roles(card.card, order);
    reorder(card, order);
}

} // namespace kehystin
