// What a session keeps in its folder of rescues, and how it gets there. For the files of this
// folder that keep work and offer it.
#pragma once

#include "boxes/failure_report.h"
#include "card/card.h"
#include "rescue/store.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kehystin {

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
        std::string name; ///< of an earlier session's where the disk failed to take it over
        rescue::What kind;
        std::string file;
        std::string bytes;        ///< of the after side
        std::uint64_t sum = 0;    ///< of the bytes
        bool of_open_card = true; ///< the next save of the open card makes it needless
    };
    std::vector<Beside> beside;
};

/// Null before the session has begun and after its end.
extern std::unique_ptr<Keeper> keeper;

/// Makes folder and lock when they are needed first. False where the machine has none to give.
bool begin_keeping();

/// Puts a rescue beside the unsaved card, under the next name of this session. Raises what the disk
/// raises.
void put_beside(rescue::Rescue one);
/// Counts a rescue in the folder among those.
void count_beside(std::string name, rescue::Rescue one);

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

} // namespace kehystin
