// The process dies before any single step on the disk: the work can be had again all the same.
#include "card/reading.h"
#include "cardfile/work_rescue.h"
#include "mainwindow/document_state.h"
#include "rescue/store.h"
#include "tests/unit/fresh_session.h"

#include <functional>

namespace kehystin {

namespace {

/// Dies before the step on the disk with that number.
class DyingHost : public scenario::ScriptedHost {
  public:
    using ScriptedHost::ScriptedHost;
    void die_before(int step) { steps_left_ = step; }
    void before_file_operation() override {
        count();
        ScriptedHost::before_file_operation();
    }
    void before_rescue_operation() override {
        count();
        ScriptedHost::before_rescue_operation();
    }

  private:
    void count() {
        if (steps_left_ > 0 && --steps_left_ == 0)
            throw SessionEnd{};
    }
    int steps_left_ = 0;
};

constexpr int changed_left = 77;

/// The place of the second field, in the bytes of a card; -1 where they are none.
int left_in(std::string_view bytes) {
    auto const reading = read_card(bytes, {}, {.today = 50000});
    return reading.end == Reading::End::read ? int{reading.data.field(2).left} : -1;
}

} // namespace

class Killed : public testing::Test {
  protected:
    /// A session changes a card, and dies before one step of what it does then. False when it did
    /// not come to that step.
    bool dies(int step, std::function<void()> const& work) {
        std::filesystem::copy_file(KEHYSTIN_SCENARIOS "/files/kaksi.krt", file_,
                                   std::filesystem::copy_options::overwrite_existing);
        std::filesystem::remove_all(folder_ / "state");
        DyingHost host(folder_.path());
        Program program(host);
        program.Main();
        session.startFile = file_;
        cmd_open_Click();
        field(2).left = changed_left;
        MarkCardChanged();
        keep_work();
        host.die_before(step);
        try {
            work();
        } catch (SessionEnd const&) {
            return true;
        }
        return false;
    }
    /// The places of the second field in all that the user can have again: the file, and what is
    /// offered.
    std::vector<int> found() {
        std::vector<int> lefts{left_in(bytes_of(file_))};
        rescue::Store const store(folder_ / "state");
        for (auto const& one : rescue::look_for_rescues(store).rescues)
            lefts.push_back(left_in(one.rescue.bytes));
        return lefts;
    }
    bool is_found(int left) {
        auto const all = found();
        return std::find(all.begin(), all.end(), left) != all.end();
    }

    Folder folder_;
    std::string file_ = folder_ / "a.krt";
};

TEST_F(Killed, InASaveTheChangedCardIsThereAtEveryStep) {
    int step = 1;
    for (; dies(step, cmdTallenna_Click); ++step) {
        EXPECT_TRUE(is_found(changed_left)) << step;
        // The old one is there until the file holds the new one.
        EXPECT_TRUE(is_found(110) || found().front() == changed_left) << step;
    }
    EXPECT_GT(step, 12);
    EXPECT_EQ(found(), std::vector<int>{changed_left}); // done, nothing is kept any more
}

TEST_F(Killed, InKeepingTheWorkTheOneKeptBeforeIsThere) {
    constexpr int later_left = 78;
    int step = 1;
    auto const keep = [] {
        field(2).left = later_left;
        keep_work();
    };
    for (; dies(step, keep); ++step)
        EXPECT_TRUE(is_found(changed_left)) << step;
    EXPECT_GT(step, 3);
    EXPECT_TRUE(is_found(later_left));
}

} // namespace kehystin
