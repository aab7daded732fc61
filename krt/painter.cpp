#include "krt/painter.h"

#include "card/format.h"
#include "card/writing.h"
#include "krt/files.h"
#include "krt/programs.h"

#include <algorithm>

namespace krt {

namespace {

constexpr char const* name = "krt-draw"; // what a user knows it by

/// Bytes of a drawing, which stands in memory until the old file can be replaced.
constexpr std::size_t largest_picture = 64U * 1024 * 1024;

/// The card as it is read again: a file of the editor's would end most texts at their first comma.
std::string guarded_bytes(kehystin::CardData& card) {
    using namespace kehystin;
    auto const guard = [](MemberRef const& member) {
        auto const* const text = std::get_if<FixedTextRef>(&member);
        if (!text)
            return;
        std::string bytes(text->bytes());
        std::replace(bytes.begin(), bytes.end(), ',', comma_stand_in);
        text->assign_bytes(bytes);
    };
    for (auto const& member : card_members())
        if (member.last == 0)
            guard(member.ref(card.card, 0));
    for (int i = 1; i <= card.card.fields; ++i)
        for (auto const& member : field_members())
            guard(member.ref(card.field(i)));
    return write_card(card);
}

} // namespace

std::optional<Painted> paint(std::vector<std::string> const& words, kehystin::CardData card) {
    auto const program = find_painter();
    if (!program) {
        complain(name, "piirtävää ohjelmaa ei ole asennettu krt:n viereen");
        return std::nullopt;
    }
    auto ran = run(*program, words, guarded_bytes(card), largest_picture);
    if (!ran) {
        complain(name, "ei voi käynnistää");
        return std::nullopt;
    }
    if (ran->bytes.size() > largest_picture) {
        complain(words.front(), "kuvasta tulee liian suuri, yli 64 Mt");
        return std::nullopt;
    }
    bool const ended = ran->status && *ran->status <= static_cast<int>(Status::failed);
    auto const status = ended ? static_cast<Status>(*ran->status) : Status::failed;
    if (!ended || (status != Status::failed && ran->bytes.empty())) {
        complain(name, "ei toimi");
        return std::nullopt;
    }
    if (status == Status::failed)
        return std::nullopt;
    return Painted{std::move(ran->bytes), status};
}

} // namespace krt
