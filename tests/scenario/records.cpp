#include "tests/scenario/records.h"

#include "card/format.h"
#include "model/default_looks.h"
#include "model/session.h"
#include "model/settings.h"
#include "platform/base.h"
#include "tests/scenario/words.h"

namespace scenario {

namespace {

using kehystin::MemberRef;
using platform::Value;

enum class Padding { without, with };

/// A record's name in messages, and what is left of the path behind it.
struct Asked {
    std::string record;
    NamePart member;
    Padding padding = Padding::without;

    [[noreturn]] void refuse() const {
        auto const index = member.index ? "(" + *member.index + ")" : std::string();
        throw StepError("expected the member " + record + "." + member.name + index +
                        ", found none");
    }
};

Asked read_rest(NamePath const& path, std::size_t from, std::string record) {
    bool const raw = path.size() > from + 1 && path.back().is_plain("raw");
    if (path.size() != from + (raw ? 2U : 1U))
        throw StepError("expected one member behind " + record);
    return {std::move(record), path[from], raw ? Padding::with : Padding::without};
}

Value value_of(MemberRef const& member, Padding padding) {
    return std::visit(kehystin::Overloaded{
                          [&](platform::FixedTextRef text) -> Value {
                              auto whole = text.str();
                              if (padding == Padding::without)
                                  whole.erase(whole.find_last_not_of(std::string_view(" \0", 2)) +
                                              1);
                              return whole;
                          },
                          [](double* date) -> Value { return platform::short_date(*date); },
                          [](std::string* text) -> Value { return *text; },
                          [](platform::Flag* flag) -> Value { return 1.0 * int{flag->number()}; },
                          [](platform::Integer* number) -> Value { return 1.0 * int{*number}; },
                          [](auto* number) -> Value { return static_cast<double>(*number); }},
                      member);
}

/// The element that is asked for, for a member with elements first to last (0 to 0 for a plain
/// one).
int element(Asked const& asked, int first, int last) {
    bool const plain = first == 0 && last == 0;
    if (plain != !asked.member.index)
        asked.refuse();
    int const number = plain ? 0 : asked.member.number();
    if (number < first || number > last)
        asked.refuse();
    return number;
}

Value card_value(Asked const& asked) {
    for (auto const& member : kehystin::card_members())
        if (member.name == asked.member.name)
            return value_of(member.ref(kehystin::card, element(asked, member.first, member.last)),
                            asked.padding);
    asked.refuse();
}

Value field_value(Asked const& asked, int number) {
    if (number < 0 || static_cast<std::size_t>(number) >= kehystin::fields.size())
        throw StepError("expected " + asked.record + ", found none");
    for (auto const& member : kehystin::field_members())
        if (asked.member.is_plain(member.name))
            return value_of(member.ref(kehystin::field(number)), asked.padding);
    asked.refuse();
}

Value session_value(Asked const& asked) {
    for (auto const& member : kehystin::session_members())
        if (asked.member.is_plain(member.name))
            return value_of(member.ref(kehystin::session), asked.padding);
    asked.refuse();
}

Value settings_value(Asked const& asked) {
    for (auto const& member : kehystin::settings_members())
        if (member.name == asked.member.name)
            return value_of(member.ref(kehystin::settings, element(asked, 0, member.count - 1)),
                            asked.padding);
    asked.refuse();
}

Value look_value(Asked const& asked, std::string const& kind_name) {
    auto const* const kind = kehystin::kind_of(kind_name);
    if (!kind)
        throw StepError("expected " + asked.record + ", found none");
    auto& look = kehystin::default_look(kind->style);
    struct Row {
        std::string_view name;
        MemberRef member;
    };
    for (auto const& [name, member] :
         {Row{"caption", &look.caption}, Row{"fontName", &look.fontName},
          Row{"fontSize", &look.fontSize}, Row{"fontBold", &look.fontBold},
          Row{"fontItalic", &look.fontItalic}, Row{"foreColor", &look.foreColor},
          Row{"backColor", &look.backColor}, Row{"width", &look.width}, Row{"height", &look.height},
          Row{"scaling", &look.scaling}, Row{"border", &look.border}})
        if (asked.member.is_plain(name))
            return value_of(member, asked.padding);
    asked.refuse();
}

} // namespace

std::optional<Value> value_of_record(NamePath const& path) {
    auto const& first = path.front();
    if (first.is_plain("card"))
        return card_value(read_rest(path, 1, "card"));
    if (first.name == "field" && first.index)
        return field_value(read_rest(path, 1, "field(" + *first.index + ")"), first.number());
    if (first.is_plain("settings"))
        return settings_value(read_rest(path, 1, "settings"));
    if (!first.is_plain("session"))
        return std::nullopt;
    if (path.size() > 2 && path[1].name == "default" && path[1].index)
        return look_value(read_rest(path, 2, "session.default(" + *path[1].index + ")"),
                          *path[1].index);
    return session_value(read_rest(path, 1, "session"));
}

bool is_field_of_card(NamePath const& path) {
    return path.size() == 1 && path[0].name == "field" && path[0].index && path[0].number() >= 1 &&
           path[0].number() <= kehystin::card.fields;
}

} // namespace scenario
