#include "cardfile/writer.h"

#include "card/writing.h"
#include "tests/unit/fresh_session.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace kehystin {

class Writer : public FreshSession {
  protected:
    void SetUp() override {
        start();
        card.name = "Koe";
        session.cardFile = folder / "koe.krt";
    }
};

TEST_F(Writer, TheFileIsTheCardAsTheRulesHaveIt) {
    add_field(Style::TXT, 1, 2, 3, 4, " Nimi ").value = "1,5";
    auto before = open_card;
    ASSERT_TRUE(SaveCardFile());
    EXPECT_EQ(bytes_of(session.cardFile), write_card(before));
    // The records have what the writer leaves in them.
    EXPECT_EQ(field(1).value.trimmed(), "");
    EXPECT_EQ(field(1).caption.trimmed(), "Nimi");
}

TEST_F(Writer, AFailedOperationKeepsTheRecords) {
    add_field(Style::TXT, 1, 2, 3, 4, "Nimi").value = "1,5";
    for (int operation = 1; operation <= 3; ++operation) {
        host.fail_file_operation(operation, 75);
        host.answers.push_back(Answer::ok);
        EXPECT_FALSE(SaveCardFile());
        EXPECT_EQ(field(1).value.trimmed(), "1,5");
    }
    EXPECT_TRUE(SaveCardFile());
    EXPECT_TRUE(bytes_of(session.cardFile).ends_with("field(1).linkki=0\r\n"));
}

TEST_F(Writer, AFullDiskAMissingFolderAndAFolderOfThatNameAreTold) {
    auto const box_of_saving = [&](std::string const& path) {
        session.cardFile = path;
        host.answers.push_back(Answer::ok);
        EXPECT_FALSE(SaveCardFile());
        return host.boxes.back().text;
    };
    host.fail_file_operation(2, 61);
    EXPECT_NE(box_of_saving(folder / "koe.krt").find("(61)"), std::string::npos);
    EXPECT_NE(box_of_saving(folder / "puuttuu/koe.krt").find("(76)"), std::string::npos);
    // What is no file is not opened at all: a pipe would wait for a reader.
    std::vector<std::string> specials{folder / "windows"};
#ifndef _WIN32 // whose devices have names of their own
    ASSERT_EQ(mkfifo((folder / "putki").c_str(), 0600), 0);
    specials.insert(specials.end(), {folder / "putki", "/dev/full"});
#endif
    for (auto const& path : specials)
        EXPECT_NE(box_of_saving(path).find(" " + path + "     "), std::string::npos);
}

} // namespace kehystin
