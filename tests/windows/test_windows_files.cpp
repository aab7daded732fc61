// Files as only Windows has them: its names, its locks, its devices.
#include "boxes/failure_report.h"
#include "mainwindow/document_state.h"
#include "model/settings.h"
#include "platform/files.h"
#include "rescue/store.h"
#include "tests/scenario/pictures.h"
#include "tests/unit/fresh_session.h"

#include <memory>

#include <windows.h>

namespace kehystin {

namespace {

struct CloseHandleOf {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};

/// Another program that lets nobody else at the file.
std::unique_ptr<HANDLE, CloseHandleOf> locked_by_another(std::string const& path) {
    auto const handle = ::CreateFileW(disk::path_of(path).c_str(), GENERIC_READ, 0, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_NE(handle, INVALID_HANDLE_VALUE);
    return std::unique_ptr<HANDLE, CloseHandleOf>(handle);
}

std::string with_backslashes(std::string path) {
    return Replace(path, "/", "\\");
}

} // namespace

class WindowsFiles : public FreshSession {
  protected:
    void SetUp() override { start(); }

    std::string copy(std::string const& name, std::string const& from = "kaksi.krt") {
        auto const path = folder / name;
        std::filesystem::create_directories(disk::path_of(path).parent_path());
        put_bytes(path, bytes_of(KEHYSTIN_SCENARIOS "/files/" + from));
        return path;
    }
    /// Saves the changed card under a name; the text of the box that came, empty without one.
    std::string box_of_saving_as(std::string const& path) {
        auto const before = open_card;
        auto const boxes = host.boxes.size();
        host.answers = {scenario::FileAnswer{path}, Answer::ok};
        cmdTallennaNimella_Click();
        if (host.boxes.size() == boxes) {
            host.answers.clear();
            return {};
        }
        EXPECT_EQ(host.boxes.size(), boxes + 1);
        EXPECT_TRUE(is_same_card(open_card, before)) << path;
        EXPECT_TRUE(static_cast<bool>(session.cardModified)) << path;
        return host.boxes.back().text;
    }
    void open_changed(std::string const& path) {
        if (session.cardModified)
            host.answers = {Answer::no};
        open(path);
        ASSERT_TRUE(session.cardFormLoaded) << path;
        field(2).left = 77;
        MarkCardChanged();
    }
    static bool is_refused(std::string const& box, std::string const& path) {
        return contains(box, " Ohjelma ei pysty kirjoittamaan tietoja tiedostoon     ") &&
               contains(box, " " + path + "     ");
    }
};

TEST_F(WindowsFiles, EitherSeparatorLeadsToACardAndItsPicture) {
    auto const picture = *scenario::picture_bytes("kuva.bmp", 40, 30);
    for (auto const& path : {with_backslashes(copy("a/kortti.krt")), copy("b/kortti.krt"),
                             "\\\\?\\" + with_backslashes(copy("c/kortti.krt"))}) {
        auto const own_folder = path.substr(0, path.find_last_of("\\/") + 1);
        auto bytes = bytes_of(path);
        bytes.replace(bytes.find("card.picture="), 13, "card.picture=+kuva.bmp");
        put_bytes(path, bytes);
        put_bytes(own_folder + "kuva.bmp", picture);
        open(path);
        EXPECT_EQ(session.cardFile, path);
        EXPECT_EQ(session.cardFolder, own_folder);
        EXPECT_EQ(settings.lastFile[1].trimmed(), path);
        EXPECT_TRUE(names_a_file(card.picture.trimmed())) << card.picture.trimmed();
        host.boxes.clear();
        lastFile_Click(1);
        EXPECT_EQ(session.cardFile, path);
    }
    EXPECT_EQ(disk::one_name_of(folder / "A\\..\\a/KORTTI.krt"),
              disk::one_name_of(folder / "a/kortti.krt"));
    EXPECT_EQ(disk::one_name_of(folder / "Ei\\ole.krt"), disk::one_name_of(folder / "ei/OLE.krt"));
}

TEST_F(WindowsFiles, NamesMayHaveLettersOfAnyLanguage) {
    open_changed(copy("日本語/Ωmega Łódź.krt"));
    cmdTallenna_Click();
    EXPECT_TRUE(contains(bytes_of(folder / "日本語/Ωmega Łódź.krt"), "field(2).left=77"));
    EXPECT_EQ(disk::names_in(folder / "日本語"), std::vector<std::string>{"Ωmega Łódź.krt"});
    EXPECT_EQ(box_of_saving_as(folder / "日本語/\U0001F600.krt"), "");
    EXPECT_EQ(bytes_of(session.cardFile), bytes_of(folder / "日本語/\U0001F600.krt"));
    EXPECT_FALSE(names_a_file(folder / "\xff.krt")); // no text at all
}

TEST_F(WindowsFiles, APathMayBeAsLongAsTheSystemCanHaveIt) {
    auto deep = std::string("syvä");
    while (deep.size() < 700)
        deep += "/kansio jonka nimi on pitkä";
    auto const path = copy(deep + "/kortti.krt");
    open_changed(path);
    cmdTallenna_Click();
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_TRUE(contains(bytes_of(path), "field(2).left=77"));
    EXPECT_EQ(box_of_saving_as(with_backslashes(folder / (deep + "/toinen.krt"))), "");
    EXPECT_EQ(disk::names_in(folder / deep).size(), 2U);
    rescue::Store const store(folder / (deep + "/tila"));
    store.put("x", "1");
    store.rename("x", "y");
    EXPECT_EQ(store.bytes_of("y"), "1");
    EXPECT_EQ(disk::one_name_of(path), disk::one_name_of(with_backslashes(path)));
}

TEST_F(WindowsFiles, WhatNoFileCanHaveAsNameIsRefused) {
    open_changed(copy("kortti.krt"));
    for (auto const* const name : {"a<b>.krt", "a?.krt", "a|b.krt", "a:b.krt", "kansio:x/a.krt"}) {
        EXPECT_TRUE(contains(box_of_saving_as(folder / name), "(52)")) << name;
        open_changed(folder / "kortti.krt");
    }
    EXPECT_FALSE(disk::is_there(folder / "a")); // whose part "a:b.krt" would be
    for (auto const* const name : {"con.krt", "NUL", "aux", "lpt1.krt"}) {
        auto const path = folder / name;
        EXPECT_TRUE(disk::is_special(path)) << name;
        EXPECT_TRUE(is_refused(box_of_saving_as(path), path)) << name;
        EXPECT_FALSE(names_a_file(path)) << name;
        open_changed(folder / "kortti.krt");
    }
}

TEST_F(WindowsFiles, ANameThatEndsInASeparatorIsNoFiles) {
    auto const path = copy("kortti.krt");
    open_changed(path);
    for (auto const* const end : {"\\", "/"}) {
        EXPECT_FALSE(names_a_file(path + end));
        for (auto const& name : {path + end, folder / "uusi.krt" + end}) {
            EXPECT_TRUE(contains(box_of_saving_as(name), "(76)")) << name;
            open_changed(path);
        }
        EXPECT_EQ(disk::kind_of(folder / end), disk::Kind::folder);
    }
    EXPECT_FALSE(disk::is_there(folder / "uusi.krt"));
}

TEST_F(WindowsFiles, AFileThatAnotherProgramHoldsStaysAsItIs) {
    auto const path = copy("kortti.krt");
    auto const bytes = bytes_of(path);
    open_changed(path);
    {
        auto const held = locked_by_another(path);
        auto const before = open_card;
        host.answers = {Answer::yes, Answer::ok}; // it is not known what is in it
        cmdTallenna_Click();
        ASSERT_EQ(host.boxes.size(), 2U);
        EXPECT_TRUE(is_refused(host.boxes.back().text, path)) << host.boxes.back().text;
        EXPECT_TRUE(is_same_card(open_card, before));
        EXPECT_TRUE(static_cast<bool>(session.cardModified));
    }
    EXPECT_EQ(bytes_of(path), bytes);
    cmdTallenna_Click();
    EXPECT_NE(bytes_of(path), bytes);
    auto const other = copy("toinen.krt");
    auto const held = locked_by_another(other);
    host.answers = {Answer::ok};
    open(other);
    EXPECT_TRUE(contains(host.boxes.back().text, "(75)")) << host.boxes.back().text;
    EXPECT_EQ(field(2).left, 77);
}

TEST_F(WindowsFiles, AReadOnlyFileStaysAsItIs) {
    auto const path = copy("kortti.krt");
    auto const bytes = bytes_of(path);
    ::SetFileAttributesW(disk::path_of(path).c_str(), FILE_ATTRIBUTE_READONLY);
    if (disk::may_be_written(path))
        GTEST_SKIP() << "an administrator on this machine writes it all the same";
    open_changed(path);
    EXPECT_TRUE(is_refused(box_of_saving_as(path), path));
    EXPECT_EQ(bytes_of(path), bytes);
    ::SetFileAttributesW(disk::path_of(path).c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsFiles, AShareThatIsGoneIsNotFound) {
    open_changed(copy("kortti.krt"));
    for (auto const* const path :
         {"\\\\poissa.invalid\\jako\\kortti.krt", "//poissa.invalid/jako/a/kortti.krt",
          "Q:\\kortit\\kortti.krt"}) {
        EXPECT_FALSE(names_a_file(path));
        EXPECT_TRUE(contains(box_of_saving_as(path), "(76)")) << path;
        open_changed(folder / "kortti.krt");
    }
}

TEST_F(WindowsFiles, WhoReadsAFileHoldsNobodyUp) {
    rescue::Store const store(folder / "tila");
    store.put("x", "vanha");
    int const reader = disk::open(store.folder() + "x", disk::Open::to_read);
    store.rename("x", "y");
    store.put("x", "uusi");
    EXPECT_EQ(store.bytes_of("y"), "vanha");
    store.remove("y");
    disk::close(reader);
    EXPECT_EQ(store.names(), std::vector<std::string>{"x"});
}

TEST(WindowsFolders, TheProgramsOwnAreInTheUsersData) {
    auto const data = [](wchar_t const* value) {
        ::SetEnvironmentVariableW(L"APPDATA", value);
        return rescue::usual_folder();
    };
    EXPECT_EQ(data(L"C:\\käyttäjä Ω\\data"), "C:\\käyttäjä Ω\\data\\kehystin\\rescue\\");
    EXPECT_EQ(disk::settings_folder(), "C:\\käyttäjä Ω\\data\\kehystin\\");
    EXPECT_EQ(data(L"data"), "");
    EXPECT_EQ(data(nullptr), "");
}

} // namespace kehystin
