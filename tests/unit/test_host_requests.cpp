// What the program asks of a machine that has folders and a window manager.
#include "app/settings_file.h"
#include "model/settings.h"
#include "properties/card_rows.h"
#include "tests/unit/fresh_session.h"

#include <fstream>

namespace kehystin {

namespace {

/// Its working folder is the test's, and its windows can be maximised.
class RoomyHost : public scenario::ScriptedHost {
  public:
    explicit RoomyHost(std::string folder) : ScriptedHost(folder), folder_(std::move(folder)) {}
    std::string absolute_path(std::string const& path) const override {
        return path.starts_with('/') ? path : folder_ + path;
    }
    platform::Bounds normal_bounds(platform::Form const&) const override {
        return {150, 300, 9000, 6000};
    }
    void keep_in_sight(std::vector<Control const*> controls) override {
        wishes.push_back(std::move(controls));
    }
    std::vector<std::vector<Control const*>> wishes;

  private:
    std::string folder_;
};

class HostRequests : public testing::Test {
  protected:
    void SetUp() override {
        before_ = std::filesystem::current_path();
        std::filesystem::current_path(folder.path());
        std::filesystem::copy(KEHYSTIN_SCENARIOS "/files/lapi.krt", "a.krt");
    }
    void TearDown() override { std::filesystem::current_path(before_); }

    Folder folder;
    RoomyHost host{folder.path()};
    Program program{host};

  private:
    std::filesystem::path before_;
};

} // namespace

TEST_F(HostRequests, AStartFileIsKnownByItsWholePath) {
    host.arguments = "a.krt";
    program.Main();
    EXPECT_EQ(session.cardFile, folder / "a.krt");
    EXPECT_EQ(session.cardFolder, folder.path());
    EXPECT_EQ(settings.lastFile[1].trimmed(), session.cardFile);
    EXPECT_FALSE(fEditor->lastFile(1).UseMnemonic); // "R&D" is a name
}

TEST_F(HostRequests, AMissingStartFileIsNamedAsItWasGiven) {
    host.arguments = "b.krt";
    host.answers = {Answer::ok};
    program.Main();
    EXPECT_NE(host.boxes.back().text.find("\r\n b.krt     \r\n"), std::string::npos);
    EXPECT_EQ(session.cardFile, "");
}

TEST_F(HostRequests, FileDialogsStartBesideTheOpenCard) {
    program.Main();
    host.answers = {scenario::FileAnswer{}};
    cmd_open_Click();
    EXPECT_EQ(host.file_dialog->InitDir, "");
    session.startFile = "a.krt";
    cmd_open_Click();
    for (auto* const command : {cmd_open_Click, cmdTallennaNimella_Click, cmd_picture_Click}) {
        host.file_dialog.reset();
        host.answers = {scenario::FileAnswer{}};
        command();
        EXPECT_EQ(host.file_dialog->InitDir, folder.path());
    }
    // A refused file leaves the card that was open, and its folder.
    std::filesystem::create_directory(folder.path() / std::filesystem::path("muu"));
    std::ofstream(folder / "muu/ei.krt") << "ei kortti";
    session.startFile = folder / "muu/ei.krt";
    host.answers = {Answer::ok, scenario::FileAnswer{}};
    cmd_open_Click();
    cmd_open_Click();
    EXPECT_EQ(host.file_dialog->InitDir, folder.path());
    cmd_close_Click();
    host.answers = {scenario::FileAnswer{}};
    cmd_open_Click();
    EXPECT_EQ(host.file_dialog->InitDir, "");
}

TEST_F(HostRequests, BoxesKeepOffTheFieldsThatTheySpeakOf) {
    host.arguments = "a.krt";
    program.Main();
    host.answers = {scenario::FileAnswer{folder / "b.krt"}, Answer::cancel};
    cmdTallennaNimella_Click();
    std::vector<std::vector<Control const*>> const wanted = {{&fCard->ots(5)}, {}};
    EXPECT_EQ(host.wishes, wanted);
}

TEST_F(HostRequests, TheExitStoresThePlaceThatAMaximisedWindowGoesBackTo) {
    program.Main();
    EXPECT_THROW(fEditor->cmd_lopeta.Click(-1), platform::SessionEnd);
    EXPECT_EQ(settings.windowLeft, 150);
    EXPECT_EQ(settings.windowTop, 300);
    EXPECT_EQ(settings.windowWidth, 9000);
    EXPECT_EQ(settings.windowHeight, 6000);
}

} // namespace kehystin
