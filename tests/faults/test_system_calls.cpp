// The disk fails at any single call of a save, of keeping the work and of the settings: the old
// card, the new one or both can be had again, and the user is told.
#include "app/end.h"
#include "app/settings_file.h"
#include "cardfile/work_rescue.h"
#include "tests/faults/failing_calls.h"
#include "tests/faults/faulty_session.h"

#include <cerrno>

namespace kehystin {

namespace {

struct Nothing {
    Nothing() {}
};
using Tried = FaultySession<AnsweringHost<Nothing>>;
namespace input = platform::input;

/// Fails one call, 0 for none. Counts them.
class FailingCall {
  public:
    FailingCall(int failing, int error) {
        faults::before_call = [this, failing, error](faults::Call const&) {
            return ++calls_ == failing ? error : 0;
        };
    }
    ~FailingCall() { faults::before_call = {}; }
    FailingCall(FailingCall const&) = delete;
    FailingCall& operator=(FailingCall const&) = delete;
    int calls() const { return calls_; }

  private:
    int calls_ = 0;
};

constexpr int errors[] = {EIO, ENOSPC, EACCES};

} // namespace

class SystemCalls : public testing::Test {
  protected:
    /// What a user can have again when the session is over: the file, and what is offered.
    static std::vector<std::string> had_again(Tried const& one) {
        std::vector<std::string> all{without_id(bytes_of(one.file))};
        for (auto const& found :
             rescue::look_for_rescues(rescue::Store(one.folder / "state")).rescues)
            all.push_back(without_id(found.rescue.bytes));
        return all;
    }
    static bool holds(std::vector<std::string> const& all, std::string const& bytes) {
        return std::find(all.begin(), all.end(), bytes) != all.end();
    }
    std::string const old_ = without_id(bytes_of(KEHYSTIN_SCENARIOS "/files/kaksi.krt"));
};

TEST_F(SystemCalls, AnyOneOfASaveMayFail) {
    std::string saved;
    int count = 0;
    for (int const error : errors) {
        for (int failing = 0; failing <= count; ++failing) {
            SCOPED_TRACE("call " + std::to_string(failing) + " error " + std::to_string(error));
            Tried one;
            std::string changed;
            bool modified = false;
            {
                auto const program = std::make_unique<Program>(one.host);
                one.begin(*program);
                changed = written(open_card);
                FailingCall const watch(failing, error);
                input::click(fEditor->cmdTallenna);
                if (failing == 0) {
                    count = watch.calls();
                    saved = without_id(bytes_of(one.file));
                }
                modified = static_cast<bool>(session.cardModified);
            }
            EXPECT_TRUE(one.host.faults.empty());
            auto const all = had_again(one);
            if (!modified) {
                EXPECT_EQ(all.front(), saved);
                continue;
            }
            EXPECT_FALSE(one.host.boxes.empty()) << "not told";
            EXPECT_TRUE(holds(all, changed) || holds(all, saved)) << "the changes are lost";
            EXPECT_TRUE(holds(all, old_) || all.front() == saved) << "the old card is lost";
        }
    }
    std::cout << "calls of a save: " << count << "\n";
    EXPECT_GT(count, 30);
}

TEST_F(SystemCalls, AnyOneOfKeepingTheWorkMayFail) {
    int count = 0;
    for (int const error : errors) {
        for (int failing = 0; failing <= count; ++failing) {
            SCOPED_TRACE("call " + std::to_string(failing) + " error " + std::to_string(error));
            Tried one;
            std::string before;
            std::string now;
            {
                auto const program = std::make_unique<Program>(one.host);
                one.begin(*program);
                before = written(open_card);
                field(2).left = 130;
                now = written(open_card);
                {
                    FailingCall const watch(failing, error);
                    keep_work();
                    if (failing == 0)
                        count = watch.calls();
                }
                rescue::Store const store(one.folder / "state");
                EXPECT_TRUE(one.is_kept(rescue::What::work, before) ||
                            one.is_kept(rescue::What::work, now));
                // Told, or there all the same; and there for sure as soon as the disk works.
                EXPECT_TRUE(one.is_kept(rescue::What::work, now) || !one.host.boxes.empty());
                keep_work();
                EXPECT_TRUE(one.is_kept(rescue::What::work, now));
            }
            EXPECT_TRUE(holds(had_again(one), now));
        }
    }
    std::cout << "calls of keeping the work: " << count << "\n";
    EXPECT_GT(count, 5);
}

TEST_F(SystemCalls, AnyOneOfTheSettingsMayFail) {
    int count = 0;
    for (int const error : errors) {
        for (int failing = 0; failing <= count; ++failing) {
            SCOPED_TRACE("call " + std::to_string(failing) + " error " + std::to_string(error));
            Tried one;
            auto const settings_file = one.folder / "windows/editor53.ini";
            {
                Program program(one.host);
                one.begin(program);
                settings.gridX = 11;
                WriteSettings();
                settings.gridX = 12;
                std::string told;
                {
                    FailingCall const watch(failing, error);
                    try {
                        WriteSettings();
                    } catch (RuntimeError const& failure) {
                        told = failure.text();
                    }
                    if (failing == 0)
                        count = watch.calls();
                }
                auto const record = settings_record(settings);
                std::string const fresh(reinterpret_cast<char const*>(record.data()),
                                        record.size());
                EXPECT_TRUE(bytes_of(settings_file) == fresh || !told.empty());
            }
        }
    }
    std::cout << "calls of the settings: " << count << "\n";
    EXPECT_GE(count, 3);
}

} // namespace kehystin
