// The process is killed before any single call of the disk: the work can be had again all the same.
#include "card/reading.h"
#include "tests/faults/failing_calls.h"
#include "tests/faults/faulty_session.h"

#include <sys/wait.h>
#include <unistd.h>

namespace kehystin {

namespace {

struct Nothing {
    Nothing() {}
};
using Host = AnsweringHost<Nothing>;
using Deed = std::function<void(Program&, Host&)>;
namespace input = platform::input;

constexpr int killed = 9; // exit codes
constexpr int done = 7;

// Places of the second field: in the file, of a change that was kept, and of a later one.
constexpr int old_left = 110;
constexpr int changed_left = 77;
constexpr int later_left = 78;

/// -1 where the bytes are no whole card.
int left_in(std::string_view bytes) {
    auto const reading = read_card(bytes, {}, {.today = 50000});
    return reading.end == Reading::End::read ? int{reading.data.field(2).left} : -1;
}

void saves(Program&, Host&) {
    input::click(fEditor->cmdTallenna);
}

void keeps_a_later_change(Program&, Host&) {
    field(2).left = later_left;
    keep_work();
}

void takes_over(Program& program, Host&) {
    program.Main(); // opens what it is offered
}

void takes_over_and_saves(Program& program, Host& host) {
    takes_over(program, host);
    saves(program, host);
}

void takes_over_and_gives_up(Program& program, Host& host) {
    takes_over(program, host);
    host.yes_or_no = Answer::no;
    input::click(fEditor->cmd_lopeta);
}

} // namespace

/// A folder in which sessions, processes of their own, work one after the other.
class Kills : public testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::remove_all(folder_ / "state");
        std::filesystem::copy_file(KEHYSTIN_SCENARIOS "/files/kaksi.krt", file_,
                                   std::filesystem::copy_options::overwrite_existing);
    }
    Deed opens_and_changes() const {
        return [this](Program& program, Host&) {
            program.Main();
            session.startFile = file_;
            cmd_open_Click();
            field(2).left = changed_left;
            MarkCardChanged();
            keep_work();
        };
    }
    /// A save that the disk takes no further than the opening, and the death of that session.
    void leave_a_failed_save() const {
        run(0, opens_and_changes(), [](Program& program, Host& host) {
            host.fail_file_operation(2, static_cast<int>(ErrorNumber::disk_full));
            saves(program, host);
        });
    }

    /// A session prepares, then does something and is killed before one call of the disk that it
    /// makes for it; 0 for none. False when it did not come to that call.
    bool run(int call, Deed const& prepare, Deed const& deed) const {
        auto const child = ::fork();
        if (child == 0)
            live(call, prepare, deed);
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_TRUE(WEXITSTATUS(status) == killed || WEXITSTATUS(status) == done) << status;
        return WEXITSTATUS(status) == killed;
    }
    /// Kills the deed before calls that are so far apart, up to its end. How many there were.
    int kill_everywhere(std::function<void()> const& before, Deed const& prepare, Deed const& deed,
                        std::function<void()> const& check, int apart = 1) {
        for (int call = 1;; call += apart) {
            SCOPED_TRACE("call " + std::to_string(call));
            SetUp();
            before();
            bool const goes_on = run(call, prepare, deed);
            check();
            if (!goes_on || HasFailure())
                return call - 1;
        }
    }

    /// In the file, and in all that is offered.
    bool can_be_had(int left) const {
        rescue::Store const store(folder_ / "state");
        auto const found = rescue::look_for_rescues(store).rescues;
        return left_in(bytes_of(file_)) == left ||
               std::any_of(found.begin(), found.end(), [&](rescue::Found const& one) {
                   return left_in(one.rescue.bytes) == left;
               });
    }
    /// While the file does not hold the new card, both can be had.
    void check_both() const {
        EXPECT_TRUE(can_be_had(changed_left));
        EXPECT_TRUE(can_be_had(old_left) || left_in(bytes_of(file_)) == changed_left);
    }

    Folder folder_;
    std::string file_ = folder_ / "a.krt";

  private:
    [[noreturn]] void live(int call, Deed const& prepare, Deed const& deed) const {
        Host host(folder_.path());
        auto* const program = new Program(host); // nobody tidies up after it
        int calls = 0;
        try {
            prepare(*program, host);
            faults::before_call = [&](faults::Call const&) {
                if (++calls == call)
                    ::_exit(killed);
                return 0;
            };
            deed(*program, host);
        } catch (platform::SessionEnd const&) {
            // As a session ends that nobody kills.
        }
        ::_exit(done);
    }
};

TEST_F(Kills, ASaveLosesNeitherCard) {
    auto const calls = kill_everywhere([] {}, opens_and_changes(), saves, [&] { check_both(); });
    EXPECT_GT(calls, 30);
    EXPECT_FALSE(can_be_had(old_left)); // done: nothing is kept any more
}

TEST_F(Kills, KeepingTheWorkLeavesTheOneKeptBefore) {
    auto const calls =
        kill_everywhere([] {}, opens_and_changes(), keeps_a_later_change,
                        [&] { EXPECT_TRUE(can_be_had(changed_left) || can_be_had(later_left)); });
    EXPECT_GT(calls, 5);
    EXPECT_TRUE(can_be_had(later_left));
}

TEST_F(Kills, WhatAFailedSaveHasLeftOutlivesTheSessionThatTakesItOver) {
    auto const nothing = [](Program&, Host&) {};
    for (auto const& deed : {takes_over, takes_over_and_saves, takes_over_and_gives_up}) {
        constexpr int usual = 3;
        auto const calls = kill_everywhere([&] { leave_a_failed_save(); }, nothing, deed,
                                           [&] { check_both(); }, places_between(usual));
        EXPECT_GT(calls, 20);
    }
}

} // namespace kehystin
