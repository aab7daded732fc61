// The real program, ended by its first picture.
#include "bench/first_paint.h"
#include "desktop/application.h"

#include <optional>

int main(int argc, char* argv[]) {
    std::optional<bench::FirstPaint> first;
    return desktop::runApplication(argc, argv,
                                   [&](QApplication& application) { first.emplace(application); });
}
