// The program behind `krt draw`.
#pragma once

namespace draw {

/// PROGRAM NAME FORMAT SCALE SIZE [links], in UTF-8: the card on standard input becomes a picture
/// on standard output. NAME is the card's file: its folder is that of the pictures beside the card,
/// and messages begin with it. SIZE is as many pixels as the longer side of a PNG has at most, 0
/// for any number. Returns the exit status.
int run(int argc, char* argv[]);

} // namespace draw
