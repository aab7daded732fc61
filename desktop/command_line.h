// The program's own words of the command line.
#pragma once

#include <QString>
#include <QStringList>

namespace desktop {

struct CommandLine {
    QString text;      ///< what the program examines: all words, with blanks between them
    QStringList files; ///< or else files, each word one as it stands
};

/// Behind "--", by which a desktop starts the program, each word is a file: its name may begin or
/// end with whatever means something in a text. So is each of several words that are all names of
/// files, where their text names none.
CommandLine readCommandLine(QStringList const& words);

} // namespace desktop
