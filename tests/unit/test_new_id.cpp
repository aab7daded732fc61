#include "cardfile/new_identity.h"

#include "tests/unit/fresh_session.h"

#include <cctype>

namespace kehystin {

class NewID : public FreshSession {};

TEST_F(NewID, IsDateFirstAndNeverTheSame) {
    start();
    auto const first = GetNewID();
    ASSERT_EQ(first.size(), 20U);
    EXPECT_EQ(first.substr(0, 12), "170520040930");
    for (char const c : first)
        EXPECT_TRUE(std::isalnum(static_cast<unsigned char>(c))) << first;
    EXPECT_NE(GetNewID(), first);
}

} // namespace kehystin
