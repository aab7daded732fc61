// krt-draw: paints cards for krt.
#include "draw/run.h"

int main(int argc, char* argv[]) {
    return draw::run(argc, argv);
}
