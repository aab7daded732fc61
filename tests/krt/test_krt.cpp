// The tool krt as its users meet it: a program with arguments, streams and an exit status.
#include "tests/krt/tool.h"

#include "base/text.h"

TEST_F(Krt, CheckTellsWhatTheEditorWouldAsk) {
    EXPECT_EQ(run("check " + take("asiakkaat.krt")), 0);
    EXPECT_EQ(out + err, "");
    write_changed("a.krt", "asiakkaat.krt", "field(3).left=126", "field(3).left=99999");
    write_changed("b.krt", "vanha.krt", "field(1).style=0", "field(1).style=1");
    EXPECT_EQ(run("check a.krt b.krt"), 1);
    EXPECT_NE(out.find("a.krt: field 3: field(3).left: virheellinen arvo ”99999”"),
              std::string::npos);
    EXPECT_NE(out.find("b.krt: field 2: "), std::string::npos);
    EXPECT_EQ(run("check --json a.krt"), 1);
    auto const told = Json::parse(out);
    EXPECT_EQ(told["file"], "a.krt");
    EXPECT_EQ(told["readable"], true);
    ASSERT_EQ(told["findings"].size(), 1U);
    auto finding = told["findings"][0];
    finding.erase("text");
    EXPECT_EQ(finding, Json::parse(R"({"what": "repaired", "key": "field(3).left",
                                       "found": "99999", "kept": "20"})"));
    EXPECT_FALSE(told["links"].empty());
    EXPECT_EQ(run("check --json b.krt"), 1);
    EXPECT_EQ(Json::parse(out)["checks"],
              Json::parse(R"([{"check": "no_title", "fields": [1, 2]}])"));
}

TEST_F(Krt, BadFilesHaveOneLineAndTheOthersGoOn) {
    write("teksti.krt", "ei kortti");
    fs::create_directory(folder / "kansio.krt");
    std::ofstream(folder / "suuri.krt").close();
    fs::resize_file(folder / "suuri.krt", 64UL * 1024 * 1024 + 1);
    auto const good = take("vanha.krt");
    EXPECT_EQ(run("links teksti.krt puuttuu.krt kansio.krt suuri.krt " + good), 2);
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 4);
    for (auto const* const name : {"teksti.krt: ei ole korttimalli", "puuttuu.krt: ei voi lukea",
                                   "kansio.krt: on hakemisto", "suuri.krt: on liian suuri"})
        EXPECT_NE(err.find(name), std::string::npos) << name;
    EXPECT_TRUE(out.starts_with("vanha.krt: 1 Nimi: 2\n"));
    EXPECT_EQ(run("links -", " <suuri.krt"), 2);
    EXPECT_NE(err.find("vakiosyöte: on liian suuri"), std::string::npos) << err;
    EXPECT_EQ(run("check --json teksti.krt"), 2);
    EXPECT_EQ(Json::parse(out)["readable"], false);
    for (auto const* const wrong : {"", "vieras", "check", "repair -o x --in-place a",
                                    "repair -o x vanha.krt vanha.krt", "make a b", "diff - -"}) {
        EXPECT_EQ(run(wrong), 2) << wrong;
        EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
    }
    for (auto const* const command : {"", "check ", "repair ", "links ", "json ", "make "})
        EXPECT_EQ(run(std::string(command) + "--help"), 0) << command;
}

TEST_F(Krt, RepairWritesOnlyWhatWasWrong) {
    auto const good = take("asiakkaat.krt");
    EXPECT_EQ(run("repair " + good), 0);
    EXPECT_EQ(out, "");
    EXPECT_EQ(run("repair --always " + good), 0);
    EXPECT_TRUE(out == bytes_of(folder / good));
    auto const broken = take("rikki.krt");
    auto const before = bytes_of(folder / broken);
    EXPECT_EQ(run("repair --in-place " + broken), 1);
    EXPECT_TRUE(bytes_of(folder / "rikki.krt~") == before);
    EXPECT_EQ(run("repair " + broken), 0);
    EXPECT_EQ(out, "");
    // A picture that is missing is told; the card keeps its path, and everything else.
    auto const pictured = take("sukukirja.krt");
    EXPECT_EQ(run("repair -o uusi.krt " + pictured), 1);
    EXPECT_NE(err.find("tausta.bmp"), std::string::npos);
    EXPECT_NE(bytes_of(folder / "uusi.krt").find("tausta.bmp"), std::string::npos);
    EXPECT_EQ(run("repair --in-place " + pictured), 1);
    EXPECT_FALSE(fs::exists(folder / "sukukirja.krt~")); // nothing has changed
    // What cannot be written leaves nothing behind.
    EXPECT_EQ(run("repair -o ei/ole/uusi.krt " + pictured), 2);
    EXPECT_EQ(run("repair --always - -o - ", " <asiakkaat.krt"), 0);
    EXPECT_TRUE(out == bytes_of(folder / "asiakkaat.krt"));
    // Named twice, its old state is still what is kept.
    write("alku.krt", before);
    EXPECT_EQ(run("repair --in-place --always alku.krt ./alku.krt"), 1);
    EXPECT_TRUE(bytes_of(folder / "alku.krt~") == before);
    // Behind a link the file itself is repaired; output that nobody can take is a failure.
    write("alku.krt", before);
    fs::create_symlink("alku.krt", folder / "linkki.krt");
    EXPECT_EQ(run("repair --in-place linkki.krt"), 1);
    EXPECT_TRUE(fs::is_symlink(folder / "linkki.krt"));
    EXPECT_TRUE(bytes_of(folder / "alku.krt") == bytes_of(folder / broken));
    EXPECT_EQ(run("repair --always asiakkaat.krt -o /dev/full"), 2);
    take("vanha.krt");
    EXPECT_EQ(run("links vanha.krt", " && '" KRT_PROGRAM "' links vanha.krt 2>err >/dev/full"), 2);
    EXPECT_EQ(err, "krt: vakiotuloste: ei voi kirjoittaa: levy on täynnä\n");
    EXPECT_EQ(run("--version", " && '" KRT_PROGRAM "' --version >/dev/full"), 2);
}

TEST_F(Krt, ACardReadOtherwiseThanItStandsIsTold) {
    auto const broken = take("rikki.krt");
    for (auto const* const command : {"json ", "links "}) {
        EXPECT_EQ(run(command + broken), 1);
        EXPECT_TRUE(err.starts_with("krt: rikki.krt: luettu korjattuna, ")) << err;
        EXPECT_NE(out, "");
    }
    EXPECT_EQ(run("diff rikki.krt rikki.krt"), 1);
    EXPECT_EQ(out, "");
    EXPECT_NE(err, "");
    EXPECT_EQ(run("diff puuttuu.krt teksti.krt"), 2);
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 2);
    // What a terminal would obey stays in the file.
    write_changed("v.krt", "vanha.krt", "caption=Nimi", "caption=\x1b[31m");
    EXPECT_EQ(run("links v.krt"), 0);
    EXPECT_EQ(out.find('\x1b'), std::string::npos);
    // A number beyond all types has no findings, but its own words.
    write_changed("v.krt", "vanha.krt", "foreColor=0", "foreColor=99999999999");
    EXPECT_EQ(run("check --json v.krt"), 2);
    EXPECT_NE(Json::parse(out)["findings"][0]["text"].get<std::string>().find("luku ei mahdu"),
              std::string::npos);
}

TEST_F(Krt, ALinkingThatEndsBeforeItsTimeIsTold) {
    write_changed("a.krt", "asiakkaat.krt", "field(3).linkitys=0", "field(3).linkitys=-1");
    write_changed("a.krt", folder / "a.krt", "field(3).linkki=2", "field(3).linkki=0");
    for (auto const* const words : {"check a.krt", "check --json a.krt", "links a.krt",
                                    "diff a.krt a.krt", "form a.krt -o a.html"}) {
        EXPECT_EQ(run(words), 1) << words;
        EXPECT_NE((out + err).find("a.krt: linkitys keskeytyi: "), std::string::npos) << words;
    }
}

TEST_F(Krt, EveryFindingAndCheckHasItsName) {
    // Titles without data and a data field without a title, a check field without a label, and 51
    // linked titles of one caption; beside it what reading finds.
    std::string card = "Norvak Cardfile\r\ncard.name=" + std::string(51, 'n') +
                       ",card.color=0,card.transp=0,card.width=59,card.height=2000,card.picture=x,"
                       "card.ID=,card.fields=107\r\n";
    int number = 0;
    auto const add = [&](int style, int left, int top, int width, std::string const& caption) {
        auto const key = "field(" + std::to_string(++number) + ").";
        for (auto const& [name, value] : std::initializer_list<std::pair<char const*, std::string>>{
                 {"style", std::to_string(style)},
                 {"caption", caption},
                 {"group", ""},
                 {"list", ""},
                 {"size", "1"},
                 {"value", ""},
                 {"left", std::to_string(left)},
                 {"top", std::to_string(top)},
                 {"width", std::to_string(width)},
                 {"height", "16"},
                 {"fontName", "Arial"},
                 {"fontSize", "8"},
                 {"fontBold", "0"},
                 {"fontItalic", "0"},
                 {"foreColor", "0"},
                 {"backColor", "0"},
                 {"tabIndex", "1"}})
            card += key + name + "=" + value + ",";
        card += "\r\n";
    };
    for (int i = 0; i < 51; ++i) {
        add(0, 10, 100 + 30 * i, 20, "Sama");
        add(1, 35, 100 + 30 * i, 20, "");
    }
    add(1, 10, 10, 20, "");       // above all titles
    add(2, 35, 700, 20, "");      // linked, without a label
    add(0, 250, 1900, 20, "Yli"); // a title with nothing near
    add(1, 5, 5, 20, "");
    write("k.krt", card);
    EXPECT_EQ(run("check --json k.krt"), 1);
    auto const told = Json::parse(out);
    std::set<std::string> whats, checks;
    for (auto const& finding : told["findings"])
        whats.insert(finding["what"]);
    std::vector<std::string> in_order;
    for (auto const& check : told["checks"])
        in_order.push_back(check["check"]);
    EXPECT_EQ(whats, (std::set<std::string>{"cut", "missing_key", "missing_picture", "old_key",
                                            "repaired"}));
    EXPECT_EQ(in_order, (std::vector<std::string>{"no_title", "unlinked_title", "columns",
                                                  "no_label", "same_title"}));
    EXPECT_EQ(run("links --json k.krt"), 1);
    EXPECT_EQ(Json::parse(out)["links"][0], Json::parse(R"({"title": 1, "data": 2})"));
    // Fifty of its 52 are nothing to tell.
    EXPECT_EQ(run("json k.krt"), 1);
    auto fewer = Json::parse(out);
    for (int const title : {0, 2}) {
        EXPECT_EQ(run("check k.krt"), 1);
        EXPECT_NE(out.find(" sarakekenttää, suositus on enintään 50\n"), std::string::npos);
        fewer["fields"][title]["value"] = "NOLINK";
        write("k.json", fewer.dump());
        EXPECT_EQ(run("make k.json -o k.krt"), 0) << err;
    }
    EXPECT_EQ(run("check k.krt"), 1);
    EXPECT_EQ(out.find(" sarakekenttää"), std::string::npos) << out;
    write("e.krt", "x");
    EXPECT_EQ(run("check --json e.krt puuttuu.krt"), 2);
    EXPECT_TRUE(
        out.starts_with(R"({"file":"e.krt","readable":false,"findings":[{"what":"not_a_card")"))
        << out;
    // What is the same card by now, in the words of programs.
    take("vanha.krt");
    write_changed("v.krt", "vanha.krt", "field(4).width=180", "field(4).width=170");
    EXPECT_EQ(run("diff --json vanha.krt v.krt"), 1);
    auto differences = Json::parse(out);
    EXPECT_EQ(differences["differences"],
              Json::parse(R"([{"field": 4, "member": "width", "before": 180, "after": 170}])"));
    EXPECT_EQ(differences["before"], "vanha.krt");
    EXPECT_EQ(differences["after"], "v.krt");
    EXPECT_TRUE(differences["another_card"].is_boolean());
}

TEST_F(Krt, FontsAndPicturesAreThoseOfTheEditor) {
    write_changed("a.krt", "asiakkaat.krt",
                  "field(2).fontName=", "field(2).fontName=" + std::string(40, 'x'));
    EXPECT_EQ(run("check --json a.krt"), 1);
    EXPECT_EQ(Json::parse(out)["findings"].back()["key"], "field(2).fontName");
    EXPECT_EQ(run("repair a.krt -o b.krt"), 1);
    EXPECT_EQ(run("json b.krt"), 0);
    auto card = Json::parse(out);
    EXPECT_EQ(card["fields"][1]["fontName"], card["fields"][0]["fontName"]); // the one before it
    card["fields"][1]["fontName"] = std::string(40, 'x');
    write("k.json", card.dump());
    EXPECT_EQ(run("make k.json"), 2);
    EXPECT_NE(err.find("/fields/1/fontName"), std::string::npos);
    // A picture beside the card is found from another folder, and keeps its name.
    fs::create_directory(folder / "k");
    write_changed("k/c.krt", "asiakkaat.krt", "card.picture=          ", "card.picture=+kuva.bmp");
    EXPECT_EQ(run("check --json k/c.krt"), 1);
    auto finding = Json::parse(out)["findings"][0];
    EXPECT_EQ(finding["what"], "missing_picture");
    EXPECT_EQ(finding["found"], "+kuva.bmp");
    EXPECT_EQ(run("repair k/c.krt"), 1);
    EXPECT_NE(out.find("card.picture=+kuva.bmp"), std::string::npos);
    write("k/kuva.bmp", "");
    EXPECT_EQ(run("check k/c.krt"), 0);
    EXPECT_EQ(run("repair --always k/c.krt"), 0);
    EXPECT_NE(out.find("card.picture=+kuva.bmp"), std::string::npos);
}
