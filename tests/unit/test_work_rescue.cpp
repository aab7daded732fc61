// When the unsaved card is kept anew.
#include "base/errors.h"
#include "card/writing.h"
#include "cardfile/work_rescue.h"
#include "mainwindow/document_state.h"
#include "platform/input.h"
#include "rescue/store.h"
#include "surface/load_card.h"
#include "surface/rebuild.h"
#include "tests/unit/fresh_session.h"

#include <algorithm>
#include <unistd.h>

namespace kehystin {

class WorkRescue : public FreshSession {
  protected:
    void SetUp() override {
        start();
        open(KEHYSTIN_SCENARIOS "/files/kaksi.krt");
        field(2).left = 77;
        MarkCardChanged();
    }
    std::vector<rescue::Rescue> all_kept() const {
        rescue::Store const store(folder / "state");
        std::vector<rescue::Rescue> all;
        for (auto const& name : store.names())
            all.push_back(*rescue::from_file(*store.bytes_of(name)));
        return all;
    }
    /// The rescue of the work, if there is one.
    std::optional<rescue::Rescue> kept() const {
        for (auto const& one : all_kept())
            if (one.kind == rescue::What::work)
                return one;
        return std::nullopt;
    }
    bool is_kept_before_a_save(std::string const& bytes) const {
        auto const all = all_kept();
        return std::any_of(all.begin(), all.end(), [&](rescue::Rescue const& one) {
            return one.kind == rescue::What::before && one.bytes == bytes;
        });
    }
    /// The card in a file of this folder that can be written.
    std::string save_as(std::string_view name) {
        auto const path = folder / name;
        host.answers = {scenario::FileAnswer{path}};
        cmdTallennaNimella_Click();
        EXPECT_FALSE(static_cast<bool>(session.cardModified));
        return path;
    }
};

TEST_F(WorkRescue, WhatCouldNotBeKeptIsTriedAgainWithoutAChange) {
    host.answers = {Answer::ok};
    host.fail_rescue_operation(3, static_cast<int>(ErrorNumber::disk_full));
    keep_work();
    EXPECT_FALSE(kept());
    EXPECT_EQ(host.boxes.size(), 1U);
    keep_work();
    EXPECT_TRUE(kept());
    EXPECT_EQ(host.boxes.size(), 1U);
}

TEST_F(WorkRescue, AnotherFileOfTheCardIsKeptWithIt) {
    keep_work();
    EXPECT_EQ(kept()->file, session.cardFile);
    host.answers = {scenario::FileAnswer{folder / "ei/ole.krt"}, Answer::ok};
    cmdTallennaNimella_Click();
    EXPECT_EQ(session.cardFile, folder / "ei/ole.krt");
    keep_work();
    ASSERT_TRUE(kept());
    EXPECT_EQ(kept()->file, session.cardFile);
}

TEST_F(WorkRescue, NothingIsKeptWhileTheHandsAreOnTheCardUnlessTheProcessEnds) {
    input::mouse_press(*fCard, 30, 25, false);
    input::mouse_move(*fCard, 60, 45);
    keep_work();
    EXPECT_FALSE(kept());
    program.keep_work();
    EXPECT_TRUE(kept());
}

TEST_F(WorkRescue, AFolderThatIsDeletedIsMadeAgainAndItsSessionRuns) {
    keep_work();
    std::filesystem::remove_all(folder / "state");
    keep_work();
    EXPECT_TRUE(kept());
    rescue::Store const store(folder / "state");
    EXPECT_TRUE(rescue::look_for_rescues(store).rescues.empty());
    EXPECT_TRUE(rescue::is_open_elsewhere(store, "", session.cardFile));
}

TEST_F(WorkRescue, EveryFileIsKeptBeforeItIsSavedOver) {
    auto const path = save_as("a.krt");
    auto const own = bytes_of(path);
    field(2).left = 78;
    MarkCardChanged();
    host.fail_file_operation(1, static_cast<int>(ErrorNumber::path_file_access));
    host.answers = {Answer::ok};
    cmdTallenna_Click();
    EXPECT_TRUE(is_kept_before_a_save(own));
    // Between two tries somebody else writes it.
    put_bytes(path, "toisen kortti");
    host.fail_file_operation(2, static_cast<int>(ErrorNumber::disk_full));
    host.answers = {Answer::yes, Answer::ok};
    cmdTallenna_Click();
    EXPECT_TRUE(is_kept_before_a_save("toisen kortti"));
    EXPECT_EQ(bytes_of(path), "");
    cmdTallenna_Click();
    EXPECT_FALSE(static_cast<bool>(session.cardModified));
    EXPECT_TRUE(all_kept().empty());
}

#ifndef _WIN32 // where other rights hold, and no test can end a process apart
/// A file that may be written but not read cannot be read back, which is no failure of the save.
TEST_F(WorkRescue, AFileThatIsClosedToReadingIsSaved) {
    using std::filesystem::perms;
    auto const path = save_as("a.krt");
    MarkCardChanged();
    host.answers = {Answer::ok, Answer::yes}; // its folder of rescues is closed too
    auto const save_as_a_user = [&] {
        std::filesystem::permissions(folder.path(), perms(0777));
        std::filesystem::permissions(path, perms(0222));
        if (geteuid() == 0 && seteuid(65534) != 0)
            std::_Exit(1);
        cmdTallenna_Click();
        std::_Exit(session.cardModified ? 2 : 0);
    };
    EXPECT_EXIT(save_as_a_user(), testing::ExitedWithCode(0), "");
}
#endif

TEST_F(WorkRescue, ACardThatCanNoLongerBeShownStaysKept) {
    host.answers = {Answer::ok};
    auto const before = open_card;
    unload_card_form(); // as when there is no memory for its window
    MsgBox("", 0, "");
    show_no_card();
    keep_work();
    ASSERT_TRUE(kept());
    auto written = before;
    EXPECT_EQ(kept()->bytes, write_card(written));
    // What comes after it is kept beside it.
    open(KEHYSTIN_SCENARIOS "/files/irti.krt");
    field(1).left = 5;
    MarkCardChanged();
    keep_work();
    EXPECT_EQ(all_kept().size(), 2U);
}

TEST_F(WorkRescue, AFileThatAnotherSessionHasOpenIsAskedAboutOnce) {
    auto const path = save_as("a.krt");
    rescue::Store const store(folder / "state");
    rescue::RunningSession const other(store);
    other.note_file(path);
    field(2).left = 78;
    MarkCardChanged();
    host.answers = {Answer::no};
    cmdTallenna_Click();
    EXPECT_NE(host.boxes.back().text.find("myös toisessa"), std::string::npos);
    EXPECT_EQ(host.boxes.back().flags, 52);
    EXPECT_TRUE(static_cast<bool>(session.cardModified));
    host.answers = {Answer::yes};
    cmdTallenna_Click();
    EXPECT_FALSE(static_cast<bool>(session.cardModified));
    MarkCardChanged();
    cmdTallenna_Click();
    EXPECT_FALSE(static_cast<bool>(session.cardModified));
}

TEST(WithoutAHome, ASaveIsFlushedAndReadBackAllTheSame) {
    struct Homeless : scenario::ScriptedHost {
        using ScriptedHost::ScriptedHost;
        std::string state_folder() const override { return {}; }
    };
    Folder const folder;
    Homeless host(folder.path());
    Program program(host);
    program.Main();
    std::filesystem::copy_file(KEHYSTIN_SCENARIOS "/files/kaksi.krt", folder / "a.krt");
    session.startFile = folder / "a.krt";
    cmd_open_Click();
    for (int operation = 1; operation <= 2; ++operation) {
        MarkCardChanged();
        host.fail_rescue_operation(operation, static_cast<int>(ErrorNumber::disk_io));
        host.answers = {Answer::ok};
        cmdTallenna_Click();
        EXPECT_TRUE(static_cast<bool>(session.cardModified)) << operation;
    }
}

/// Half of a file, as a full disk has left it, with both sides of that save beside it.
TEST_F(FreshSession, WhatOurOwnSaveHasLeftIsNotAskedAboutWhereTheOldCardIsOpened) {
    auto const file = folder / "a.krt";
    auto const old = bytes_of(KEHYSTIN_SCENARIOS "/files/kaksi.krt");
    auto const wanted = bytes_of(KEHYSTIN_SCENARIOS "/files/irti.krt");
    put_bytes(file, wanted.substr(0, wanted.size() / 2));
    rescue::Store const store(folder / "state");
    auto const leave = [&](std::string const& name, rescue::What kind, std::string const& bytes) {
        store.put(name, rescue::to_file({kind, file, 1, 1, false, rescue::checksum(old), bytes}));
    };
    leave("s+1.before", rescue::What::before, old);
    leave("s+2.after.later1", rescue::What::after, wanted);
    host.answers = {Answer::yes};
    start();
    EXPECT_EQ(card.fields, 2);
    cmdTallenna_Click();
    EXPECT_FALSE(static_cast<bool>(session.cardModified));
    EXPECT_EQ(host.boxes.size(), 1U);
}

} // namespace kehystin
