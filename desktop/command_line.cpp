#include "desktop/command_line.h"

#include <QFileInfo>

#include <algorithm>

namespace desktop {

CommandLine readCommandLine(QStringList const& words) {
    if (!words.isEmpty() && words.first() == QLatin1String("--"))
        return {{}, words.mid(1)};
    auto const text = words.join(u' ');
    bool const areFiles = words.size() > 1 && !QFileInfo::exists(text) &&
                          std::all_of(words.begin(), words.end(),
                                      [](auto const& word) { return QFileInfo::exists(word); });
    return areFiles ? CommandLine{{}, words} : CommandLine{text, {}};
}

} // namespace desktop
