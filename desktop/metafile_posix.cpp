#include "desktop/metafile.h"

#include "platform/base.h"

#include <QEventLoop>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>

namespace desktop {

namespace {

using platform::ErrorNumber;
using platform::RuntimeError;

/// Runs the converter of metafiles. What has nothing to do with a user's input goes on meanwhile,
/// the painting of the windows above all.
void convert(QStringList const& words) {
    constexpr int patience = 1500;   // milliseconds
    constexpr int untilKilled = 300; // milliseconds
    QProcess converter;
    converter.setStandardInputFile(QProcess::nullDevice());
    converter.setStandardOutputFile(QProcess::nullDevice());
    converter.setStandardErrorFile(QProcess::nullDevice());
    QEventLoop waiting;
    QObject::connect(&converter, &QProcess::finished, &waiting, &QEventLoop::quit);
    QObject::connect(&converter, &QProcess::errorOccurred, &waiting, &QEventLoop::quit);
    QTimer::singleShot(patience, &waiting, &QEventLoop::quit);
    converter.start(QStringLiteral("wmf2gd"), words);
    if (converter.state() != QProcess::NotRunning)
        waiting.exec(QEventLoop::ExcludeUserInputEvents);
    if (converter.error() == QProcess::FailedToStart)
        throw RuntimeError(ErrorNumber::invalid_picture,
                           "Kuvatyypin muunninohjelma wmf2gd puuttuu");
    if (converter.state() != QProcess::NotRunning) {
        converter.kill();
        converter.waitForFinished(untilKilled);
        throw RuntimeError(ErrorNumber::invalid_picture, "Kuvan muuntaminen kestää liian kauan");
    }
}

} // namespace

/// A converter beside the program makes pixels of them.
QImage readMetafile(QString const& path) {
    QTemporaryDir const folder;
    auto const drawn = folder.filePath(QStringLiteral("picture.png"));
    auto size = sizeOfMetafile(path);
    QStringList words{QStringLiteral("-t"), QStringLiteral("png"), QStringLiteral("-o"), drawn};
    if (size.isEmpty())
        size = {largestMetafile, largestMetafile};
    else
        words.append(QStringLiteral("--maxpect"));
    size = size.boundedTo({largestMetafile, largestMetafile});
    words.append({QStringLiteral("--maxwidth=%1").arg(size.width()),
                  QStringLiteral("--maxheight=%1").arg(size.height()), path});
    convert(words);
    return QImage(drawn);
}

} // namespace desktop
