// Files that the program is started with one by one, or that are dropped on its main window.
#include "platform/input.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

namespace {

/// Its command line names files one by one.
class GivenHost : public scenario::ScriptedHost {
  public:
    using ScriptedHost::ScriptedHost;
    std::vector<std::string> start_files() const override { return files; }
    std::vector<std::string> files;
};

class GivenFiles : public testing::Test {
  protected:
    std::string copy(std::string const& name) {
        std::filesystem::copy(KEHYSTIN_SCENARIOS "/files/lapi.krt", folder / name);
        return folder / name;
    }
    void drop(std::vector<std::string> const& files) { input::drop_files(*fEditor, files); }

    Folder folder;
    GivenHost host{folder.path()};
    std::optional<Program> program{host};
};

} // namespace

TEST_F(GivenFiles, AStartFileIsTakenAsItStands) {
    program.reset();
    std::vector<std::string> names{"oma kortti", "100 % %f.krt"};
#ifndef _WIN32 // which takes no such names
    names.insert(names.end(), {"\"lainattu\"", " ", "a\nb.krt"});
#endif
    for (auto const& name : names) {
        host.files = {copy(name)};
        program.emplace(host);
        program->Main();
        EXPECT_EQ(session.cardFile, folder / name);
        EXPECT_TRUE(session.cardFormLoaded);
        EXPECT_FALSE(session.isSizing);
        EXPECT_TRUE(host.boxes.empty()) << host.boxes.back().text;
        program.reset();
    }
}

TEST_F(GivenFiles, OfSeveralTheFirstIsOpenedAndTheOthersAreTold) {
    host.files = {copy("a.krt"), folder / "b\r\nc.krt", folder / "ei.krt"};
    host.answers = {Answer::ok};
    program->Main();
    EXPECT_EQ(session.cardFile, folder / "a.krt");
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_NE(host.boxes[0].text.find("\r\n b c.krt     \r\n ei.krt     "), std::string::npos);
    EXPECT_EQ(host.boxes[0].text.find("a.krt"), std::string::npos);

    std::vector<std::string> many(10000, folder / std::string(200, 'x'));
    many.insert(many.begin(), folder / "a.krt");
    host.answers = {Answer::ok};
    drop(many);
    EXPECT_NE(host.boxes.back().text.find("\r\n ja 9995 muuta     "), std::string::npos);
    EXPECT_LT(host.boxes.back().text.size(), 800U);
}

TEST_F(GivenFiles, AFolderIsNoCard) {
    program->Main();
    auto const one = copy("a.krt");
    host.answers = {Answer::ok};
    drop({folder / "windows/"});
    EXPECT_FALSE(session.cardFormLoaded);
    EXPECT_NE(host.boxes.back().text.find("Kansiota"), std::string::npos);
    EXPECT_NE(host.boxes.back().text.find("\r\n windows     "), std::string::npos);
    host.answers = {Answer::ok};
    drop({folder / "windows", one});
    EXPECT_EQ(session.cardFile, one);
    EXPECT_EQ(host.boxes.size(), 2U);
}

TEST_F(GivenFiles, ADropAsksBeforeItLetsTheOpenCardGo) {
    program->Main();
    auto const one = copy("a.krt");
    auto const other = copy("b.krt");
    drop({one});
    drop({}); // nothing to open is no wish to choose
    session.cardModified = true;
    host.answers = {Answer::no};
    drop({other});
    EXPECT_EQ(session.cardFile, other);
    EXPECT_EQ(session.startFile, "");
    EXPECT_EQ(host.boxes.size(), 1U);
}

} // namespace kehystin
