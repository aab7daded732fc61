#include "app/settings_file.h"

#include "mainwindow/last_files.h"
#include "tests/unit/fresh_session.h"

#include <cmath>
#include <limits>

namespace kehystin {

class SettingsFile : public FreshSession {
  protected:
    void SetUp() override { start(); }
    std::string path() { return folder / "windows/editor53.ini"; }
    Settings repaired(Settings record) {
        repair_settings(record, 1280 * 15, 1024 * 15);
        return record;
    }
};

TEST_F(SettingsFile, TheRecordIsLittleEndianInItsPlaces) {
    settings.gridX = 0x1234;
    settings.icoList[40] = -30;
    settings.lastFile[1] = "ä";
    settings.windowLeft = 1;
    settings.showVelho = 0;
    WriteSettings();
    auto const bytes = bytes_of(path());
    ASSERT_EQ(bytes.size(), 730U);
    EXPECT_EQ(bytes.substr(0, 6), std::string("\xFF\xFF\0\0\x34\x12", 6));
    EXPECT_EQ(bytes.substr(96, 2), "\xE2\xFF");
    EXPECT_EQ(bytes.substr(210, 2), "\xE4 ");
    EXPECT_EQ(bytes.substr(712, 4), std::string("\0\0\x80\x3F", 4));
    settings = {};
    ASSERT_TRUE(ReadSettings());
    EXPECT_EQ(settings.lastFile[1].trimmed(), "ä");
    EXPECT_EQ(settings.gridX, 10); // 0x1234 is out of range
    EXPECT_EQ(settings.showVelho, 0);
}

TEST_F(SettingsFile, AShortFileLeavesTheRestAtItsFirstValues) {
    put_bytes(path(), std::string("\0\0\0\0\x07\0\x08", 7));
    ASSERT_TRUE(ReadSettings());
    EXPECT_EQ(settings.gridX, 7);
    EXPECT_EQ(settings.gridY, 5);
    EXPECT_EQ(settings.keepLastFiles, -1);
    EXPECT_EQ(settings.windowWidth, 1280 * 15 * 4 / 5);
}

TEST_F(SettingsFile, AFileThatEndsInsideATextGivesThePartThatIsThere) {
    settings.lastFile[1] = "/kortit/jäsenet.krt";
    settings.lastFile[2] = "/kortit/laskut.krt";
    WriteSettings();
    put_bytes(path(), bytes_of(path()).substr(0, 310 + 7));
    settings.lastFile[3] = "vanha";
    ASSERT_TRUE(ReadSettings());
    EXPECT_EQ(settings.lastFile[1].trimmed(), "/kortit/jäsenet.krt");
    EXPECT_EQ(settings.lastFile[2].trimmed(), "/kortit");
    EXPECT_EQ(settings.lastFile[3].trimmed(), "vanha");
}

TEST_F(SettingsFile, WhatWasReadStaysWhenTheClosingFails) {
    settings.gridX = 33;
    settings.guideX = 1;
    settings.guideY = 5; // the least that can
    WriteSettings();
    settings = {};
    host.fail_file_operation(3, 57);
    host.answers.push_back(Answer::ok);
    EXPECT_FALSE(ReadSettings());
    EXPECT_NE(host.boxes.back().text.find("(57)"), std::string::npos);
    EXPECT_EQ(settings.gridX, 33);
    EXPECT_EQ(settings.guideX, 15); // still nothing that cannot stand
    EXPECT_EQ(settings.guideY, 5);
    // What could not be read is not written over.
    auto const unread = bytes_of(path());
    settings.guideY = 6;
    WriteSettings();
    EXPECT_EQ(bytes_of(path() + ".old"), unread);
    EXPECT_NE(bytes_of(path()), unread);
    WriteSettings();
    EXPECT_EQ(bytes_of(path() + ".old"), unread);
    // Nor is what was kept then.
    auto const later = bytes_of(path());
    host.fail_file_operation(1, 57);
    host.answers.push_back(Answer::ok);
    EXPECT_FALSE(ReadSettings());
    WriteSettings();
    EXPECT_EQ(bytes_of(path() + ".old"), unread);
    EXPECT_EQ(bytes_of(path() + ".old2"), later);
}

TEST_F(SettingsFile, WhatTheSystemCouldNotFindAtTheStartIsNotWrittenOver) {
    std::filesystem::create_symlink(path(), path()); // as a folder of the network that is away
    EXPECT_FALSE(ReadSettings());
    std::filesystem::remove(path());
    put_bytes(path(), "asetukset");
    WriteSettings();
    EXPECT_EQ(bytes_of(path() + ".old"), "asetukset");
}

TEST_F(SettingsFile, NumbersOutsideTheirRangeAreRepaired) {
    Settings record = settings;
    for (auto* const flag :
         {&record.spareFlag1, &record.spareFlag2, &record.spareFlag3, &record.spareFlag4})
        *flag = 1;
    record.gridX = 1;
    record.gridY = 200;
    record.guideX = 4;
    record.guideY = 201;
    record.showIconBar = 77;
    record = repaired(record);
    for (auto const flag :
         {record.spareFlag1, record.spareFlag2, record.spareFlag3, record.spareFlag4})
        EXPECT_EQ(flag, 0);
    EXPECT_EQ(record.gridX, 10);
    EXPECT_EQ(record.gridY, 200);
    EXPECT_EQ(record.guideX, 15);
    EXPECT_EQ(record.guideY, 15);
    EXPECT_EQ(record.showIconBar, 77);
}

TEST_F(SettingsFile, AWindowThatDoesNotFitIsPutBack) {
    for (float const bad : {4199.0F, 1280 * 15 + 301.0F, NAN, INFINITY, -INFINITY}) {
        Settings record = settings;
        record.windowWidth = bad;
        EXPECT_EQ(repaired(record).windowWidth, 1280 * 15 * 4 / 5) << bad;
    }
    for (float const bad : {-1.0F, NAN, -INFINITY}) {
        Settings record = settings;
        record.windowLeft = bad;
        EXPECT_EQ(repaired(record).windowLeft, 0) << bad;
    }
    Settings record = settings;
    record.windowLeft = 1280 * 15 - 299;
    record.windowWidth = 5000;
    EXPECT_EQ(repaired(record).windowLeft, 1280 * 15 - 5000);
}

TEST_F(SettingsFile, EachFailedOperationIsTold) {
    WriteSettings();
    for (int operation = 1; operation <= 3; ++operation) {
        host.fail_file_operation(operation, 75);
        host.answers.push_back(Answer::ok);
        EXPECT_FALSE(ReadSettings());
        EXPECT_EQ(host.boxes.back().title, " Tiedoksi");
    }
    for (int operation = 1; operation <= 3; ++operation) {
        host.fail_file_operation(operation, 61);
        EXPECT_THROW(WriteSettings(), RuntimeError);
    }
}

TEST_F(SettingsFile, LastFilesKeepTheirOrderAndCloseUp) {
    for (auto const* const name : {"a", "b", "c", "d", "e", "c"})
        UpdateLastFiles(name);
    auto const listed = [](std::size_t i) { return settings.lastFile[i].trimmed(); };
    EXPECT_EQ(listed(1) + listed(2) + listed(3) + listed(4), "cedb");
    settings.lastFile[1] = "";
    settings.lastFile[2] = "";
    settings.lastFile[3] = "";
    UpdateLastFiles("");
    EXPECT_EQ(listed(1), "b");
    EXPECT_EQ(fEditor->lastFile(1).Caption, "b");
    EXPECT_TRUE(fEditor->wF.Visible);
    EXPECT_FALSE(fEditor->lastFile(2).Visible);
    settings.keepLastFiles = 0;
    UpdateLastFiles("x");
    EXPECT_FALSE(fEditor->lastFile(1).Visible);
    EXPECT_FALSE(fEditor->wF.Visible);
    EXPECT_EQ(listed(1), "x");
}

} // namespace kehystin
