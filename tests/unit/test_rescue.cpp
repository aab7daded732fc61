#include "rescue/store.h"

#include "base/errors.h"
#include "tests/unit/fresh_session.h"

#include <limits>

namespace rescue {

namespace {

/// The steps of a session go as its times here.
Rescue some(What kind, std::string file, std::int64_t time, std::string bytes) {
    return {kind, std::move(file), time, static_cast<std::uint64_t>(time), true,
            7,    std::move(bytes)};
}

} // namespace

class RescueFolder : public testing::Test {
  protected:
    /// What a session that has died has left.
    void leave(std::string const& name, Rescue const& rescue) const {
        store.put(name, to_file(rescue));
    }
    std::vector<std::string> offered() const {
        std::vector<std::string> names;
        for (auto const& found : look_for_rescues(store).rescues)
            names.push_back(found.name);
        return names;
    }
    using Names = std::vector<std::string>;

    kehystin::Folder folder;
    Store store{folder / "state"};
};

TEST_F(RescueFolder, ARescueComesBackWholeOrNotAtAll) {
    auto const one = some(What::after, "/koti/Åke, \r\n100 %/kortti.krt", 1'234'567'890'123,
                          std::string("a\0b\r\nsum 1", 9));
    auto const kept = to_file(one);
    auto const back = from_file(kept);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->kind, one.kind);
    EXPECT_EQ(back->file, one.file);
    EXPECT_EQ(back->time, one.time);
    EXPECT_EQ(back->step, one.step);
    EXPECT_TRUE(back->new_id);
    EXPECT_EQ(back->file_sum, 7U);
    EXPECT_EQ(back->bytes, one.bytes);
    for (std::size_t i = 0; i < kept.size(); ++i) {
        auto damaged = kept;
        damaged[i] = static_cast<char>(damaged[i] ^ 0x10);
        EXPECT_FALSE(from_file(damaged)) << i;
        EXPECT_FALSE(from_file(kept.substr(0, i))) << i;
    }
    EXPECT_FALSE(from_file(kept + "x"));
    for (auto const time : {std::numeric_limits<std::int64_t>::min(),
                            std::numeric_limits<std::int64_t>::max()}) // of no calendar
        EXPECT_FALSE(from_file(to_file(some(What::work, "", time, ""))));
}

TEST_F(RescueFolder, AFailedOperationLeavesTheOldFile) {
    int countdown = 0;
    Store const failing(folder / "state", [&] {
        if (--countdown == 0)
            throw base::RuntimeError(base::ErrorNumber::disk_full);
    });
    failing.put("x", "vanha");
    for (int operation = 1; operation <= 4; ++operation) {
        countdown = operation;
        EXPECT_THROW(failing.put("x", "uusi"), base::RuntimeError);
        EXPECT_EQ(store.bytes_of("x"), "vanha");
        EXPECT_EQ(store.names(), Names{"x"});
    }
    failing.put("x", "uusi");
    EXPECT_EQ(store.bytes_of("x"), "uusi");
#ifndef _WIN32 // where the folder's own rights say who may read it
    auto const status = std::filesystem::status(folder / "state/x");
    EXPECT_EQ(status.permissions(), std::filesystem::perms(0600));
#endif
    EXPECT_THROW(Store(folder / "state/x").put("y", ""), base::RuntimeError);
}

TEST_F(RescueFolder, OnlyWhatSessionsThatAreGoneHaveLeftIsOffered) {
    leave("gone.work", some(What::work, "/a.krt", 10, "a"));
    leave("gone2.work", some(What::work, "/b.krt", 20, "b"));
    store.put("vieras.txt", "x");
    {
        RunningSession const here(store);
        RunningSession const other(store);
        EXPECT_NE(here.name(), other.name());
        leave(other.name() + ".work", some(What::work, "/c.krt", 30, "c"));
        EXPECT_EQ(offered(), (Names{"gone2.work", "gone.work"}));
        EXPECT_EQ(look_for_rescues(store).unknown, Names{"vieras.txt"});
        other.note_file(folder / "kortti.krt");
        EXPECT_TRUE(is_open_elsewhere(store, here.name(), folder / "windows/../kortti.krt"));
        EXPECT_FALSE(is_open_elsewhere(store, other.name(), folder / "kortti.krt"));
    }
    EXPECT_EQ(offered().size(), 3U);
    EXPECT_FALSE(is_open_elsewhere(store, "", folder / "kortti.krt"));
}

TEST_F(RescueFolder, WhatIsElsewhereTooIsNotOffered) {
    auto const file = folder / "kortti.krt";
    auto const left_by_a_save = [&](std::string const& held) {
        kehystin::put_bytes(file, held);
        leave("s.work", some(What::work, file, 10, "uusi!"));
        leave("s+1.before", some(What::before, file, 11, "vanha"));
        leave("s+1.after", some(What::after, file, 11, "uusi"));
        auto const names = offered();
        for (auto const& name : store.names())
            store.remove(name);
        return names;
    };
    // Before the opening, in the middle, and when all was written.
    EXPECT_EQ(left_by_a_save("vanha"), (Names{"s+1.after"}));
    EXPECT_EQ(left_by_a_save("uu"), (Names{"s+1.after", "s+1.before"}));
    EXPECT_EQ(left_by_a_save("uusi"), Names{});
    // What was changed after a save that failed is newer than it.
    kehystin::put_bytes(file, "");
    leave("s+1.after", some(What::after, file, 11, "uusi"));
    leave("s.work", some(What::work, file, 12, "vielä uudempi"));
    EXPECT_EQ(offered(), Names{"s.work"});
    // Whatever the clock says.
    auto later = some(What::work, file, 1, "vielä uudempi");
    later.step = 12;
    leave("s.work", later);
    EXPECT_EQ(offered(), Names{"s.work"});
    // What lies beside the open card is another card.
    leave("s+0.work", some(What::work, file, 9, "toinen"));
    leave("s+2.after", some(What::after, file, 20, "uusin"));
    EXPECT_EQ(offered(), (Names{"s+2.after", "s+0.work"}));
    // What two sessions have is offered once.
    leave("t+1.after", some(What::after, file, 30, "uusin"));
    EXPECT_EQ(offered(), (Names{"s+2.after", "s+0.work"}));
}

TEST_F(RescueFolder, WhatWasDeclinedComesAfterAllOthers) {
    leave("a.work", some(What::work, "/a.krt", 30, "a"));
    leave("b.work", some(What::work, "/b.krt", 20, "b"));
    leave("c.work", some(What::work, "/c.krt", 10, "c"));
    auto const decline = [&] {
        auto const first = offered().front();
        store.rename(first, name_of_declined(first));
    };
    decline();
    EXPECT_EQ(offered(), (Names{"b.work", "c.work", "a.work.later1"}));
    decline();
    decline();
    EXPECT_EQ(offered(), (Names{"a.work.later1", "b.work.later1", "c.work.later1"}));
    decline();
    EXPECT_EQ(offered().back(), "a.work.later2");
}

TEST_F(RescueFolder, OnlyWhatDeadSessionsLeftOfThemselvesGoes) {
    std::string dead;
    {
        RunningSession const session(store);
        dead = session.name();
    }
    RunningSession const alive(store);
    std::vector<std::string> const gone{dead + ".lock", dead + ".work.tmp"};
    std::vector<std::string> const stay{alive.name() + ".work.tmp", "muistio.lock", "muistio.tmp",
                                        dead + ".txt"};
    auto const path = [&](std::string const& name) { return folder / "state/" + name; };
    auto const hour_ago = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    for (auto const& names : {gone, stay})
        for (auto const& name : names) {
            kehystin::put_bytes(path(name), "x");
            std::filesystem::last_write_time(path(name), hour_ago);
        }
    remove_remains(store);
    for (auto const& name : gone)
        EXPECT_FALSE(std::filesystem::exists(path(name))) << name;
    for (auto const& name : stay)
        EXPECT_TRUE(std::filesystem::exists(path(name))) << name;
    EXPECT_TRUE(std::filesystem::exists(path(alive.name() + ".lock")));
    EXPECT_EQ(look_for_rescues(store).unknown,
              (Names{dead + ".txt", "muistio.lock", "muistio.tmp"}));
}

} // namespace rescue
