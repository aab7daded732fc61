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
};

TEST_F(Links, ABadManualLinkEndsTheRunWithItsBox) {
    add_field(Style::OTS, 10, 10, 50, 16, "Nimi");
    add_field(Style::TXT, 100, 10, 50, 20);
    add_field(Style::TXT, 100, 40, 50, 20).linkitys = true; // to no field
    host.answers.push_back(Answer::ok);
    show();
    EXPECT_EQ(host.boxes.back().text.find(" Linkkien päivitys aiheutti virheen     "), 0U);
    EXPECT_EQ(session.link_count, 1);
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
    EXPECT_EQ(field(2).group.trimmed(), "");
}

} // namespace kehystin
