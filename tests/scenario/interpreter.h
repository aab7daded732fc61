// Interpreter: runs the steps of one scenario, on into modal forms and out of them again.
#pragma once

#include "tests/scenario/script.h"
#include "tests/scenario/stage.h"

#include <atomic>
#include <string>
#include <vector>

namespace scenario {

enum class Verdict { none, passed, failed };

/// How far a scenario has come. Another process may watch it, and learns from it where a crash
/// happened.
struct Progress {
    std::atomic<int> line = 0;
    std::atomic<Verdict> verdict = Verdict::none;
};

class Interpreter {
  public:
    /// `file` is the name of the scenario for messages. Results go to standard output.
    Interpreter(std::string file, std::vector<Step> steps, World& world, Progress& progress);

    /// Runs all steps. Ends the process at the first step that fails, and when the steps end while
    /// a modal form is open: nothing can unwind through the program's own code.
    void run();

  private:
    void perform_next();
    void perform(Step const& step);
    void run_modal(platform::Form& form);
    void end_program();
    void require_answers_used();
    [[noreturn]] void fail(std::string const& what);

    std::string file_;
    std::vector<Step> steps_;
    std::size_t next_ = 0;
    int modal_depth_ = 0;
    Progress& progress_;
    ScriptedHost host_;
    Stage stage_;
};

} // namespace scenario
