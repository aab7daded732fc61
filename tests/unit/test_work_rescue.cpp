// When the unsaved card is kept anew.
#include "base/errors.h"
#include "cardfile/work_rescue.h"
#include "mainwindow/document_state.h"
#include "rescue/store.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

class WorkRescue : public FreshSession {
  protected:
    void SetUp() override {
        start();
        open(KEHYSTIN_SCENARIOS "/files/kaksi.krt");
        field(2).left = 77;
        MarkCardChanged();
    }
    /// The rescue of the work, if there is one.
    std::optional<rescue::Rescue> kept() const {
        rescue::Store const store(folder / "state");
        for (auto const& name : store.names())
            if (auto const bytes = store.bytes_of(name); bytes && name.ends_with(".work"))
                return rescue::from_file(*bytes);
        return std::nullopt;
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

} // namespace kehystin
