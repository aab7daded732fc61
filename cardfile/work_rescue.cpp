#include "cardfile/work_rescue.h"

#include "boxes/failure_report.h"
#include "card/writing.h"
#include "cardfile/known_file.h"
#include "cardfile/new_identity.h"
#include "cardfile/rescue_keeper.h"
#include "disk/disk.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/clock.h"
#include "platform/system.h"
#include "rescue/store.h"

#include <algorithm>
#include <exception>

namespace kehystin {

namespace {

using rescue::Rescue;
using rescue::What;

std::string name_of_work() {
    return rescue::name_of_work(keeper->running->name());
}

Rescue rescue_of_work() {
    auto copy = open_card;
    return {What::work,      session.cardFile,       rescue::time_of(Now()),
            ++keeper->steps, becomes_another_card(), known_sum(session.cardFile),
            write_card(copy)};
}

/// Nothing is raised there, also where the memory runs out: what stays is offered once too often.
template <class Work>
void in_background(Work const& work) {
    host().in_background([work] {
        try {
            work();
        } catch (std::exception const&) {
        }
    });
}

void write_work() {
    auto const write = [store = keeper->store, name = name_of_work(), work = rescue_of_work(),
                        failed = keeper->failed] {
        try {
            with_memory_checked([&] { store.put(name, rescue::to_file(work)); });
            *failed = false;
        } catch (std::exception const&) {
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
    in_background([store = keeper->store, name = name_of_work(),
                   other = rescue::name_beside(keeper->running->name(), ++keeper->numbers,
                                               What::work)] { store.rename(name, other); });
}

/// Whether a save that was not finished has left these bytes in the file: they are the beginning of
/// what it was to write.
bool is_left_by_a_save(std::string const& file, std::string_view held) {
    return std::any_of(keeper->beside.begin(), keeper->beside.end(), [&](auto const& one) {
        return one.kind == What::after && one.file == file && one.bytes.starts_with(held);
    });
}

bool is_one_file(std::string const& a, std::string const& b) {
    return a == b || disk::one_name_of(a) == disk::one_name_of(b);
}

/// Whether the file still holds what it held before a save that failed.
bool is_as_before(Keeper::Beside const& before) {
    auto const held = disk::bytes_on_disk(before.file);
    return held && rescue::checksum(*held) == before.sum;
}

/// Forgets what is not needed any more, the oldest first: while the newer is there, the older is
/// not needed.
template <class IsNeedless>
void drop_beside(IsNeedless const& is_needless) {
    std::vector<std::string> names; // all are found before the first goes
    for (auto const& one : keeper->beside)
        if (is_needless(one))
            names.push_back(one.name);
    for (auto const& name : names)
        keeper->store.remove(name);
    std::erase_if(keeper->beside, [&](Keeper::Beside const& one) {
        return std::find(names.begin(), names.end(), one.name) != names.end();
    });
}

/// The open card lies in a file. What was kept of it goes, but not of another card, and what saves
/// into that file were to write; of what files held before, only what this file held before this
/// card, or what is there all the same.
void drop_saved(std::string const& file) {
    drop_beside([&](Keeper::Beside const& one) {
        if (one.kind == What::work)
            return one.of_open_card;
        if (one.kind == What::after)
            return one.of_open_card || is_one_file(one.file, file);
        return (one.of_open_card && is_one_file(one.file, file)) || is_as_before(one);
    });
}

/// The user gave the card up: saves of it that left their file as it was are nothing any more.
void drop_given_up() {
    std::vector<std::string> whole;
    for (auto const& one : keeper->beside)
        if (one.kind == What::before && one.of_open_card && is_as_before(one))
            whole.push_back(one.file);
    drop_beside([&](Keeper::Beside const& one) {
        return one.of_open_card &&
               (one.kind == What::before
                    ? is_as_before(one)
                    : one.kind == What::after &&
                          std::find(whole.begin(), whole.end(), one.file) != whole.end());
    });
}

/// What could not be written is tried again: the disk may have room by then. Where the lock has
/// gone, somebody has deleted the folder.
bool is_kept() {
    return keeper->keeps_work && !*keeper->failed && keeper->running->is_locked() &&
           keeper->kept_file == session.cardFile && is_same_card(keeper->kept, open_card);
}

bool hands_are_on_the_card() {
    return System::current().mouse().captured || host().left_button_down();
}

} // namespace

void tell_failure_to_keep() {
    if (!keeper || !*keeper->failed || std::exchange(keeper->failure_told, true))
        return;
    struct Telling {
        Telling() { keeper->tells_failure = true; }
        ~Telling() { keeper->tells_failure = false; }
    } const telling;
    MsgBox(lines({" Tallentamatonta korttia ei voida pitää tallessa kansiossa     ", "",
                  " " + keeper->store.folder() + "     ", "",
                  " Ohjelma toimii muuten tavalliseen tapaan, mutta keskeytyksen     ",
                  " jälkeen tallentamattomat muutokset on tehtävä uudelleen.     ", ""}),
           box::warning, " Tiedoksi");
}

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
    tell_failure_to_keep();
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
    if (!keeper)
        return;
    drop_given_up();
    if (!session.cardFormLoaded)
        set_aside(); // nobody gave up a card that could not be shown any more
    if (std::exchange(keeper->keeps_work, false))
        in_background([store = keeper->store, name = name_of_work()] { store.remove(name); });
}

void begin_other_card() {
    drop_work();
    if (keeper)
        for (auto& one : keeper->beside)
            one.of_open_card = false;
}

void leave_work() {
    keep_work_now();
    if (keeper && *keeper->failed) {
        keep_work_now(); // the disk may have room again
        keeper->failure_told = false;
    }
    tell_failure_to_keep();
}

SaveRescue::SaveRescue(std::string const& file, std::string_view bytes)
    : file_(file), bytes_(bytes) {
    // One failing leaves the other.
    with_folder([&] {
        auto const held = disk::bytes_on_disk(file_);
        if (held && !is_left_by_a_save(file_, *held)) // what is left is in nobody's interest
            put_beside(
                {What::before, file_, rescue::time_of(Now()), 0, false, known_sum(file_), *held});
    });
    with_folder([&] {
        put_beside({What::after, file_, rescue::time_of(Now()), 0, bool(session.needNewID),
                    known_sum(file_), std::string(bytes_)});
    });
}

bool SaveRescue::finish() {
    if (!keeper)
        return true;
    keeper->store.before_operation();
    if (!disk::flush_to_disk(file_))
        return false;
    keeper->store.before_operation();
    if (disk::bytes_on_disk(file_) != bytes_ && !disk::is_closed_to_reading(file_))
        return false;
    host().finish_background();
    if (!keeper->running)
        return true;
    keeper->store.remove(name_of_work());
    keeper->keeps_work = false;
    drop_saved(file_);
    return true;
}

bool is_open_in_another_session(std::string const& file) {
    if (!keeper || !keeper->store.keeps())
        return false;
    auto const own = keeper->running ? keeper->running->name() : std::string();
    return rescue::is_open_elsewhere(keeper->store, own, file);
}

} // namespace kehystin
