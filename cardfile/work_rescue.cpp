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
    bool leaves_work = false;
    /// Set by whoever writes the disk, read by the session.
    std::shared_ptr<std::atomic<bool>> failed = std::make_shared<std::atomic<bool>>(false);
    bool failure_told = false;
    int saves = 0;
    /// Saves that were not finished: the card's file, and the number of the save.
    struct Unfinished {
        std::string file;
        int save;
    };
    std::vector<Unfinished> unfinished;
};

std::unique_ptr<Keeper> keeper;

std::string name_of_work() {
    return rescue::name_of_work(keeper->running->name());
}

std::string name_of_save(int save, What side) {
    return rescue::name_of_save(keeper->running->name(), save, side);
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
    MsgBox(lines({" Tallentamatonta korttia ei voida pitää tallessa kansiossa     ", "",
                  " " + keeper->store.folder() + "     ", "",
                  " Ohjelma toimii muuten tavalliseen tapaan, mutta keskeytyksen     ",
                  " jälkeen tallentamattomat muutokset on tehtävä uudelleen.     ", ""}),
           box::warning, " Tiedoksi");
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
    return {What::work,
            session.cardFile,
            rescue::time_of(Now()),
            becomes_another_card(),
            known_sum(session.cardFile),
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
    keeper->kept = open_card;
    keeper->kept_file = session.cardFile;
    keeper->keeps_work = true;
    host().in_background(write);
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
    rescue::remove_old_locks(keeper->store);
    auto found = rescue::look_for_rescues(keeper->store);
    for (auto const& name : found.needless)
        keeper->store.remove(name);
    if (found.rescues.empty() && found.unknown.empty())
        return std::nullopt;
    if (found.rescues.empty())
        return Offer{{}, std::move(found.unknown)};
    auto const own = std::find_if(found.rescues.begin(), found.rescues.end(), [](auto const& one) {
        return session.cardFormLoaded && !session.cardFile.empty() &&
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

/// This session keeps what an earlier one has kept. Whoever goes on with what a save was to write
/// needs no longer what the save was to replace.
void take_over(std::string const& name, What kind) {
    keeper->store.remove(name);
    if (kind == What::after)
        keeper->store.remove(rescue::before_of(name));
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
        if (open_kept_card(folder + name, one.file, one.new_id)) {
            if (one.kind == What::work)
                know_sum(one.file, one.file_sum);
            else
                know_what_is_left(one.file); // by the save that did not come to its end
            keep_work_now();                 // the disk has it from this session before it goes
            if (keeper->keeps_work && !*keeper->failed)
                take_over(name, one.kind);
        }
        return;
    }
    if (MsgBox(lines({" Poistetaanko pelastettu kortti pysyvästi?     ", "",
                      " Muuten se on edelleen tallessa ja sitä tarjotaan uudelleen.     "}),
               box::question + box::yes_no + box::second_default,
               " Pelastettu kortti") == Answer::yes)
        keeper->store.remove(name);
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
    if (!keeper || hands_are_on_the_card())
        return;
    if (!session.cardFormLoaded || !is_unsaved())
        drop_work();
    else if (!is_kept())
        with_folder(write_work);
    tell_failure();
}

void keep_work_now() {
    if (keeper && session.cardFormLoaded && is_unsaved() && !is_kept())
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
    if (!keeper || !std::exchange(keeper->keeps_work, false) || keeper->leaves_work)
        return;
    host().in_background([store = keeper->store, name = name_of_work()] { store.remove(name); });
}

void leave_work() {
    keep_work_now();
    if (keeper)
        keeper->leaves_work = true;
}

void offer_rescue() {
    if (!keeper || !keeper->store.keeps())
        return;
    if (auto const offer = choose_offer())
        offer_one(*offer);
}

SaveRescue::SaveRescue(std::string const& file, std::string_view bytes)
    : file_(file), bytes_(bytes) {
    with_folder([&] {
        int const save = ++keeper->saves;
        auto const time = rescue::time_of(Now());
        bool const again =
            std::any_of(keeper->unfinished.begin(), keeper->unfinished.end(),
                        [&](Keeper::Unfinished const& one) { return one.file == file_; });
        keeper->unfinished.push_back({file_, save});
        // What a save that failed has left of the file is in nobody's interest.
        auto const held = again ? std::nullopt : rescue::bytes_on_disk(file_);
        if (held)
            keeper->store.put(name_of_save(save, What::before),
                              to_file(Rescue{What::before, file_, time, false, 0, *held}));
        keeper->store.put(name_of_save(save, What::after),
                          to_file(Rescue{What::after, file_, time, bool(session.needNewID), 0,
                                         std::string(bytes)}));
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
    std::erase_if(keeper->unfinished, [&](Keeper::Unfinished const& one) {
        if (one.file != file_)
            return false;
        // The newer side first: while it is there, the older ones are not needed.
        keeper->store.remove(name_of_save(one.save, What::before));
        keeper->store.remove(name_of_save(one.save, What::after));
        return true;
    });
    return true;
}

bool is_open_in_another_session(std::string const& file) {
    if (!keeper || !keeper->store.keeps())
        return false;
    auto const own = keeper->running ? keeper->running->name() : std::string();
    return rescue::is_open_elsewhere(keeper->store, own, file);
}

} // namespace kehystin
