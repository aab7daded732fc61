// Cards as JSON and back.
#include "tests/krt/tool.h"

#include <tuple>

TEST_F(Krt, JsonAndBackGivesTheSameFile) {
    for (auto const* const name : {"asiakkaat.krt", "jasenet.krt", "kolmesataa.krt", "laskut.krt",
                                   "sukukirja.krt", "tuotteet.krt"}) {
        take(name);
        ASSERT_EQ(run(std::string("json ") + name, " && cp out kortti.json"), 0);
        auto const json = Json::parse(out);
        EXPECT_FALSE(json["card"].contains("fields"));
        EXPECT_EQ(run("make kortti.json -o uusi.krt"), 0) << err;
        EXPECT_TRUE(bytes_of(folder / "uusi.krt") == bytes_of(folder / name)) << name;
    }
}

TEST_F(Krt, MakeNamesThePlaceOfWhatIsWrong) {
    ASSERT_EQ(run("json " + take("vanha.krt")), 0);
    auto const good = Json::parse(out);
    auto const refusal = [&](char const* pointer, Json const& value) {
        auto changed = good;
        changed[Json::json_pointer(pointer)] = value;
        write("k.json", changed.dump());
        EXPECT_EQ(run("make k.json -o uusi.krt"), 2);
        EXPECT_FALSE(fs::exists(folder / "uusi.krt"));
        return err;
    };
    for (auto const& [pointer, value] :
         std::initializer_list<std::pair<char const*, Json>>{{"/card/width", "300"},
                                                             {"/card/width", 59},
                                                             {"/card/vieras", 1},
                                                             {"/card/dateStyle/3", 9},
                                                             {"/card/editDate", "2004-13-01"},
                                                             {"/fields/1/left", 1e99},
                                                             {"/fields/1/left", 40000},
                                                             {"/fields/0/caption", "kaksi\nriviä"},
                                                             {"/fields/0/caption", "日本"},
                                                             {"/fields/2/fontBold", 1}})
        EXPECT_NE(refusal(pointer, value).find(pointer), std::string::npos) << pointer << err;
    for (auto const& [pointer, value, what] :
         std::initializer_list<std::tuple<char const*, Json, char const*>>{
             {"/card/fields", 12, "tuntematon jäsen"},
             {"/card/width", 1e26, "luku ei mahdu korttiin"},
             {"/card/width", 646.5, "pitäisi olla kokonaisluku"},
             {"/fields/0/linkitys", 1, "pitäisi olla -1 tai 0"},
             {"/card/asiakasMax", 9999999999, "luku on liian tarkka"},
             {"/card/asiakasMax", 1.00000000001, "luku on liian tarkka"}})
        EXPECT_NE(refusal(pointer, value).find(what), std::string::npos) << pointer << err;
    auto fraction = good;
    fraction["card"]["width"] = 646.0;                 // a whole number all the same
    write("k.json", "\xef\xbb\xbf" + fraction.dump()); // and a mark that some editors leave
    EXPECT_EQ(run("make k.json"), 0) << err;
    auto lacking = good;
    lacking["fields"][0].erase("tabIndex");
    write("k.json", lacking.dump());
    EXPECT_EQ(run("make k.json"), 2);
    EXPECT_NE(err.find("/fields/0/tabIndex"), std::string::npos);
    for (auto const& [text, what] :
         {std::pair("{", "ei ole JSONia, virhe tavun 2 kohdalla"),
          {R"({"fields": [{}, {"a": 1, "a": 1}]})", "/fields/1/a: on kahdesti"},
          {"[[[[[", "on liian syvä"},
          {R"({"card": {"width": 1e400}})", "/card/width: luku on liian suuri"},
          {R"({"fields": [{}, 1e400]})", "/fields/1: luku on liian suuri"},
          {"{\"\xff\": 1}", "ei ole JSONia, virhe tavun 3 kohdalla"},
          {R"({"card": NaN})", "ei ole JSONia, virhe tavun 10 kohdalla"},
          {"{} {}", "ei ole JSONia, virhe tavun 4 kohdalla"}}) {
        write("k.json", text);
        EXPECT_EQ(run("make k.json"), 2);
        EXPECT_NE(err.find(what), std::string::npos) << err;
    }
}
