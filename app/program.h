// Program: one session of Kehystin on a host, from its start to its end.
#pragma once

#include "platform/system.h"

namespace kehystin {

class Program {
  public:
    /// Makes a fresh session: all records and variables are as if nothing had run.
    explicit Program(platform::Host& host);
    /// Takes all forms away.
    ~Program();
    Program(Program const&) = delete;
    Program& operator=(Program const&) = delete;

    /// Shows the main window and does what the command line says. What the user does afterwards
    /// comes through platform::input. Throws SessionEnd if the session ended on the way.
    void Main();

    /// Makes the unsaved card safe on the disk, whatever is under way. Changes nothing in the
    /// session and raises nothing.
    void keep_work() noexcept;

  private:
    platform::System system_;
};

} // namespace kehystin
