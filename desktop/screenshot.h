// The option --screenshot FILE CARD: opens a card, saves a picture of the main window as it then
// stands, and ends. It needs no display, so that a picture can be made anywhere.
#pragma once

#include <string>

namespace desktop {

class QtHost;

class Screenshot {
  public:
    /// Takes the option and FILE out of the command line; what is left is the card. Without a
    /// display Qt is told to draw in memory. To be made before the QApplication.
    Screenshot(int& argc, char* argv[]);

    /// Saves the picture as soon as the host's window has settled. Does nothing without the option.
    void takeFrom(QtHost& host) const;

  private:
    std::string file_;
};

} // namespace desktop
