#include "tests/scenario/interpreter.h"

#include "platform/base.h"
#include "platform/form.h"
#include "platform/input.h"

#include <cstdlib>
#include <iostream>

namespace scenario {

namespace {

StepKind const* find_kind(std::string_view word) {
    for (auto const kinds : {world_steps(), answer_steps(), user_steps(), expectation_steps()})
        for (auto const& kind : kinds)
            if (kind.word == word)
                return &kind;
    return nullptr;
}

/// Counts a modal form for as long as it is open, however it ends.
class Deeper {
  public:
    explicit Deeper(int& depth) : depth_(depth) { ++depth_; }
    ~Deeper() { --depth_; }
    Deeper(Deeper const&) = delete;
    Deeper& operator=(Deeper const&) = delete;

  private:
    int& depth_;
};

} // namespace

Interpreter::Interpreter(std::string file, std::vector<Step> steps, World& world,
                         Progress& progress)
    : file_(std::move(file)),
      steps_(std::move(steps)),
      progress_(progress),
      host_(world.folder()),
      stage_{host_, world, std::cout} {
    host_.on_failure = [this](std::string const& what) { fail(what); };
    host_.on_modal = [this](platform::Form& form) { run_modal(form); };
}

void Interpreter::run() {
    while (next_ < steps_.size())
        perform_next();
    require_answers_used();
    end_program();
    progress_.verdict = Verdict::passed;
}

void Interpreter::run_modal(platform::Form& form) {
    Deeper const deeper(modal_depth_);
    while (!form.is_closing()) {
        if (next_ == steps_.size()) {
            require_answers_used();
            progress_.verdict = Verdict::passed;
            std::cout.flush();
            std::_Exit(EXIT_SUCCESS);
        }
        perform_next();
    }
}

void Interpreter::perform_next() {
    auto const& step = steps_[next_++];
    progress_.line = step.line;
    try {
        perform(step);
    } catch (platform::SessionEnd const&) {
        // The program's code is still on the stack while a modal form is open.
        if (modal_depth_ > 0)
            throw;
        end_program();
    } catch (StepError const& error) {
        fail(error.what());
    } catch (platform::InputRefused const& refused) {
        fail("expected `" + step.text + "` to be possible, but " + refused.what());
    } catch (platform::RuntimeError const& error) {
        fail("unhandled exception: error " + std::to_string(error.number()) + ", " + error.text());
    } catch (std::exception const& error) {
        fail(std::string("unhandled exception: ") + error.what());
    } catch (...) {
        fail("unhandled exception of an unknown kind");
    }
}

void Interpreter::perform(Step const& step) {
    auto words = split_words(step.text);
    auto const& first = words.front();
    auto const* const kind = first.quoted ? nullptr : find_kind(first.text);
    if (!kind)
        throw StepError("expected a step, found " + first.text);
    words.erase(words.begin());
    Arguments arguments(std::move(words));
    kind->perform(stage_, arguments, step);
    arguments.finish();
}

void Interpreter::end_program() {
    stage_.program.reset();
    stage_.card_pressed = false;
    host_.button_down = false;
}

void Interpreter::require_answers_used() {
    if (!host_.answers.empty())
        fail("expected all answers to be used, found " + std::to_string(host_.answers.size()) +
             " left, the first of them `" + written(host_.answers.front()) + "`");
}

void Interpreter::fail(std::string const& what) {
    std::cout << file_ << ':' << progress_.line << ": " << what << std::endl;
    progress_.verdict = Verdict::failed;
    std::_Exit(EXIT_FAILURE);
}

} // namespace scenario
