// kehystin-help-reader FILE: everything in a compiled help file, on standard output.
#include "desktop/help_reader.h"

int main(int argc, char* argv[]) {
    return argc == 2 ? desktop::help_reader::run(argv[1]) : 1;
}
