#include "desktop/help_file.h"

#include "desktop/help_reader.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTextDocumentFragment>

#include <algorithm>
#include <cstring>
#include <optional>

namespace desktop {

namespace {

/// Starts what reads the file.
void start(QProcess& reader, QString const& path) {
#ifdef Q_OS_WIN
    reader.start(QCoreApplication::applicationFilePath(),
                 {QString::fromLatin1(help_reader::option), path}, QIODevice::ReadOnly);
#else
    reader.start(QDir(QCoreApplication::applicationDirPath())
                     .filePath(QString::fromLatin1(help_reader::program)),
                 {path}, QIODevice::ReadOnly);
#endif
}

/// What the reader says of a file; nothing where it falls over it or does not come back.
std::optional<QByteArray> readApart(QString const& path) {
    constexpr int patience = 3000;                     // milliseconds
    constexpr qsizetype mostBytes = 256 * 1024 * 1024; // of a damaged directory without an end
    QDeadlineTimer const deadline(patience);
    QProcess reader;
    reader.setStandardInputFile(QProcess::nullDevice());
    reader.setStandardErrorFile(QProcess::nullDevice());
    start(reader, QFileInfo(path).absoluteFilePath());
    QByteArray written;
    auto const left = [&] { return static_cast<int>(deadline.remainingTime()); };
    while (written.size() <= mostBytes && reader.waitForReadyRead(left()))
        written += reader.readAll();
    bool const ended = written.size() <= mostBytes &&
                       (reader.state() == QProcess::NotRunning || reader.waitForFinished(left()));
    if (!ended) {
        reader.kill();
        reader.waitForFinished(patience);
    }
    if (!ended || reader.exitStatus() != QProcess::NormalExit || reader.exitCode() != 0)
        return std::nullopt;
    return written + reader.readAll();
}

bool isPage(QString const& name) {
    return name.endsWith(QLatin1String(".htm"), Qt::CaseInsensitive) ||
           name.endsWith(QLatin1String(".html"), Qt::CaseInsensitive);
}

QString plain(QString const& markup) {
    return markup.contains(u'&') ? QTextDocumentFragment::fromHtml(markup).toPlainText() : markup;
}

} // namespace

std::unique_ptr<HelpFile> HelpFile::open(QString const& path) {
    auto const written = readApart(path);
    std::unique_ptr<HelpFile> help(new HelpFile);
    if (!written || !help->take(*written))
        return nullptr;
    auto const pages = help->pages();
    bool const readable = std::any_of(pages.begin(), pages.end(),
                                      [&](auto const& page) { return !help->read(page).isNull(); });
    return readable ? std::move(help) : nullptr;
}

bool HelpFile::take(QByteArray const& written) {
    qsizetype place = 0;
    auto const next = [&](qsizetype length) {
        QByteArray bytes(written.constData() + place, length); // not null, also where it is empty
        place += length;
        return bytes;
    };
    while (place < written.size()) {
        help_reader::Heading heading{};
        if (written.size() - place < qsizetype{sizeof heading})
            return false;
        std::memcpy(&heading, next(sizeof heading).constData(), sizeof heading);
        bool const readable = heading.length != help_reader::unreadable;
        auto const length = readable ? qsizetype{heading.length} : 0;
        if (written.size() - place < qsizetype{heading.nameLength} + length)
            return false;
        auto const name = QString::fromUtf8(next(heading.nameLength)).mid(1); // without its slash
        auto const bytes = next(length);
        if (name.isEmpty() || files_.contains(name.toLower()))
            continue;
        names_.append(name);
        files_.insert(name.toLower(), readable ? bytes : QByteArray());
    }
    return true;
}

QStringList HelpFile::pages() const {
    QStringList pages;
    std::copy_if(names_.begin(), names_.end(), std::back_inserter(pages), isPage);
    return pages;
}

QByteArray HelpFile::read(QString const& name) const {
    return files_.value(name.toLower());
}

QString HelpFile::text(QString const& name) const {
    auto const source = read(name);
    if (source.isNull())
        return {};
    auto decoder = QStringDecoder::decoderForHtml(source);
    return decoder(source);
}

QList<HelpEntry> HelpFile::entriesOf(QString const& ending) const {
    for (auto const& name : names_)
        if (name.endsWith(ending, Qt::CaseInsensitive))
            return parseHelpEntries(QString::fromLatin1(read(name))); // the format's own code page
    return {};
}

QList<HelpEntry> parseHelpEntries(QString const& source) {
    static QRegularExpression const token(
        QStringLiteral(R"re(<(/?)(ul|object)\b|<param\s+name="(name|local)"\s+value="([^"]*)")re"),
        QRegularExpression::CaseInsensitiveOption);
    QList<HelpEntry> entries;
    HelpEntry entry;
    int depth = 0;
    for (auto found = token.globalMatch(source); found.hasNext();) {
        auto const match = found.next();
        bool const closes = !match.capturedView(1).isEmpty();
        if (match.capturedView(2).compare(u"ul", Qt::CaseInsensitive) == 0) {
            depth += closes ? -1 : 1;
        } else if (match.hasCaptured(3)) {
            bool const name = match.capturedView(3).compare(u"name", Qt::CaseInsensitive) == 0;
            (name ? entry.title : entry.page) = plain(match.captured(4));
        } else if (!closes) {
            entry = {{}, {}, std::max(0, depth - 1)};
        } else if (!entry.title.isEmpty()) {
            entries.append(entry);
        }
    }
    return entries;
}

} // namespace desktop
