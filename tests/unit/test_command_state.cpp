#include "mainwindow/command_state.h"

#include "mainwindow/icon_bar.h"
#include "model/settings.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

class CommandState : public FreshSession {
  protected:
    void SetUp() override { start(); }
    Button& icon(int number) {
        for (int i = 1; i <= session.iconCount; ++i)
            if (fEditor->ico(i).Tag.get() == std::to_string(number))
                return fEditor->ico(i);
        throw RuntimeError(ErrorNumber::subscript_out_of_range);
    }
};

using enum Code;

TEST_F(CommandState, TitleCommandsAreReachedThroughTheirIconsOnly) {
    fEditor->cmd_align_ots.Enabled = true;
    UpdateCommandState(keep, keep, off, keep, on, keep);
    EXPECT_TRUE(fEditor->cmd_align.Enabled);
    EXPECT_FALSE(fEditor->cmd_align_left.Enabled);
    EXPECT_TRUE(fEditor->cmd_align_ots.Enabled);
    EXPECT_TRUE(icon(16).Enabled);
    UpdateCommandState(keep, keep, keep, keep, off, keep);
    EXPECT_FALSE(fEditor->cmd_align_ots.Enabled);
    UpdateCommandState(keep, keep, keep, keep, on, keep);
    EXPECT_FALSE(fEditor->cmd_align_ots.Enabled);
}

TEST_F(CommandState, EveryIconShowsAndRunsItsEntry) {
    settings.icoList[39] = 27; // stands in no default list
    set_ico();
    for (auto const& row : icon_table()) {
        if (!row.entry || row.click == IconClick::none || row.number == 29)
            continue;
        int runs = 0;
        auto& entry = (*fEditor).*row.entry;
        entry.Click = [&] { ++runs; };
        for (bool const enabled : {true, false}) {
            entry.Enabled = enabled;
            refresh_icons();
            bool const bright = enabled || row.grey == GreyState::none;
            auto& button = icon(std::abs(row.number));
            EXPECT_EQ(button.Enabled, bright);
            EXPECT_EQ(button.Picture.get().name(), std::string(row.picture) + (bright ? "" : "0"));
        }
        ico_Click(icon(row.number).index());
        EXPECT_EQ(runs, 1) << row.picture;
    }
}

} // namespace kehystin
