// The whole program with real windows, from its command line to its exit code.
#pragma once

#include <functional>

class QApplication;

namespace desktop {

/// `prepared` is called once Qt stands and before the program starts.
int runApplication(int argc, char* argv[],
                   std::function<void(QApplication&)> const& prepared = nullptr);

} // namespace desktop
