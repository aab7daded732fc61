// Two cards compared.
#include "tests/krt/tool.h"

TEST_F(Krt, DiffTellsWhatHasChangedByMeaning) {
    auto const card = take("vanha.krt");
    EXPECT_EQ(run("diff vanha.krt vanha.krt"), 0);
    EXPECT_EQ(out, "");
    ASSERT_EQ(run("json " + card), 0);
    auto changed = Json::parse(out);
    auto& fields = changed["fields"];
    fields[3]["width"] = 99;
    std::swap(fields[0], fields[2]); // the titles "Nimi" and "Lähiosoite"
    fields.erase(11);
    write("k.json", changed.dump());
    ASSERT_EQ(run("make k.json -o uusi.krt"), 0) << err;
    EXPECT_EQ(run("diff vanha.krt uusi.krt"), 1);
    EXPECT_NE(out.find("kenttä 1 Otsikko ”Nimi” on nyt 3\n"), std::string::npos);
    EXPECT_NE(out.find("kenttä 4 Tekstikenttä: width 180 -> 99\n"), std::string::npos);
    EXPECT_NE(out.find("kenttä 12 V-Tekstikenttä on poissa\n"), std::string::npos);
    EXPECT_EQ(out.find("group"), std::string::npos);
    EXPECT_EQ(out.find("linkki"), std::string::npos); // the same fields, by other numbers
    EXPECT_TRUE(out.ends_with("kortista on tullut toinen kortti\n"));
    EXPECT_EQ(run("diff --json uusi.krt vanha.krt"), 1);
    auto const told = Json::parse(out);
    EXPECT_EQ(told["differences"][0]["field"], 1);
    EXPECT_TRUE(told["differences"].back().contains("added"));
    EXPECT_EQ(run("diff vanha.krt puuttuu.krt"), 2);
}

TEST_F(Krt, DiffFollowsWhatOnlyGotAnotherNumber) {
    ASSERT_EQ(run("json " + take("vanha.krt")), 0);
    auto changed = Json::parse(out);
    changed["card"]["fldSpeci"][4] = 2; // the field beside "Nimi" has a role
    write("k.json", changed.dump());
    ASSERT_EQ(run("make k.json -o rooli.krt"), 0) << err;
    auto title = changed["fields"][0];
    title["caption"] = "Aivan uusi";
    title["value"] = "NOLINK";
    title["left"] = 17;
    changed["fields"].insert(changed["fields"].begin(), title);
    for (std::size_t i = 1; i < changed["fields"].size(); ++i) {
        auto& link = changed["fields"][i]["linkki"];
        link = link == 0 ? 0 : link.get<int>() + 1;
    }
    changed["card"]["fldSpeci"][4] = 3;
    changed["card"]["STPP"] = 12;
    changed["fields"][2]["style"] = 7; // and that of "Nimi" scrolls now
    write("k.json", changed.dump());
    ASSERT_EQ(run("make k.json -o uusi.krt"), 0) << err;
    EXPECT_EQ(run("diff rooli.krt uusi.krt"), 1);
    EXPECT_EQ(err, "");
    auto const has = [&](char const* line) { return out.find(line) != std::string::npos; };
    EXPECT_TRUE(has("kenttä 2 Tekstikenttä on nyt 3\n")) << out;
    EXPECT_TRUE(has("kenttä 2 Tekstikenttä: style 1 -> 7\n")) << out;
    EXPECT_TRUE(has("uusi kenttä 1 Otsikko ”Aivan uusi”\n")) << out;
    for (auto const* const noise : {"poissa", "fldSpeci", "linkki", "STPP", "left"})
        EXPECT_FALSE(has(noise)) << noise << out;
}

TEST_F(Krt, DiffSaysWhetherItIsStillTheSameCard) {
    take("asiakkaat.krt");
    auto const is_another = [&](char const* from, char const* to) {
        write_changed("a.krt", "asiakkaat.krt", from, to);
        EXPECT_EQ(run("diff asiakkaat.krt a.krt"), 1);
        bool const told = out.ends_with("kortista on tullut toinen kortti\n");
        EXPECT_EQ(run("diff --json asiakkaat.krt a.krt"), 1);
        EXPECT_EQ(Json::parse(out)["another_card"], told);
        return told;
    };
    EXPECT_FALSE(is_another("field(3).left=126", "field(3).left=127"));
    EXPECT_TRUE(is_another("field(3).size=", "field(3).size=1"));
    // The ID is asked of the newer card, and so is what a title is called now.
    write_changed("b.krt", "asiakkaat.krt", "card.ID=", "card.ID=lyhyt");
    EXPECT_EQ(run("diff --json asiakkaat.krt b.krt"), 1);
    EXPECT_EQ(Json::parse(out)["another_card"], true);
    EXPECT_EQ(run("diff --json b.krt asiakkaat.krt"), 1);
    EXPECT_EQ(Json::parse(out)["another_card"], false);
    // As git names a card that came or went.
    EXPECT_EQ(run("diff /dev/null asiakkaat.krt"), 1);
    EXPECT_TRUE(out.starts_with("uusi kortti ”Asiakkaat”\nuusi kenttä 1 ")) << out;
    EXPECT_EQ(run("diff asiakkaat.krt /dev/null"), 1);
    EXPECT_TRUE(out.starts_with("kortti ”Asiakkaat” on poissa\nkenttä 1 ")) << out;
    EXPECT_EQ(run("diff --json /dev/null asiakkaat.krt"), 1);
    EXPECT_EQ(Json::parse(out)["differences"][0]["added"]["name"], "Asiakkaat");
    EXPECT_EQ(run("diff /dev/null /dev/null"), 0);
}
