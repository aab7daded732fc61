#include "layout/auto_place.h"

#include "boxes/failure_report.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/host.h"
#include "surface/rebuild.h"

#include <string>
#include <vector>

namespace kehystin {

namespace {

struct Place {
    Integer left;
    Integer top;
};

/// What the command may have to put back.
struct Snapshot {
    std::vector<Place> places; ///< by field number
    Integer width;
    Integer height;
};

Snapshot take_snapshot() {
    Snapshot snapshot{{{}}, card.width, card.height};
    for (int i = 1; i <= card.fields; ++i)
        snapshot.places.push_back({field(i).left, field(i).top});
    return snapshot;
}

void put_back(Snapshot const& snapshot) {
    card.width = snapshot.width;
    card.height = snapshot.height;
    for (int i = 1; i <= card.fields; ++i) {
        field(i).left = snapshot.places[static_cast<std::size_t>(i)].left;
        field(i).top = snapshot.places[static_cast<std::size_t>(i)].top;
    }
}

/// A number that names no field fails the command.
std::vector<int> linked_fields(Field& title) {
    auto text = title.list.trim();
    std::vector<int> numbers;
    if (Len(text) >= decltype(Field::list)::length) // the last number may be cut
        return numbers;
    while (!text.empty()) {
        numbers.push_back(Integer(Val(text)));
        auto const bar = text.find('|');
        text.erase(0, bar == std::string::npos ? bar : bar + 1);
    }
    return numbers;
}

Snapshot placed(Snapshot result, bool below) {
    constexpr int title_left = 25;
    constexpr int title_step = 20;
    constexpr int field_gap = 10;
    Integer y = title_step;
    for (int i = 1; i <= card.fields; ++i) {
        if (!field(i).is_title())
            continue;
        result.places[static_cast<std::size_t>(i)] = {title_left, y};
        y += title_step;
        for (int const data : linked_fields(field(i))) {
            Integer const top = below ? y : y - title_step;
            if (data < 0 || data > card.fields)
                throw RuntimeError(ErrorNumber::subscript_out_of_range);
            result.places[static_cast<std::size_t>(data)] = {below ? 20 : 120, top};
            y = top + field(data).height + field_gap;
        }
    }
    result.height = y + 30;
    return result;
}

} // namespace

void AutoPlace(int mode) {
    auto const before = take_snapshot();
    put_back(placed(before, mode == 1));
    if (!rebuild_in_place())
        return;
    auto const answer = MsgBox(lines({" Hyväksytkö muutokset?     ", ""}),
                               box::information + box::yes_no, " Muutokset tehty");
    if (answer != Answer::no)
        return;
    put_back(before);
    rebuild_in_place();
}

void cmdAutoPlace_Click() {
    AutoPlace(1);
    MsgBox("AutoPlace(1)Finished", box::ok, session.appTitle);
}

} // namespace kehystin
