// What must hold after each step of a session, whatever the step was. Where it does not, the
// process aborts and says why.
#pragma once

#include "card/card.h"
#include "tests/fuzz/session_steps.h"

#include <string>
#include <tuple>
#include <vector>

namespace fuzz {

class SessionChecks {
  public:
    explicit SessionChecks(SessionHost const& host) : host_(host) {}

    void before_step();
    void after_step(Step step);
    /// What is written is what is read again, but for what the reader repairs.
    void check_round_trip() const;
    /// The session was killed: what lay on the disk at the last look still does.
    void after_kill();

  private:
    /// Who names, the place, the number that names no field.
    using Dangling = std::vector<std::tuple<char, int, int>>;
    static Dangling dangling_numbers();
    void check_numbers() const;
    void check_selection(Step step) const;
    void check_failed_command() const;
    void check_rescue();
    void check_row_texts(int number) const;

    SessionHost const& host_;
    Dangling dangling_;
    int fields_ = 0;
    std::size_t boxes_ = 0;
    bool loaded_ = false;
    kehystin::CardData kept_;
    std::string bytes_;
    std::string rescued_; ///< bytes that lie on the disk as the work; empty where none need to
};

} // namespace fuzz
