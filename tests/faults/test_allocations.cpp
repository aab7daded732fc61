// The memory runs out at any single allocation of what a user does most: it is told or does no
// harm, nothing is lost, and the session goes on.
#include "forms/panel_rows.h"
#include "tests/faults/failing_memory.h"
#include "tests/faults/faulty_session.h"

#include <sstream>

namespace kehystin {

namespace {

using faults::memory;

struct Tried : FaultySession<AnsweringHost<faults::Unwatched>> {
    Program program{host};
    void start() { begin(program); }
};
namespace input = platform::input;

struct Deed {
    char const* name;
    void (*prepare)(Tried&);
    void (*perform)(Tried&);
};

void PrintTo(Deed const& deed, std::ostream* out) {
    *out << deed.name;
}

/// The first line that differs.
std::string difference(std::string const& before, std::string const& now) {
    auto const [a, b] = std::mismatch(before.begin(), before.end(), now.begin(), now.end());
    auto const line = [](std::string const& text, auto at) {
        auto const place = static_cast<std::size_t>(at - text.begin());
        auto const start = text.rfind('\n', place) + 1;
        return text.substr(start, text.find('\n', place) - start);
    };
    return line(before, a) + " became " + line(now, b);
}

/// Without what the next linking writes anew.
std::string without_links(std::string const& bytes) {
    std::istringstream in(bytes);
    std::string kept;
    for (std::string line; std::getline(in, line);)
        if (line.find(").list=") == std::string::npos &&
            line.find(").group=") == std::string::npos &&
            line.find(").linkki=") == std::string::npos)
            kept += line + "\n";
    return kept;
}

void select_second(Tried&) {
    input::pick(fEditor->cmb_field, 2);
}
void nothing(Tried&) {}

constexpr Deed deeds[] = {
    {"Open",
     [](Tried& one) {
         one.host.yes_or_no = platform::Answer::no;
         session.startFile = one.other;
     },
     [](Tried&) { input::click(fEditor->cmd_open); }},
    {"Drop", nothing, [](Tried&) { input::drop(fEditor->drag_txt, *fCard, 20, 150); }},
    {"Drag", select_second,
     [](Tried& one) {
         auto const& place = field(2);
         double const x = place.left + 10.0;
         double const y = place.top + 10.0;
         one.host.button_down = true;
         input::mouse_press(*fCard, x, y, false);
         input::mouse_move(*fCard, x + 7, y + 9);
         one.host.button_down = false;
         input::mouse_release(*fCard, x + 7, y + 9);
     }},
    {"Type",
     [](Tried& one) {
         select_second(one);
         auto& left = editor_of(Row::left);
         input::focus(left);
         left.select_all();
     },
     [](Tried&) { input::type(editor_of(Row::left), "7"); }},
    {"Save",
     [](Tried&) {
         field(2).tabIndex = 500;
         session.needNewID = true;
     },
     [](Tried&) { input::click(fEditor->cmdTallenna); }},
    // Builds the surface anew: a card that can then not be shown any more stays kept.
    {"Delete", select_second, [](Tried&) { input::click(fEditor->cmd_field_del); }},
    {"Keep", [](Tried&) { field(2).left = 121; }, [](Tried& one) { one.host.clock.run(2000); }},
};

/// Runs a deed with one allocation failing, 0 for none. Returns how many it made.
long perform(Deed const& deed, Tried& one, long failing) {
    one.start();
    deed.prepare(one);
    one.host.boxes.clear();
    memory = {true, 0, failing};
    deed.perform(one);
    memory.watched = false;
    return memory.allocations;
}

} // namespace

class Allocations : public testing::TestWithParam<Deed> {
  protected:
    void SetUp() override {
        Tried clean;
        allocations_ = perform(GetParam(), clean, 0);
        after_ = written(open_card);
        file_after_ = without_id(bytes_of(clean.file));
    }

    void look_at(Tried& one, std::string const& before) {
        EXPECT_TRUE(one.host.faults.empty()) << one.host.faults.front();
        if (!session.cardFormLoaded) {
            EXPECT_FALSE(one.host.boxes.empty()) << "not told";
            // What was open had been settled, or it is kept.
            one.host.clock.run(2000);
            EXPECT_TRUE(session.cardFile != one.file || one.is_kept(rescue::What::work, before) ||
                        one.is_kept(rescue::What::work, after_));
            return;
        }
        auto const now = written(open_card);
        EXPECT_TRUE(now == before || without_links(now) == without_links(after_))
            << difference(before, now) << "\n"
            << difference(after_, now);
        auto const file = without_id(bytes_of(one.file));
        if (file != file_after_) { // a save that was not done leaves nothing of its own
            EXPECT_EQ(without_links(now), without_links(before));
        }
        bool const finished = now == after_ && file == file_after_;
        EXPECT_TRUE(finished || !one.host.boxes.empty()) << "not told";
        bool const both_kept = one.is_kept(rescue::What::before, file_before_) &&
                               one.is_kept(rescue::What::after, file_after_);
        EXPECT_TRUE(file == file_before_ || file == file_after_ || both_kept);
    }
    /// The session goes on as if nothing had been.
    void go_on(Tried& one) {
        if (!session.cardFormLoaded) {
            session.startFile = one.other;
            input::click(fEditor->cmd_open);
        }
        one.host.yes_or_no = platform::Answer::yes;
        one.host.boxes.clear();
        int const before = card.fields;
        input::drop(fEditor->drag_ots, *fCard, 5, 200);
        EXPECT_EQ(card.fields, before + 1);
        EXPECT_TRUE(one.host.boxes.empty()) << one.host.boxes.front().text;
        one.host.clock.run(3000);
        auto data = open_card;
        if (is_unsaved()) {
            EXPECT_TRUE(one.is_kept(rescue::What::work, without_id(write_card(data))));
        }
        EXPECT_TRUE(one.host.faults.empty());
    }

    long allocations_ = 0;
    std::string after_;
    std::string file_after_;
    std::string file_before_ = without_id(bytes_of(KEHYSTIN_SCENARIOS "/files/kaksi.krt"));
};

TEST_P(Allocations, AnySingleOneMayFail) {
    constexpr int usual_step = 37;
    long tried = 0;
    for (long failing = 1; failing <= allocations_; failing += places_between(usual_step)) {
        SCOPED_TRACE(failing);
        Tried one;
        one.start();
        GetParam().prepare(one);
        auto const before = written(open_card);
        one.host.boxes.clear();
        memory = {true, 0, failing};
        GetParam().perform(one);
        memory.watched = false;
        look_at(one, before);
        go_on(one);
        ++tried;
    }
    std::cout << GetParam().name << ": " << tried << " of " << allocations_ << " allocations\n";
}

TEST(GivingUp, EndsNoProcessWhereTheMemoryRunsOutBesideIt) {
    for (long failing = 1;; ++failing) {
        SCOPED_TRACE(failing);
        Tried one;
        one.start();
        one.host.yes_or_no = platform::Answer::no;
        memory = {true, 0, failing};
        input::click(fEditor->cmd_close);
        memory.watched = false;
        EXPECT_TRUE(one.host.faults.empty());
        if (memory.allocations < failing)
            break;
    }
}

INSTANTIATE_TEST_SUITE_P(OfADeed, Allocations, testing::ValuesIn(deeds),
                         [](auto const& deed) { return deed.param.name; });

} // namespace kehystin
