#include "links/column_order.h"

#include "model/card.h"

#include <string>
#include <string_view>
#include <vector>

namespace kehystin {

namespace {

bool names_a_field(double number) {
    return number >= 1 && number <= card.fields;
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
    NewOrder() : new_number_(static_cast<std::size_t>(int{card.fields}) + 1, 0) {}

    bool has(int number) const { return new_number_[static_cast<std::size_t>(number)] != 0; }
    void append(int number) {
        old_numbers_.push_back(number);
        new_number_[static_cast<std::size_t>(number)] = static_cast<int>(old_numbers_.size());
    }
    /// The new number of a field; a number that names none stays.
    Integer follow(Integer number) const {
        return names_a_field(number) ? Integer(new_number_[static_cast<std::size_t>(int{number})])
                                     : number;
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

MovedTitle move_with_data(int title, NewOrder& order) {
    MovedTitle moved{title, {}};
    order.append(title);
    for (double const wanted : numbers_of(trimmed_view(field(title).list.bytes()))) {
        if (!names_a_field(wanted))
            continue;
        int const number = static_cast<int>(wanted);
        if (field(number).is_title() || order.has(number))
            continue;
        order.append(number);
        moved.data.push_back(number);
    }
    return moved;
}

void append_rest(NewOrder& order) {
    for (int i = 1; i <= card.fields; ++i)
        if (!order.has(i))
            order.append(i);
}

/// Still by the old numbers of the fields, with what they name by the new ones.
void renumber_links(std::vector<MovedTitle> const& titles, NewOrder const& order) {
    // A link by hand that no list knows of follows its title too. One made by geometry is only a
    // memory, which the next linking renews.
    for (int i = 1; i <= card.fields; ++i)
        if (!field(i).is_title() && field(i).linkitys)
            field(i).linkki = order.follow(field(i).linkki);
    for (auto const& title : titles) {
        std::string list;
        for (int const number : title.data) {
            field(number).linkki = order.follow(title.number);
            list += (list.empty() ? "" : "|") + std::to_string(order.follow(number));
        }
        // Longer numbers may not all fit any more; half a number would name another field.
        while (list.size() > decltype(Field::list)::length)
            list.erase(list.rfind('|'));
        field(title.number).list.assign_bytes(list);
    }
}

void renumber_roles(NewOrder const& order) {
    for (auto& role : card.fldSpeci)
        role = order.follow(role);
}

void reorder(NewOrder const& order) {
    auto moved = fields;
    std::size_t next = 1;
    for (int const number : order.old_numbers())
        moved[next++] = field(number);
    fields = std::move(moved);
}

} // namespace

void move_data(std::span<int const> titles) {
    NewOrder order;
    std::vector<MovedTitle> moved;
    for (int const title : titles)
        if (names_a_field(title) && field(title).is_title() && !order.has(title))
            moved.push_back(move_with_data(title, order));
    append_rest(order);
    renumber_links(moved, order);
    renumber_roles(order);
    reorder(order);
}

} // namespace kehystin
