// The entry point of Kehystin with real windows.
#include "desktop/application.h"

int main(int argc, char* argv[]) {
    return desktop::runApplication(argc, argv);
}
