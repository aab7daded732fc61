#include "links/link_engine.h"

#include "surface/load_card.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

class Links : public FreshSession {
  protected:
    void SetUp() override { start(); }

    void show() {
        card.width = 1000;
        card.height = 1000;
        ASSERT_TRUE(load_card());
    }
    std::string list_of(int title) { return field(title).list.trimmed(); }
    std::string group_of(int data) { return field(data).group.trimmed(); }
};

TEST_F(Links, ABadManualLinkEndsTheRunWithItsBox) {
    for (int const number : {0, 5, -1}) {
        card.fields = 0;
        add_field(Style::OTS, 10, 10, 50, 16, "Nimi");
        add_field(Style::TXT, 100, 10, 50, 20);
        auto& bad = add_field(Style::TXT, 100, 40, 50, 20);
        bad.linkitys = true;
        bad.linkki = number;
        add_field(Style::TXT, 100, 70, 50, 20).group = "Vanha";
        host.answers.push_back(Answer::ok);
        show();
        EXPECT_EQ(host.boxes.back().text.find(" Linkkien päivitys aiheutti virheen     "), 0U);
        EXPECT_EQ(session.link_count, 1);
        EXPECT_EQ(list_of(1), "2|");
        EXPECT_EQ(group_of(4), "");
    }
}

TEST_F(Links, ASumBeyondSixteenBitsEndsTheRunWithItsBox) {
    add_field(Style::OTS, 32000, 10, 1000, 16, "Nimi");
    add_field(Style::TXT, 100, 10, 50, 20);
    host.answers.push_back(Answer::ok);
    show();
    EXPECT_NE(host.boxes.back().text.find("(6)  Ylivuoto"), std::string::npos);
}

TEST_F(Links, ALineCountsAlsoWhereItsEndsCannotBeComputed) {
    auto& title = add_field(Style::OTS, 32700, 10, 100, 16, "Kaukana");
    title.value = "NOLINK";
    auto& data = add_field(Style::TXT, 100, 10, 50, 20);
    data.linkitys = true;
    data.linkki = 1;
    host.answers.push_back(Answer::ok);
    show();
    EXPECT_NE(host.boxes.back().text.find("(6)  Ylivuoto"), std::string::npos);
    EXPECT_EQ(session.link_count, 1);
    EXPECT_TRUE(fCard->link.has(1));
    EXPECT_EQ(group_of(2), "");
}

} // namespace kehystin
