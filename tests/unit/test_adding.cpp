#include "surface/adding.h"

#include "platform/input.h"
#include "surface/load_card.h"
#include "tests/unit/fresh_session.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

/// What asks for more bytes than this at a time fails.
std::size_t most_bytes = std::numeric_limits<std::size_t>::max();

} // namespace

void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
    return size > most_bytes ? nullptr : std::malloc(size);
}

void* operator new(std::size_t size) {
    if (auto* const place = operator new(size, std::nothrow))
        return place;
    throw std::bad_alloc();
}

// Not into what calls them: the compiler would see a text freed that came from new.
[[gnu::noinline]] void operator delete(void* place) noexcept {
    std::free(place);
}

[[gnu::noinline]] void operator delete(void* place, std::size_t) noexcept {
    std::free(place);
}

namespace kehystin {

class Adding : public FreshSession {
  protected:
    void SetUp() override {
        start();
        fEditor->fldBar.Visible = true;
        add_field(Style::OTS, 10, 10, 20, 16, "A");
        ASSERT_TRUE(load_card());
    }
};

TEST_F(Adding, AFieldThatHasNoRoomInMemoryLeavesTheCardAsItWas) {
    fields.shrink_to_fit();
    auto const before = fields.size();
    host.answers.assign(1, Answer::ok);
    most_bytes = before * sizeof(Field);
    input::drop(fEditor->drag_txt, *fCard, 50, 50);
    most_bytes = std::numeric_limits<std::size_t>::max();
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(card.fields, 1);
    EXPECT_EQ(fields.size(), before);
    EXPECT_EQ(fEditor->cmb_field.ListCount(), 2);
    EXPECT_FALSE(session.cardModified);

    input::drop(fEditor->drag_txt, *fCard, 50, 50);
    EXPECT_EQ(card.fields, 2);
    EXPECT_EQ(fields.size(), before + 1);
}

} // namespace kehystin
