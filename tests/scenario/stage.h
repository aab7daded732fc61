// Stage: what the steps of a scenario act on.
#pragma once

#include "app/program.h"
#include "tests/scenario/scripted_host.h"
#include "tests/scenario/words.h"
#include "tests/scenario/world.h"

#include <iosfwd>
#include <memory>
#include <span>
#include <string_view>

namespace scenario {

struct Step;

struct Stage {
    ScriptedHost& host;
    World& world;
    /// Where `show` prints.
    std::ostream& out;
    /// Null before the launch and after the program's end.
    std::unique_ptr<kehystin::Program> program = nullptr;

    /// A press on the card waits for its release. The button may also be down for a resize.
    bool card_pressed = false;
    /// Where the mouse was last on the card, in surface pixels.
    double mouse_x = 0;
    double mouse_y = 0;
};

/// One kind of step, by its first word.
struct StepKind {
    std::string_view word;
    void (*perform)(Stage& stage, Arguments& arguments, Step const& step);
};

std::span<StepKind const> world_steps();
std::span<StepKind const> answer_steps();
std::span<StepKind const> user_steps();
std::span<StepKind const> expectation_steps();

} // namespace scenario
