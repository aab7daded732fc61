#include "tests/fuzz/session_checks.h"

#include "card/format.h"
#include "card/reading.h"
#include "card/writing.h"
#include "disk/disk.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "forms/panel_rows.h"
#include "model/card.h"
#include "model/session.h"
#include "panel/row_texts.h"
#include "platform/system.h"
#include "rescue/store.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace fuzz {

using namespace kehystin;

namespace {

void require(bool holds, std::string const& what) {
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what.c_str());
    std::abort();
}

std::string written(CardData data) {
    return write_card(data);
}

std::vector<std::string_view> lines_of(std::string_view bytes) {
    std::vector<std::string_view> lines;
    while (!bytes.empty()) {
        auto const end = std::min(bytes.find("\r\n"), bytes.size());
        lines.push_back(bytes.substr(0, end));
        bytes.remove_prefix(std::min(end + 2, bytes.size()));
    }
    return lines;
}

std::string key_of(std::string_view line) {
    return std::string(line.substr(0, line.find('=')));
}

/// A text that was never given a value holds NULs, which a reading takes for nothing.
void blank_nuls(CardData& data) {
    for (auto const& member : card_members())
        for (int i = member.first; i <= member.last; ++i) {
            auto const ref = member.ref(data.card, i);
            if (auto const* const text = std::get_if<platform::FixedTextRef>(&ref))
                text->assign_bytes(text->bytes().substr(0, text->bytes().find('\0')));
        }
}

/// The lines of a file that no save and no linking changes by itself.
std::string lasting_lines(std::string_view bytes) {
    std::string lasting;
    for (auto const line : lines_of(bytes)) {
        auto const key = key_of(line);
        bool const passing = key.ends_with(".group") || key.ends_with(".list") ||
                             key.ends_with(".linkki") || key.ends_with(".tabIndex");
        // The user may have agreed to leave titles without links.
        auto const kept = line.ends_with(".value=NOLINK") ? line.substr(0, line.size() - 6) : line;
        if (!passing)
            lasting.append(kept).append("\n");
    }
    return lasting;
}

bool hands_are_on_the_card(SessionHost const& host) {
    return host.button_down || platform::System::current().mouse().captured;
}

} // namespace

SessionChecks::Dangling SessionChecks::dangling_numbers() {
    Dangling found;
    auto const note = [&](char who, int place, int number) {
        if (number < 1 || number > card.fields)
            found.emplace_back(who, place, number);
    };
    for (int role = 1; role <= 30; ++role)
        if (int const number = card.fldSpeci[static_cast<std::size_t>(role)]; number != 0)
            note('r', role, number);
    for (int i = 1; i <= card.fields; ++i) {
        auto const& one = field(i);
        if (!one.is_title()) {
            if (one.linkki != 0)
                note('l', i, one.linkki);
            continue;
        }
        auto list = platform::trimmed_view(one.list.bytes());
        while (!list.empty()) {
            auto const end = std::min(list.find('|'), list.size());
            int number = 0;
            auto const* const stop = list.data() + end;
            if (auto const [at, error] = std::from_chars(list.data(), stop, number);
                error == std::errc() && at == stop)
                note('t', i, number);
            list.remove_prefix(std::min(end + 1, list.size()));
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

void SessionChecks::before_step() {
    dangling_ = dangling_numbers();
    fields_ = card.fields;
    boxes_ = host_.boxes.size();
    kept_ = kept_card;
    loaded_ = static_cast<bool>(session.cardFormLoaded);
    bytes_ = written(open_card);
}

void SessionChecks::check_numbers() const {
    require(card.fields >= 0 && fields.size() >= static_cast<std::size_t>(int{card.fields}) + 1,
            "there is a record for each field");
    // A delete leaves some numbers as they are, and a file may have had any.
    bool const other_card = !is_same_card(kept_, kept_card);
    if (card.fields < fields_ || other_card || !session.cardFormLoaded || !loaded_)
        return;
    auto const now = dangling_numbers();
    Dangling fresh;
    std::set_difference(now.begin(), now.end(), dangling_.begin(), dangling_.end(),
                        std::back_inserter(fresh));
    require(fresh.empty(), fresh.empty()
                               ? ""
                               : std::string("no new number without a field: ") +
                                     std::get<0>(fresh.front()) + " " +
                                     std::to_string(std::get<1>(fresh.front())) + " names " +
                                     std::to_string(std::get<2>(fresh.front())));
}

void SessionChecks::check_row_texts(int number) const {
    auto one = field(number);
    auto const* const kind = one.kind();
    if (!kind)
        return;
    auto const* const focused = platform::System::current().focused();
    for (auto const row : panel_kind(kind->prefix)->rows) {
        auto const& editor = editor_of(row);
        // What is being typed may be unfinished.
        if (panel_row(row).swatch || &editor == focused || row_of(session.pro_focus) == row)
            continue;
        auto const text = row_text(row, one);
        require(editor.Text.get() == text, "row " + std::to_string(static_cast<int>(row)) +
                                               " shows field " + std::to_string(number) + ": '" +
                                               editor.Text.get() + "' for '" + text + "'");
    }
}

void SessionChecks::check_selection(Step step) const {
    if (!session.cardFormLoaded) {
        require(!fCard, "no surface without a card");
        return;
    }
    require(fCard != nullptr, "a card has its surface");
    require(fEditor->cmb_field.ListCount() == card.fields + 1, "the selector lists all fields");
    for (int i = 1; i <= card.fields; ++i)
        require(fCard->visual_of(i) && fCard->focus.has(i),
                "field " + std::to_string(i) + " has its object and its frame");
    require(!fCard->focus.has(card.fields + 1), "no frame without a field");
    if (hands_are_on_the_card(host_))
        return;
    auto const selected = selected_fields();
    int const chosen = fEditor->cmb_field.ListIndex;
    if (chosen > 0)
        require(selected == std::vector{chosen}, "the chosen field is the selected one, " +
                                                     std::to_string(chosen) + " of " +
                                                     std::to_string(selected.size()));
    if (chosen == 0)
        require(selected.empty(), "no field is selected beside the card");
    if (selected.size() == 1)
        require(chosen == selected.front(), "the selected field is the chosen one");
    // Layout commands leave the rows alone.
    if (step == Step::chose && chosen > 0)
        check_row_texts(chosen);
}

void SessionChecks::check_failed_command() const {
    // Neither read nor saved, and still open: what a failed command was about is as it was. What a
    // user does at the same step in a dialog or at a row shows no failure of the file.
    bool failed = false;
    for (auto i = boxes_; i < host_.boxes.size(); ++i) {
        auto const& text = host_.boxes[i].text;
        failed = failed || text.find("avaaminen aiheutti virheen") != std::string::npos ||
                 text.find("tallentaminen aiheutti virheen") != std::string::npos ||
                 text.find("kyetty tunnistamaan") != std::string::npos ||
                 text.find("ei pysty kirjoittamaan") != std::string::npos;
    }
    if (!failed || !loaded_ || !session.cardFormLoaded || !is_same_card(kept_, kept_card))
        return;
    auto const now = written(open_card);
    auto const was = lasting_lines(bytes_);
    auto const is = lasting_lines(now);
    if (was == is)
        return;
    auto const a = lines_of(bytes_);
    auto const b = lines_of(now);
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        if (a[i] != b[i])
            std::fprintf(stderr, "'%.*s' became '%.*s'\n", static_cast<int>(a[i].size()),
                         a[i].data(), static_cast<int>(b[i].size()), b[i].data());
    require(false, "a failed command leaves the records: " + host_.boxes.back().text);
}

void SessionChecks::check_rescue() {
    if (host_.rescue_was_failed || hands_are_on_the_card(host_))
        return;
    rescue::Store const store(host_.state_folder());
    auto const& names = store.names();
    std::string own;
    for (auto const& name : names)
        if (name == rescue::name_of_work(rescue::session_of(name)) &&
            rescue::is_running(store, rescue::session_of(name)))
            own = name;
    bool const wanted = session.cardFormLoaded && is_unsaved();
    require(own.empty() != wanted,
            wanted ? "the unsaved card is kept" : "a saved card is not kept");
    if (!wanted)
        return;
    auto const bytes = store.bytes_of(own);
    auto const kept = bytes ? rescue::from_file(*bytes) : std::nullopt;
    require(kept.has_value(), "what is kept is whole");
    require(kept->file == session.cardFile, "what is kept knows its file");
    require(kept->bytes == written(open_card), "what is kept is the open card");
    rescued_ = kept->bytes;
}

void SessionChecks::after_kill() {
    if (rescued_.empty())
        return;
    rescue::Store const store(host_.state_folder());
    for (auto const& name : store.names())
        if (auto const bytes = store.bytes_of(name))
            if (auto const kept = rescue::from_file(*bytes); kept && kept->bytes == rescued_)
                return;
    require(false, "what was kept outlives the session");
}

void SessionChecks::after_step(Step step) {
    rescued_.clear();
    check_numbers();
    if (!host_.memory_failed) // then the records count, and what is seen of them may be old
        check_selection(step);
    check_failed_command();
    if (step == Step::waited)
        check_rescue();
}

void SessionChecks::check_round_trip() const {
    if (!session.cardFormLoaded || card.fields > limits::fields)
        return;
    auto copy = open_card;
    blank_nuls(copy);
    auto const bytes = write_card(copy);
    Surroundings around{host_.now()};
    around.kept_font = [&](std::string const& name) {
        return host_.accepts_font(name) ? name : std::string("MS Sans Serif");
    };
    std::vector<std::string> told;
    auto reading = read_card(bytes, open_card, around, [](Finding const&) { return true; });
    require(reading.end == Reading::End::read, "what is written is a card");
    for (auto const& finding : reading.findings)
        told.push_back(finding.key);
    auto const again = write_card(reading.data);
    auto const first = lines_of(bytes);
    auto const second = lines_of(again);
    require(first.size() == second.size(), "a reading finds as many lines");
    for (std::size_t i = 0; i < first.size(); ++i) {
        // A comma ends a text for the reader; where one is guarded, it stands for another byte.
        if (first[i].find(',') != std::string_view::npos)
            continue;
        bool const repaired = std::find(told.begin(), told.end(), key_of(first[i])) != told.end();
        require(first[i] == second[i] || repaired, "'" + std::string(first[i]) +
                                                       "' is read back, not '" +
                                                       std::string(second[i]) + "'");
    }
}

} // namespace fuzz
