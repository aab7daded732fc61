#include "krt/card_json.h"
#include "krt/commands.h"
#include "krt/files.h"
#include "krt/findings.h"

#include "card/identity.h"
#include "card/linking.h"

#include <algorithm>
#include <optional>

namespace krt {

namespace {

using kehystin::CardData;
using kehystin::Field;

/// What a field is known by: its caption, or that of its title.
std::string caption_of(Field const& field) {
    auto const own = field.caption.trimmed();
    return own.empty() ? field.group.trimmed() : own;
}

/// The partner of each field in the other card, by number; 0 for none.
struct Pairs {
    std::vector<int> of_first;
    std::vector<int> of_second;
};

Pairs pair_fields(CardData const& first, CardData const& second) {
    int const here = first.card.fields;
    int const there = second.card.fields;
    Pairs pairs{std::vector<int>(static_cast<std::size_t>(here) + 1),
                std::vector<int>(static_cast<std::size_t>(there) + 1)};
    auto const partner = [&](int i) -> int& { return pairs.of_first[static_cast<std::size_t>(i)]; };
    auto const owner = [&](int i) -> int& { return pairs.of_second[static_cast<std::size_t>(i)]; };
    auto const join = [&](int i, int j) {
        partner(i) = j;
        owner(j) = i;
    };
    auto const same_kind = [&](int i, int j) {
        return first.field(i).style == second.field(j).style;
    };
    auto const same_caption = [&](int i, int j) {
        auto const& one = first.field(i);
        auto const& other = second.field(j);
        return one.caption.is_blank() == other.caption.is_blank() &&
               caption_of(one) == caption_of(other);
    };
    auto const same_place = [&](int i, int j) {
        auto const& one = first.field(i);
        auto const& other = second.field(j);
        return one.left == other.left && one.top == other.top && one.width == other.width &&
               one.height == other.height;
    };
    auto const same_role = [&](int i, int j) {
        return first.field(i).is_title() == second.field(j).is_title();
    };
    auto const join_numbers = [&](auto const& fit) {
        for (int i = 1; i <= std::min(here, there); ++i)
            if (partner(i) == 0 && owner(i) == 0 && fit(i, i))
                join(i, i);
    };
    // What has got another number is known by its caption, where it has one.
    auto const join_captions = [&](auto const& fit) {
        for (int i = 1; i <= here; ++i)
            for (int j = 1; j <= there && partner(i) == 0; ++j)
                if (owner(j) == 0 && fit(i, j) && same_caption(i, j) &&
                    !caption_of(first.field(i)).empty())
                    join(i, j);
    };
    join_numbers(
        [&](int i, int j) { return same_place(i, j) && (same_kind(i, j) || same_caption(i, j)); });
    join_numbers([&](int i, int j) { return same_kind(i, j) && same_caption(i, j); });
    join_captions(same_kind);
    join_captions(same_role); // of another kind now
    join_numbers(same_kind);
    return pairs;
}

/// What each save writes anew, whatever the card is.
bool is_of_the_save(std::string_view member) {
    return member == "editDate" || member == "STPP";
}

/// What follows from the places of the fields says nothing of its own: both cards are linked anew,
/// and a field's title is compared as a field.
bool is_derived(Field const& one, std::string_view member) {
    return member == "group" || (one.is_title() && member == "list");
}

Json difference(int first, int second, std::string_view member, Json const& before,
                Json const& after) {
    Json found = Json::object();
    if (first != 0)
        found["field"] = first;
    if (second != 0 && second != first)
        found["now"] = second;
    found["member"] = member;
    found["before"] = before;
    found["after"] = after;
    return found;
}

/// What git names where a file was added or deleted.
constexpr std::string_view no_file = "/dev/null";

/// One of the two files; an empty card where there is none.
struct Side {
    bool is_there = false;
    CardData card = {};
};

class Comparison {
  public:
    Comparison(Side& one, Side& other)
        : first_(one.card), second_(other.card), pairs_(pair_fields(first_, second_)) {
        auto const& first = first_;
        auto const& second = second_;
        auto const before = card_to_json(first_);
        auto const after = card_to_json(second_);
        if (one.is_there && other.is_there)
            compare_cards(before["card"], after["card"]);
        else if (one.is_there)
            found_.push_back({{"removed", before["card"]}});
        else if (other.is_there)
            found_.push_back({{"added", after["card"]}});
        for (int i = 1; i <= first.card.fields; ++i)
            compare_field(i, before["fields"], after["fields"]);
        for (int j = 1; j <= second.card.fields; ++j)
            if (pairs_.of_second[static_cast<std::size_t>(j)] == 0)
                found_.push_back({{"now", j}, {"added", after["fields"][at(j)]}});
    }

    Json const& found() const { return found_; }

  private:
    static std::size_t at(int number) { return static_cast<std::size_t>(number) - 1; }

    void compare_cards(Json const& before, Json const& after) {
        for (auto const& [name, value] : before.items())
            if (!is_of_the_save(name) && !is_same(name, value, after[name]))
                found_.push_back(difference(0, 0, name, value, after[name]));
    }

    void compare_field(int i, Json const& before, Json const& after) {
        int const j = pairs_.of_first[static_cast<std::size_t>(i)];
        if (j == 0) {
            found_.push_back({{"field", i}, {"removed", before[at(i)]}});
            return;
        }
        if (i != j)
            found_.push_back(difference(i, j, "number", i, j));
        for (auto const& [name, value] : before[at(i)].items()) {
            if (is_derived(first_.field(i), name))
                continue;
            auto const& now = after[at(j)][name];
            if (!is_same(name, value, now))
                found_.push_back(difference(i, j, name, value, now));
        }
    }

    bool is_same(std::string_view member, Json const& before, Json const& after) const {
        auto const same_field = [this](Json const& one, Json const& other) {
            return is_same_field(one, other);
        };
        if (member == "linkki")
            return same_field(before, after);
        if (member == "fldSpeci")
            return std::equal(before.begin(), before.end(), after.begin(), after.end(), same_field);
        return before == after;
    }
    bool is_same_field(int before, int after) const {
        bool const known = before >= 1 && before <= first_.card.fields;
        return known ? pairs_.of_first[static_cast<std::size_t>(before)] == after : before == after;
    }

    CardData& first_;
    CardData& second_;
    Pairs pairs_;
    Json found_ = Json::array();
};

std::string in_words(Json const& one, CardData const& first, CardData const& second) {
    auto const name = [](CardData const& card, int number) {
        auto const* const kind = card.field(number).kind();
        auto const caption = plain(card.field(number).caption.trimmed());
        return (kind ? " " + std::string(kind->word) : "") +
               (caption.empty() ? "" : " ”" + caption + "”");
    };
    bool const of_field = one.contains("field") || one.contains("now");
    auto const card = [](Json const& whole) {
        return "kortti ”" + plain(whole["name"].get<std::string>()) + "”";
    };
    if (!of_field && one.contains("added"))
        return "uusi " + card(one["added"]);
    if (!of_field && one.contains("removed"))
        return card(one["removed"]) + " on poissa";
    if (one.contains("added")) {
        int const number = one["now"];
        return "uusi kenttä " + std::to_string(number) + name(second, number);
    }
    std::string text = "kortti";
    if (one.contains("field")) {
        int const number = one["field"];
        text = "kenttä " + std::to_string(number) + name(first, number);
    }
    if (one.contains("removed"))
        return text + " on poissa";
    if (one["member"] == "number")
        return text + " on nyt " + one["after"].dump();
    return text + ": " + one["member"].get<std::string>() + " " + plain(one["before"].dump()) +
           " -> " + plain(one["after"].dump());
}

/// Nothing, with a complaint, where there is something else than a card.
std::optional<Side> read_side(std::string const& file, Status& status) {
    if (file == no_file)
        return Side{};
    auto const bytes = read_bytes(file);
    auto reading = bytes ? Reader{Pictures::kept}.read(file, *bytes) : std::nullopt;
    if (!reading)
        return std::nullopt;
    auto const linking = kehystin::link_card(reading->data);
    if (linking.failure)
        complain(file, text_of(*linking.failure));
    if (!tell_faults(file, *reading) || linking.failure)
        status = Status::findings;
    return Side{true, std::move(reading->data)};
}

} // namespace

Status diff(std::string const& first, std::string const& second, Form form) {
    auto status = Status::quiet;
    auto before = read_side(first, status);
    auto after = read_side(second, status);
    if (!before || !after)
        return Status::failed;
    Comparison const comparison(*before, *after);
    bool const both = before->is_there && after->is_there;
    bool const another = both ? kehystin::is_another_card(before->card, after->card)
                              : before->is_there || after->is_there;
    auto const& found = comparison.found();
    if (form == Form::json) {
        Json const told = {{"before", first},
                           {"after", second},
                           {"another_card", another},
                           {"differences", found}};
        print(told.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n");
    } else {
        for (auto const& one : found)
            print(in_words(one, before->card, after->card) + "\n");
        if (both && another && !found.empty())
            print("kortista on tullut toinen kortti\n");
    }
    return found.empty() ? status : Status::findings;
}

} // namespace krt
