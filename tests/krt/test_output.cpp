// What the tool makes of names, and where its output goes.
#include "tests/krt/tool.h"

#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

TEST_F(Krt, NamesOfFilesAreTakenAsTheyAre) {
    auto const broken = bytes_of(folder / take("rikki.krt"));
    for (auto const* const name : {"kortti", "[kortti]", "[a,b]", "check", "++", "a b", "--json"})
        write(name, broken);
    EXPECT_EQ(run("repair --in-place '[kortti]' '[a,b]' check ++ -- 'a b' --json"), 1) << err;
    for (auto const* const name : {"[kortti]", "[a,b]", "check", "++", "a b", "--json"})
        EXPECT_TRUE(bytes_of(folder / (name + std::string("~"))) == broken) << name;
    EXPECT_TRUE(bytes_of(folder / "kortti") == broken);
    EXPECT_EQ(run("json ./--json", " && cp out k.json"), 0) << err;
    EXPECT_EQ(run("make k.json -o '[x]'"), 0) << err;
    EXPECT_TRUE(bytes_of(folder / "[x]") == bytes_of(folder / "--json"));
}

TEST_F(Krt, OutputGoesWhereItsNameLeads) {
    auto const card = bytes_of(folder / take("asiakkaat.krt"));
    std::string const repair = "'" KRT_PROGRAM "' repair --always asiakkaat.krt -o ";
    // Into a pipe, and into a file that somebody has opened to add to it.
    fs::create_symlink("/proc/self/fd/1", folder / "ulos");
    EXPECT_EQ(run("--version", " ; " + repair + "ulos 2>err | cat >out"), 0);
    EXPECT_TRUE(err.empty() && out == card) << err;
    write("alku", "x");
    EXPECT_EQ(run("repair --always asiakkaat.krt -o ulos", " >>alku"), 0) << err;
    EXPECT_TRUE(bytes_of(folder / "alku") == "x" + card);
    ASSERT_EQ(mkfifo((folder / "putki").c_str(), 0600), 0);
    EXPECT_EQ(run("--version", " ; { " + repair + "putki & } ; cat putki >out"), 0);
    EXPECT_TRUE(out == card);
    EXPECT_TRUE(fs::is_fifo(folder / "putki"));
    // Links, however many, stay and lead to the new file; those in a circle lead nowhere.
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("k/c", folder / "b");
    fs::create_directory(folder / "k");
    EXPECT_EQ(run("repair --always asiakkaat.krt -o a"), 0) << err;
    EXPECT_TRUE(bytes_of(folder / "k/c") == card);
    EXPECT_TRUE(fs::is_symlink(folder / "a") && fs::is_symlink(folder / "b"));
    fs::create_symlink("y", folder / "x");
    fs::create_symlink("x", folder / "y");
    EXPECT_EQ(run("repair --always asiakkaat.krt -o x"), 2);
    EXPECT_EQ(err, "krt: x: ei voi kirjoittaa: linkit kiertävät kehää\n");
    EXPECT_TRUE(fs::is_symlink(folder / "x"));
    // Standard output that is closed is nothing that a file could replace.
    EXPECT_EQ(run("repair --always asiakkaat.krt -o ulos", " >&-"), 2);
    EXPECT_TRUE(fs::is_symlink(folder / "ulos"));
}

TEST_F(Krt, WhatIsReadIsNotWrittenOver) {
    auto const card = bytes_of(folder / take("vanha.krt"));
    fs::create_symlink("vanha.krt", folder / "v.png");
    for (auto const* const words : {"form vanha.krt -o ./vanha.krt", "draw vanha.krt -o v.png",
                                    "make vanha.krt -o v.png", "form - -o vanha.krt"}) {
        EXPECT_EQ(run(words, " <vanha.krt"), 2) << words;
        EXPECT_NE(err.find(": on tiedosto, josta luetaan"), std::string::npos) << err;
    }
    EXPECT_TRUE(bytes_of(folder / "vanha.krt") == card);
}

TEST_F(Krt, ARepairedFileKeepsItsRights) {
    auto const broken = bytes_of(folder / take("rikki.krt"));
    auto const mode_of = [&](char const* name) {
        struct stat known {};
        EXPECT_EQ(stat((folder / name).c_str(), &known), 0) << name;
        return std::tuple(known.st_mode & 0777U, known.st_uid, known.st_gid);
    };
    fs::permissions(folder / "rikki.krt", fs::perms(0640));
    if (geteuid() == 0) { // who alone may give files away
        ASSERT_EQ(chown((folder / "rikki.krt").c_str(), 1234, 5678), 0);
    }
    auto const before = mode_of("rikki.krt");
    EXPECT_EQ(run("repair --in-place rikki.krt"), 1);
    EXPECT_EQ(mode_of("rikki.krt"), before);
    EXPECT_EQ(mode_of("rikki.krt~"), before);
    // What is kept cannot take the place of a folder.
    fs::create_directory(folder / "k.krt~");
    write("k.krt", broken);
    EXPECT_EQ(run("repair --in-place k.krt"), 2);
    EXPECT_NE(err.find("k.krt~: ei voi kirjoittaa: on hakemisto\n"), std::string::npos) << err;
    // A file that is protected stays, whatever its folder allows.
    fs::copy_file(KRT_PROGRAM, folder / "krt");
    fs::permissions(folder, fs::perms(0777));
    fs::permissions(folder / "k.krt", fs::perms(0444));
    auto const* const as_a_user = geteuid() == 0 ? "setpriv --reuid=1234 --clear-groups " : "";
    EXPECT_EQ(run("--version", std::string(" ; rm -r k.krt~ ; ") + as_a_user +
                                   "./krt repair --in-place k.krt 2>err"),
              2);
    EXPECT_NE(err.find("krt: k.krt: ei voi kirjoittaa: ei ole oikeutta\n"), std::string::npos)
        << err;
    EXPECT_TRUE(bytes_of(folder / "k.krt") == broken);
}

TEST_F(Krt, AClosedPipeEndsItQuietly) {
    take("kolmesataa.krt");
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(dup2(ends[1], 9), 9);
    close(ends[0]);
    for (auto const* const command :
         {"json kolmesataa.krt puuttuu.krt", "check puuttuu.krt kolmesataa.krt",
          "repair --always kolmesataa.krt -o -"}) {
        auto const closed =
            std::string(" ; trap '' PIPE ; '" KRT_PROGRAM "' ") + command + " 2>err >&9";
        EXPECT_EQ(run("--version", closed), 2) << command;
        // Ignored or not, nothing is said of the pipe, and no file behind it is looked at.
        EXPECT_EQ(err, command[0] == 'c'
                           ? "krt: puuttuu.krt: ei voi lukea: tiedostoa tai hakemistoa ei ole\n"
                           : "")
            << command;
    }
    close(9);
    close(ends[1]);
}

TEST_F(Krt, NothingThatATerminalObeysIsPrinted) {
    std::string const controls = "\x1b[31m\xc2\x9d\x7f\n";
    write_changed("a.krt", "vanha.krt", "caption=Nimi", "caption=\x1b[31m\x9d\x90\x7f");
    take("vanha.krt");
    EXPECT_EQ(run("diff vanha.krt a.krt"), 1);
    auto told = out;
    EXPECT_EQ(run("json vanha.krt"), 0);
    auto json = Json::parse(out);
    json["card"][controls] = 1;
    write("k.json", json.dump());
    EXPECT_EQ(run("make k.json"), 2);
    told += err;
    write(controls + ".krt", bytes_of(fs::path(KRT_EXAMPLES) / "rikki.krt"));
    write("\xff.krt", bytes_of(fs::path(KRT_EXAMPLES) / "rikki.krt"));
    write("\23331m.krt", bytes_of(fs::path(KRT_EXAMPLES) / "rikki.krt"));
    for (auto const* const command : {"check ", "links ", "form -o x.html ", "repair -o x.krt "})
        for (auto const* const files : {"*m?*.krt", "*31m.krt"}) {
            EXPECT_EQ(run(std::string(command) + files, " ; mv out x"), 0) << command;
            told += bytes_of(folder / "x") + err;
        }
    for (auto const* const sign : {"\x1b", "\xc2\x9d", "\xc2\x90", "\x7f"})
        EXPECT_EQ(told.find(sign), std::string::npos) << told;
    EXPECT_NE(told.find("\n[31m .krt: "), std::string::npos) << told; // in one line
    // A byte that is no text of its own may be a control to a terminal.
    EXPECT_NO_THROW(Json(told).dump()) << told;
    // A name that is no text is one for the system, and still JSON for programs.
    EXPECT_EQ(run("check --json \xff.krt"), 1);
    EXPECT_EQ(Json::parse(out)["file"], "\xef\xbf\xbd.krt");
}

TEST_F(Krt, ACommandLineThatCouldMeanNothingIsRefused) {
    take("rikki.krt");
    for (auto const* const words : {"make -o '' k.json", "repair rikki.krt -o ''",
                                    "form rikki.krt -o ''", "repair --in-place -", "check ''"}) {
        EXPECT_EQ(run(words, " <rikki.krt"), 2) << words;
        EXPECT_EQ(out, "") << words;
        EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
    }
    EXPECT_EQ(run("check -", " <rikki.krt"), 1);
    EXPECT_TRUE(out.starts_with("vakiosyöte: ")) << out; // as it is called elsewhere
    EXPECT_EQ(run("rescue --help"), 0);
    EXPECT_NE(out.find("[NIMI]\n"), std::string::npos) << out;
}
