#include "cardfile/work_rescue.h"

#include "boxes/failure_report.h"
#include "card/writing.h"
#include "cardfile/document_commands.h"
#include "cardfile/known_file.h"
#include "cardfile/new_identity.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/clock.h"
#include "platform/system.h"
#include "rescue/disk.h"
#include "rescue/store.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <memory>
#include <optional>

namespace kehystin {

namespace {

using rescue::Rescue;
using rescue::What;

/// What a session keeps in its folder.
struct Keeper {
    rescue::Store store;
    std::unique_ptr<rescue::RunningSession> running;
    std::string noted_file; ///< what other sessions are told of this one
    CardData kept;          ///< as the disk has it, or is about to
    std::string kept_file;  ///< whose it was then
    bool keeps_work = false;
    /// Set by whoever writes the disk, read by the session.
    std::shared_ptr<std::atomic<bool>> failed = std::make_shared<std::atomic<bool>>(false);
    bool failure_told = false;
    bool tells_failure = false;
    std::uint64_t steps = 0;
    int numbers = 0;
    /// What lies in the folder beside the unsaved card until a save is finished: the sides of saves
    /// that were not, and rescues that were opened.
    struct Beside {
        std::string name;
        What kind;
        std::string file;
        std::string bytes;         ///< of the after side
        bool of_open_card = false; ///< the next save of the open card makes it needless
    };
    std::vector<Beside> beside;
};

std::unique_ptr<Keeper> keeper;

std::string name_of_work() {
    return rescue::name_of_work(keeper->running->name());
}

/// Makes folder and lock when they are needed first. False where the machine has none to give.
bool begin_keeping() {
    if (!keeper || !keeper->store.keeps())
        return false;
    if (!keeper->running)
        keeper->running = std::make_unique<rescue::RunningSession>(keeper->store);
    auto const file = session.cardFormLoaded ? session.cardFile : std::string();
    if (keeper->noted_file != file) {
        keeper->running->note_file(file);
        keeper->noted_file = file;
    }
    return true;
}

/// The first failure is told, the program works on.
void tell_failure() {
    if (!keeper || !*keeper->failed || std::exchange(keeper->failure_told, true))
        return;
    keeper->tells_failure = true;
    MsgBox(lines({" Tallentamatonta korttia ei voida pitää tallessa kansiossa     ", "",
                  " " + keeper->store.folder() + "     ", "",
                  " Ohjelma toimii muuten tavalliseen tapaan, mutta keskeytyksen     ",
                  " jälkeen tallentamattomat muutokset on tehtävä uudelleen.     ", ""}),
           box::warning, " Tiedoksi");
    keeper->tells_failure = false;
}

/// Runs what needs the folder; a failure is remembered.
template <class Work>
void with_folder(Work const& work) {
    try {
        if (begin_keeping())
            work();
    } catch (RuntimeError const&) {
        *keeper->failed = true;
    }
}

Rescue rescue_of_work() {
    auto copy = open_card;
    auto const taken = write_card(copy);
    return {What::work,      session.cardFile,       rescue::time_of(Now()),
            ++keeper->steps, becomes_another_card(), known_sum(session.cardFile),
            write_card(copy)};
}

void write_work() {
    auto const write = [store = keeper->store, name = name_of_work(), work = rescue_of_work(),
                        failed = keeper->failed] {
        try {
            with_memory_checked([&] { store.put(name, rescue::to_file(work)); });
            *failed = false;
        } catch (RuntimeError const&) {
            *failed = true;
        }
    };
    host().in_background(write);
    keeper->keeps_work = true;
    keeper->kept_file = session.cardFile;
    keeper->kept = open_card;
}

/// What is kept stays for the next session, and the next card that is kept here does not replace
/// it.
void set_aside() {
    if (!std::exchange(keeper->keeps_work, false))
        return;
    host().in_background([store = keeper->store, name = name_of_work(),
                          other = rescue::name_beside(keeper->running->name(), ++keeper->numbers,
                                                      What::work)] { store.rename(name, other); });
}

/// Puts a rescue beside the unsaved card, under the next name of this session. Raises what the disk
/// raises.
void put_beside(Rescue one, bool of_open_card = false) {
    one.step = ++keeper->steps;
    auto name = rescue::name_beside(keeper->running->name(), ++keeper->numbers, one.kind);
    keeper->store.put(name, to_file(one));
    auto const is_after = one.kind == What::after;
    keeper->beside.push_back({std::move(name), one.kind, std::move(one.file),
                              is_after ? std::move(one.bytes) : std::string(), of_open_card});
}

/// Whether a save that was not finished has left these bytes in the file: they are the beginning of
/// what it was to write.
bool is_left_by_a_save(std::string const& file, std::string_view held) {
    return std::any_of(keeper->beside.begin(), keeper->beside.end(), [&](auto const& one) {
        return one.kind == What::after && one.file == file && one.bytes.starts_with(held);
    });
}

/// What was kept of saves into a file, or of the card that has been saved into it, is not needed
/// any more. The newer goes last: while it is there, the older is not needed.
void drop_beside(std::string const& file) {
    std::erase_if(keeper->beside, [&](auto const& one) {
        if (one.file != file && !one.of_open_card)
            return false;
        keeper->store.remove(one.name);
        return true;
    });
}

/// What could not be written is tried again: the disk may have room by then.
bool is_kept() {
    return keeper->keeps_work && !*keeper->failed && keeper->kept_file == session.cardFile &&
           is_same_card(keeper->kept, open_card);
}

bool hands_are_on_the_card() {
    return System::current().mouse().captured || host().left_button_down();
}

/// What stands between this session and the unsaved card of an earlier one.
struct Offer {
    rescue::Found found;
    std::vector<std::string> unknown;
};

std::optional<Offer> choose_offer() {
    rescue::remove_remains(keeper->store);
    auto found = rescue::look_for_rescues(keeper->store);
    for (auto const& name : found.needless)
        keeper->store.remove(name);
    if (found.rescues.empty() && found.unknown.empty())
        return std::nullopt;
    if (found.rescues.empty())
        return Offer{{}, std::move(found.unknown)};
    auto const own = std::find_if(found.rescues.begin(), found.rescues.end(), [](auto const& one) {
        return !session.cardFile.empty() &&
               rescue::one_name_of(one.rescue.file) == rescue::one_name_of(session.cardFile);
    });
    auto& chosen = own == found.rescues.end() ? found.rescues.front() : *own;
    return Offer{std::move(chosen), std::move(found.unknown)};
}

std::string unknown_lines(Offer const& offer) {
    if (offer.unknown.empty())
        return {};
    return lines({" Kansiossa on myös tiedostoja, joita ohjelma ei tunnista tai jotka     ",
                  " ovat vahingoittuneet. Niihin ei kosketa, ensimmäinen niistä on     ",
                  " " + offer.unknown.front() + "     ", "", ""});
}

std::string what_was_found(Rescue const& rescue) {
    switch (rescue.kind) {
    case What::work:
        return " Edellinen istunto päättyi ennen kuin kortti tallennettiin:     ";
    case What::before:
        return " Kortin tallentaminen jäi kesken, tallessa on tiedosto ennen sitä:     ";
    case What::after:
        return " Kortin tallentaminen jäi kesken, tallessa on tallennettava kortti:     ";
    }
    return {};
}

/// What this session knows of the file whose card it has taken over: what it finds there is its own
/// work only where the session before has left it so.
void know_file_of(Rescue const& one, std::vector<rescue::Found> const& sides) {
    if (one.kind == What::work) {
        if (one.file_sum != 0)
            know_sum(one.file, one.file_sum);
        return;
    }
    auto const held = rescue::bytes_on_disk(one.file);
    bool const is_own = held && std::any_of(sides.begin(), sides.end(), [&](auto const& side) {
                            return side.rescue.kind == What::after
                                       ? side.rescue.bytes.starts_with(*held)
                                       : side.rescue.bytes == *held;
                        });
    know_sum(one.file, rescue::checksum(is_own ? *held : one.bytes));
}

std::vector<std::string_view> lines_of(std::string_view bytes) {
    std::vector<std::string_view> all;
    while (!bytes.empty()) {
        auto const end = std::min(bytes.find('\n'), bytes.size() - 1);
        all.push_back(bytes.substr(0, end));
        bytes.remove_prefix(end + 1);
    }
    std::sort(all.begin(), all.end());
    return all;
}

/// Whether reading a card file has lost something that a user has made: a field, or a text. Numbers
/// that the reader puts into their ranges are no loss.
bool loses_something(std::string_view kept, std::string_view taken) {
    auto const is_number = [](std::string_view line) {
        auto const value = line.substr(std::min(line.find('='), line.size()));
        return value.find_first_not_of("=-0123456789.,: \r") == std::string_view::npos;
    };
    auto const before = lines_of(kept);
    auto const now = lines_of(taken);
    std::vector<std::string_view> lost;
    std::set_difference(before.begin(), before.end(), now.begin(), now.end(),
                        std::back_inserter(lost));
    return before.size() != now.size() || !std::all_of(lost.begin(), lost.end(), is_number);
}

/// This session keeps what an earlier one has kept: the card that was opened as its own work, and
/// what else there is of it until the card is saved.
void take_over(std::vector<rescue::Found> const& found, rescue::Found const& opened) {
    auto copy = open_card;
    auto const taken = write_card(copy);
    bool const is_whole = !loses_something(opened.rescue.bytes, taken);
    bool const is_needless = is_whole && opened.rescue.kind == What::work;
    bool kept = false;
    with_folder([&] {
        for (auto const& one : found)
            if (!is_needless || one.name != opened.name)
                put_beside(one.rescue, true);
        kept = true;
    });
    keep_work_now(); // the disk has it from this session before it goes
    if (!kept || !keeper->keeps_work || *keeper->failed)
        return;
    for (auto const& one : found)
        keeper->store.remove(one.name);
    if (!is_whole)
        MsgBox(lines({" Kaikkea pelastetusta kortista ei voitu ottaa mukaan.     ", "",
                      " Se säilyy kansiossa " + keeper->store.folder() + "     ",
                      " kunnes kortti tallennetaan.     ", ""}),
               box::information, " Pelastettu kortti");
}

/// What the session of a rescue has left of that card: the rescue itself, and the sides of saves
/// into its file.
std::vector<rescue::Found> all_of(rescue::Found const& chosen) {
    auto found = rescue::look_for_rescues(keeper->store).rescues;
    std::erase_if(found, [&](rescue::Found const& one) {
        return one.name != chosen.name &&
               (rescue::session_of(one.name) != rescue::session_of(chosen.name) ||
                one.rescue.file != chosen.rescue.file || one.rescue.kind == What::work);
    });
    std::reverse(found.begin(), found.end()); // the oldest first
    return found;
}

void open_offered(rescue::Found const& chosen) {
    auto const& [name, one] = chosen;
    auto const found = all_of(chosen);
    if (std::none_of(found.begin(), found.end(),
                     [&](rescue::Found const& other) { return other.name == name; })) {
        MsgBox(lines({" Toinen Kehystin on jo avannut pelastetun kortin.     ", ""}),
               box::information, " Pelastettu kortti");
        return;
    }
    if (!open_kept_card(keeper->store.folder() + name, one.file, one.new_id))
        return;
    know_file_of(one, found);
    take_over(found, chosen);
}

void offer_one(Offer const& offer) {
    auto const& [name, one] = offer.found;
    auto const& folder = keeper->store.folder();
    if (name.empty()) {
        MsgBox(lines({" Pelastettujen korttien kansiossa     ", " " + folder + "     ", ""}) +
                   unknown_lines(offer),
               box::information, " Pelastettu kortti");
        return;
    }
    auto const file = one.file.empty() ? std::string("tallentamaton uusi kortti") : one.file;
    auto const question = lines({what_was_found(one), "", " " + file + "     ",
                                 " " + rescue::time_text(one.time) + "     ", "",
                                 " Se on tallessa kansiossa " + folder + "     ", "", ""}) +
                          unknown_lines(offer) + lines({" Avataanko pelastettu kortti?     "});
    if (MsgBox(question, box::question + box::yes_no, " Pelastettu kortti") == Answer::yes) {
        open_offered(offer.found);
        return;
    }
    if (MsgBox(lines({" Poistetaanko pelastettu kortti pysyvästi?     ", "",
                      " Muuten se on edelleen tallessa ja sitä tarjotaan uudelleen.     "}),
               box::question + box::yes_no + box::second_default,
               " Pelastettu kortti") == Answer::yes)
        keeper->store.remove(name);
    else
        keeper->store.rename(name, rescue::name_of_declined(name));
}

} // namespace

void begin_rescue() {
    keeper = std::make_unique<Keeper>();
    auto& machine = host();
    keeper->store =
        rescue::Store(machine.state_folder(), [&machine] { machine.before_rescue_operation(); });
}

void end_rescue() {
    if (!keeper)
        return;
    host().finish_background();
    keeper.reset();
}

void keep_work() {
    if (keeper && !hands_are_on_the_card())
        keep_work_before_box();
}

void keep_work_before_box() {
    if (!keeper || keeper->tells_failure)
        return;
    if (is_unsaved()) {
        if (!is_kept())
            with_folder(write_work);
    } else if (session.cardFormLoaded) {
        drop_work();
    } else {
        set_aside(); // nobody gave it up: it could not be shown any more
    }
    tell_failure();
}

void keep_work_now() {
    if (keeper && is_unsaved() && !is_kept())
        with_folder(write_work);
    host().finish_background();
}

void note_open_file() {
    try {
        begin_keeping();
    } catch (RuntimeError const&) {
        // Told when there is work to keep.
    }
}

void drop_work() {
    if (keeper && std::exchange(keeper->keeps_work, false))
        host().in_background(
            [store = keeper->store, name = name_of_work()] { store.remove(name); });
}

void begin_other_card() {
    drop_work();
    if (keeper)
        for (auto& one : keeper->beside)
            one.of_open_card = false;
}

void leave_work() {
    keep_work_now();
    if (keeper && *keeper->failed)
        keep_work_now(); // the disk may have room again
    tell_failure();
}

void offer_rescue() {
    if (!keeper || !keeper->store.keeps())
        return;
    if (auto const offer = choose_offer())
        offer_one(*offer);
}

SaveRescue::SaveRescue(std::string const& file, std::string_view bytes)
    : file_(file), bytes_(bytes) {
    // One failing leaves the other.
    with_folder([&] {
        auto const held = rescue::bytes_on_disk(file_);
        if (held && !is_left_by_a_save(file_, *held)) // what is left is in nobody's interest
            put_beside({What::before, file_, rescue::time_of(Now()), 0, false, 0, *held});
    });
    with_folder([&] {
        put_beside({What::after, file_, rescue::time_of(Now()), 0, bool(session.needNewID), 0,
                    std::string(bytes_)});
    });
    tell_failure();
}

bool SaveRescue::finish() {
    if (!keeper || !keeper->store.keeps())
        return true;
    keeper->store.before_operation();
    if (!rescue::flush_to_disk(file_))
        return false;
    keeper->store.before_operation();
    if (rescue::bytes_on_disk(file_) != bytes_)
        return false;
    host().finish_background();
    if (!keeper->running)
        return true;
    keeper->store.remove(name_of_work());
    keeper->keeps_work = false;
    drop_beside(file_);
    return true;
}

bool is_open_in_another_session(std::string const& file) {
    if (!keeper || !keeper->store.keeps())
        return false;
    auto const own = keeper->running ? keeper->running->name() : std::string();
    return rescue::is_open_elsewhere(keeper->store, own, file);
}

} // namespace kehystin
