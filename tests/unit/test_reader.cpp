#include "cardfile/reader.h"

#include "cardfile/writer.h"
#include "platform/clock.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

class Reader : public FreshSession, protected CardText {
  protected:
    void SetUp() override {
        start();
        make_two_fields(open_card);
        session.cardFile = folder / "kortti.krt";
        ASSERT_TRUE(SaveCardFile());
        text = bytes_of(session.cardFile);
    }
    bool read() {
        put_bytes(folder / "kortti.krt", text);
        host.boxes.clear();
        return ReadCardFile(folder / "kortti.krt");
    }
    bool read(std::initializer_list<Answer> answers) {
        for (auto const answer : answers)
            host.answers.push_back(answer);
        return read();
    }
    bool report_has(std::string_view row) {
        return !host.boxes.empty() &&
               host.boxes.back().text.find("\r\n" + std::string(row) + "\r\n") != std::string::npos;
    }
};

TEST_F(Reader, AnUnknownFileLeavesTheRecordsAlone) {
    text = "hei";
    EXPECT_FALSE(read({Answer::ok}));
    EXPECT_EQ(host.boxes.back().title, " Tuntematon tiedostomuoto   ");
    EXPECT_EQ(card.fields, 2);
    EXPECT_FALSE(ReadCardFile(folder / "puuttuu.krt"));
    EXPECT_EQ(host.boxes.size(), 1U);
}

TEST_F(Reader, ANumberThatFitsNoTypeEndsTheReading) {
    for (auto const* const key : {"field(2).foreColor", "card.asiakasMin"}) {
        auto const before = text;
        value(key, "1e99");
        EXPECT_FALSE(read({Answer::ok}));
        EXPECT_NE(host.boxes.back().text.find("(6)  Ylivuoto"), std::string::npos);
        text = before;
    }
}

TEST_F(Reader, WhatIsRepairedIsAskedAboutOnlyWhereItIsTold) {
    value("field(2).fontName", "Outo Fontti");
    value("card.STPP", "31");
    value("card.editDate", "31.12.2999");
    ASSERT_TRUE(read());
    EXPECT_TRUE(host.boxes.empty());
    // What the sample label has, the screen and the clock stand in their place.
    EXPECT_EQ(field(2).fontName.trimmed(), "MS Sans Serif");
    EXPECT_EQ(card.STPP, 15);
    EXPECT_EQ(card.editDate, Today());
    value("field(2).fontName", "Tahoma");
    value("field(2).left", "401");
    ASSERT_TRUE(read({Answer::yes}));
    EXPECT_EQ(field(2).fontName.trimmed(), "Tahoma");
    EXPECT_TRUE(report_has("field(2).left:  401  ->  20     (1 - kortin leveys)"));
}

TEST_F(Reader, FailedFileOperationsAreTold) {
    for (int operation = 1; operation <= 3; ++operation) {
        host.fail_file_operation(operation, 75);
        EXPECT_FALSE(read({Answer::ok}));
        EXPECT_EQ(host.boxes.back().text.find(" Korttimallitiedoston "), 0U);
    }
    // The way around a missing key closes and opens the file again.
    replace_line("field(2).linkki", "");
    host.fail_file_operation(4, 75);
    EXPECT_FALSE(read({Answer::ok}));
    EXPECT_EQ(host.boxes.back().text.find(" Tiedoston avaaminen aiheutti virheen     "), 0U);
}

} // namespace kehystin
