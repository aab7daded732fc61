// A session with an unsaved card, on a host whose boxes are answered and counted.
#pragma once

#include "card/writing.h"
#include "cardfile/work_rescue.h"
#include "mainwindow/document_state.h"
#include "platform/input.h"
#include "rescue/store.h"
#include "tests/unit/fresh_session.h"

#include <algorithm>
#include <cstdlib>

namespace kehystin {

/// How many places there are between two that are tried: of all when a long run asks for them.
inline int places_between(int usual) {
    return std::getenv("KEHYSTIN_EVERY_FAULT") ? 1 : usual;
}

/// What a session must not lose, as bytes of a card file but for the identity, which is drawn.
inline std::string without_id(std::string bytes) {
    auto const start = bytes.find("card.ID=");
    if (start != std::string::npos)
        bytes.erase(start, bytes.find("\r\n", start) - start);
    return bytes;
}

inline std::string written(CardData data) {
    return without_id(write_card(data));
}

/// Answers each box by the button that goes on, as a user in a hurry does. `while_outside` is held
/// while something of the test's own runs.
template <class WhileOutside>
class AnsweringHost : public scenario::ScriptedHost {
  public:
    using ScriptedHost::ScriptedHost;
    platform::Answer yes_or_no = platform::Answer::yes;
    std::vector<std::string> faults; ///< of the program

    platform::Answer MsgBox(std::string_view text, int flags, std::string_view title) override {
        WhileOutside const outside;
        boxes.push_back({std::string(title), std::string(text), flags, std::nullopt});
        return (flags & 7) == platform::box::yes_no ? yes_or_no : platform::Answer::ok;
    }
    void timer_changed(platform::Timer& timer) override {
        WhileOutside const outside;
        ScriptedHost::timer_changed(timer);
    }
    /// As on a thread of its own: what is raised there ends the process.
    void in_background(std::function<void()> const& work) override {
        [&]() noexcept { work(); }();
    }
    void unhandled(std::string_view what) override {
        WhileOutside const outside;
        faults.emplace_back(what);
    }
};

/// A card that is open and unsaved in a folder, and another file beside it.
template <class Host>
struct FaultySession {
    Folder folder;
    std::string file = folder / "a.krt";
    std::string other = folder / "b.krt";
    Host host{folder.path()};

    FaultySession() {
        std::filesystem::copy_file(KEHYSTIN_SCENARIOS "/files/kaksi.krt", file);
        std::filesystem::copy_file(KEHYSTIN_SCENARIOS "/../../examples/kolmesataa.krt", other);
    }
    /// The card is open, changed and kept.
    void begin(Program& program) const {
        program.Main();
        session.startFile = file;
        cmd_open_Click();
        field(2).left = 120;
        MarkCardChanged();
        keep_work();
    }
    /// Of a kind, in all that the session has kept.
    bool is_kept(rescue::What kind, std::string const& bytes) const {
        rescue::Store const store(folder / "state");
        auto const names = store.names();
        return std::any_of(names.begin(), names.end(), [&](std::string const& name) {
            auto const held = store.bytes_of(name);
            auto const one = held ? rescue::from_file(*held) : std::nullopt;
            return one && one->kind == kind && without_id(one->bytes) == bytes;
        });
    }
};

} // namespace kehystin
