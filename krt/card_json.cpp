#include "krt/card_json.h"

#include "card/format.h"
#include "card/reading.h"
#include "card/writing.h"
#include "krt/files.h"
#include "krt/findings.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <set>
#include <vector>

namespace krt {

using namespace kehystin;

namespace {

std::string without_padding(FixedTextRef text) {
    auto bytes = text.bytes();
    auto const last = bytes.find_last_not_of(std::string_view(" \0", 2));
    return from_code_page(bytes.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

std::string iso_date(Date date) {
    auto const day = from_date(date);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", day.year, day.month, day.day);
    return text;
}

Json value_to_json(MemberRef const& member) {
    return std::visit(Overloaded{
                          [](FixedTextRef text) -> Json { return without_padding(text); },
                          [](Integer* number) -> Json { return int{*number}; },
                          [](Flag* flag) -> Json { return int{flag->number()}; },
                          [](Colour* colour) -> Json { return *colour; },
                          [](float* number) -> Json {
                              // A whole number as one: that is how files have it.
                              if (std::floor(*number) == *number && std::fabs(*number) < 1e15F)
                                  return static_cast<std::int64_t>(*number);
                              return *number;
                          },
                          [](double* date) -> Json { return iso_date(*date); },
                          [](std::string* text) -> Json { return *text; },
                      },
                      member);
}

/// The place of a member, as JSON pointers write it.
std::string below(std::string const& pointer, std::string_view name) {
    auto escaped = std::string(name);
    for (auto const& [sign, code] : {std::pair("~", "~0"), {"/", "~1"}})
        for (auto at = escaped.find(sign); at != std::string::npos; at = escaped.find(sign, at + 2))
            escaped.replace(at, 1, code);
    return pointer + "/" + plain(escaped);
}

void take_text(FixedTextRef text, Json const& value, std::string const& pointer) {
    if (!value.is_string())
        throw BadJson(pointer, "pitäisi olla teksti");
    auto const& utf8 = value.get_ref<std::string const&>();
    auto const bytes = to_code_page(utf8);
    if (from_code_page(bytes) != utf8)
        throw BadJson(pointer, "merkkiä ei ole korttitiedoston merkistössä");
    if (bytes.size() > text.length())
        throw BadJson(pointer, "teksti on liian pitkä, enintään " + std::to_string(text.length()) +
                                   " merkkiä");
    if (bytes.find_first_of("\r\n") != std::string::npos)
        throw BadJson(pointer, "tekstissä ei voi olla rivinvaihtoa");
    text.assign_bytes(bytes);
}

/// A whole number may be written with a fraction of zeros.
std::int64_t whole_number(Json const& value, std::string const& pointer, std::int64_t lowest,
                          std::int64_t highest) {
    auto const number = value.is_number() ? value.get<long double>() : 0.5L;
    if (number != std::floor(number))
        throw BadJson(pointer, "pitäisi olla kokonaisluku");
    if (number < static_cast<long double>(lowest) || number > static_cast<long double>(highest))
        throw BadJson(pointer, "luku ei mahdu korttiin");
    return static_cast<std::int64_t>(number);
}

bool flag_number(Json const& value, std::string const& pointer) {
    if (value != 0 && value != -1)
        throw BadJson(pointer, "pitäisi olla -1 tai 0");
    return value != 0;
}

float real_number(Json const& value, std::string const& pointer) {
    if (!value.is_number())
        throw BadJson(pointer, "pitäisi olla luku");
    float number = 0;
    try {
        number = to_single(value.get<double>());
    } catch (RuntimeError const&) {
        throw BadJson(pointer, "luku ei mahdu korttiin");
    }
    // Wide enough for whole numbers of 64 bits too.
    if (value.get<long double>() != static_cast<long double>(number))
        throw BadJson(pointer, "luku on liian tarkka, kortissa on siitä noin 7 numeroa");
    return number;
}

double date_number(Json const& value, std::string const& pointer) {
    auto const text = value.is_string() ? value.get<std::string>() : std::string();
    auto const date = text.size() == 10 && text[4] == '-' ? read_date(text) : std::nullopt;
    if (!date)
        throw BadJson(pointer, "pitäisi olla kalenterin päivä muodossa \"2026-11-23\"");
    return *date;
}

void take_value(MemberRef const& member, Json const& value, std::string const& pointer) {
    std::visit(Overloaded{
                   [&](FixedTextRef text) { take_text(text, value, pointer); },
                   [&](Integer* number) { *number = whole_number(value, pointer, -32768, 32767); },
                   [&](Flag* flag) { *flag = flag_number(value, pointer); },
                   [&](Colour* colour) {
                       *colour = static_cast<Colour>(
                           whole_number(value, pointer, -2147483648LL, 2147483647LL));
                   },
                   [&](float* number) { *number = real_number(value, pointer); },
                   [&](double* date) { *date = date_number(value, pointer); },
                   [&](std::string*) {},
               },
               member);
}

Json const& member_of(Json const& object, std::string_view name, std::string const& pointer) {
    auto const found = object.find(name);
    if (found == object.end())
        throw BadJson(below(pointer, name), "puuttuu");
    return *found;
}

void require_object(Json const& value, std::string const& pointer) {
    if (!value.is_object())
        throw BadJson(pointer, "pitäisi olla olio");
}

template <class Known>
void refuse_unknown(Json const& object, std::string const& pointer, Known const& is_known) {
    for (auto const& [name, value] : object.items())
        if (!is_known(name))
            throw BadJson(below(pointer, name), "tuntematon jäsen");
}

bool stands_in_json(CardMember const& member) {
    return member.name != "fields"; // the length of the list says it
}

void take_card(Card& card, Json const& object) {
    std::string const pointer = "/card";
    require_object(object, pointer);
    refuse_unknown(object, pointer, [](std::string const& name) {
        auto const members = card_members();
        return std::any_of(members.begin(), members.end(), [&](CardMember const& member) {
            return member.name == name && stands_in_json(member);
        });
    });
    for (auto const& member : card_members()) {
        if (!stands_in_json(member))
            continue;
        auto const place = below(pointer, member.name);
        auto const& value = member_of(object, member.name, pointer);
        if (member.last == 0) {
            take_value(member.ref(card, 0), value, place);
            continue;
        }
        auto const count = static_cast<std::size_t>(member.last - member.first + 1);
        if (!value.is_array() || value.size() != count)
            throw BadJson(place, "pitäisi olla " + std::to_string(count) + " luvun lista");
        for (std::size_t i = 0; i < count; ++i)
            take_value(member.ref(card, member.first + static_cast<int>(i)), value[i],
                       below(place, std::to_string(i)));
    }
}

void take_field(Field& field, Json const& object, std::string const& pointer) {
    require_object(object, pointer);
    refuse_unknown(object, pointer, [](std::string const& name) {
        auto const members = field_members();
        return std::any_of(members.begin(), members.end(),
                           [&](FieldMember const& member) { return member.name == name; });
    });
    for (auto const& member : field_members())
        take_value(member.ref(field), member_of(object, member.name, pointer),
                   below(pointer, member.name));
}

/// Watches a parse: the parser itself takes the last of two members of one name, and any depth.
class StrictMembers {
  public:
    void see(Json::parse_event_t event, Json const& parsed) {
        using Event = Json::parse_event_t;
        switch (event) {
        case Event::key:
            open_.back().name = parsed.get<std::string>();
            if (!open_.back().names.insert(open_.back().name).second)
                throw BadJson(pointer(), "on kahdesti");
            return;
        case Event::value:
            return count_element();
        case Event::object_start:
        case Event::array_start:
            count_element();
            open_.push_back({event == Event::array_start, -1, {}, {}});
            if (open_.size() > deepest)
                throw BadJson("", "on liian syvä kortiksi");
            return;
        case Event::object_end:
        case Event::array_end:
            open_.pop_back();
        }
    }

    /// Where a value stands of which the parser could make nothing.
    std::string pointer_of_next() {
        count_element();
        return pointer();
    }

  private:
    static constexpr std::size_t deepest = 4; // the card, its fields, one of them, and one more
    struct Open {
        bool list;
        int element;
        std::string name; ///< of the member at hand
        std::set<std::string> names;
    };

    void count_element() {
        if (!open_.empty() && open_.back().list)
            ++open_.back().element;
    }
    std::string pointer() const {
        std::string pointer;
        for (auto const& open : open_)
            pointer = below(pointer, open.list ? std::to_string(open.element) : open.name);
        return pointer;
    }

    std::vector<Open> open_;
};

/// "field(3).left" as "/fields/2/left", "card.fldSpeci(7)" as "/card/fldSpeci/6".
std::string pointer_of(std::string const& key) {
    auto const dot = key.find(").");
    if (key.starts_with("field(") && dot != std::string::npos)
        return "/fields/" + std::to_string(field_of(key) - 1) + "/" + key.substr(dot + 2);
    auto name = key.substr(key.find('.') + 1);
    if (auto const open = name.find('('); open != std::string::npos) {
        int number = 0;
        std::from_chars(name.data() + open + 1, name.data() + name.size(), number);
        name = name.substr(0, open) + "/" + std::to_string(number - 1);
    }
    return "/card/" + name;
}

/// Raises for the first member in which two cards differ.
void require_same(Json const& wanted, Json const& got) {
    auto const differences = Json::diff(wanted, got);
    if (!differences.empty())
        throw BadJson(differences.front()["path"].get<std::string>(),
                      "arvo ei säily korttitiedostossa");
}

/// The card as its file would be read again must be the card.
void require_readable(CardData const& card, Date today) {
    auto written = card;
    auto const bytes = write_card(written);
    Surroundings around;
    around.today = today;
    around.folder = "+";
    SampleFont sample;
    around.kept_font = [&](std::string const& name) { return sample.kept(name); };
    auto read = read_card(bytes, {}, around);
    for (auto const& finding : read.findings)
        throw BadJson(pointer_of(finding.key), "arvo " + quoted(finding.found) + " ei kelpaa");
    auto wanted = card;
    require_same(card_to_json(wanted), card_to_json(read.data));
}

} // namespace

Json card_to_json(CardData& data) {
    Json card = Json::object();
    for (auto const& member : card_members()) {
        if (!stands_in_json(member))
            continue;
        auto& value = card[std::string(member.name)];
        if (member.last == 0) {
            value = value_to_json(member.ref(data.card, 0));
            continue;
        }
        for (int i = member.first; i <= member.last; ++i)
            value.push_back(value_to_json(member.ref(data.card, i)));
    }
    Json fields = Json::array();
    for (int i = 1; i <= data.card.fields; ++i) {
        Json field = Json::object();
        for (auto const& member : field_members())
            field[std::string(member.name)] = value_to_json(member.ref(data.field(i)));
        fields.push_back(std::move(field));
    }
    return {{"card", std::move(card)}, {"fields", std::move(fields)}};
}

Json parse_json(std::string_view text) {
    StrictMembers members;
    try {
        return Json::parse(text, [&](int, Json::parse_event_t event, Json const& parsed) {
            members.see(event, parsed);
            return true;
        });
    } catch (Json::parse_error const& error) {
        throw BadJson("", "ei ole JSONia, virhe tavun " + std::to_string(error.byte) + " kohdalla");
    } catch (Json::exception const&) {
        throw BadJson(members.pointer_of_next(), "luku on liian suuri");
    }
}

CardData json_to_card(Json const& json, Date today) {
    require_object(json, "");
    refuse_unknown(json, "",
                   [](std::string const& name) { return name == "card" || name == "fields"; });
    auto const& fields = member_of(json, "fields", "");
    CardData card;
    take_card(card.card, member_of(json, "card", ""));
    if (!fields.is_array())
        throw BadJson("/fields", "pitäisi olla lista");
    if (fields.size() > limits::fields)
        throw BadJson("/fields", "kenttiä on liikaa, enintään " + std::to_string(limits::fields));
    card.card.fields = fields.size();
    card.fields.resize(fields.size() + 1);
    for (std::size_t i = 0; i < fields.size(); ++i)
        take_field(card.fields[i + 1], fields[i], "/fields/" + std::to_string(i));
    require_readable(card, today);
    return card;
}

} // namespace krt
