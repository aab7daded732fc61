#include "desktop/help_file.h"

#include "desktop/help_soundness.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTextDocumentFragment>

#include <chm_lib.h>

#include <algorithm>

namespace desktop {

namespace {

/// More than any page or picture has; a damaged file may claim any length.
constexpr LONGUINT64 largestObject = 16 * 1024 * 1024;

QByteArray readObject(chmFile* file, char const* path) {
    chmUnitInfo unit;
    if (chm_resolve_object(file, path, &unit) != CHM_RESOLVE_SUCCESS || unit.length > largestObject)
        return {};
    QByteArray content(static_cast<qsizetype>(unit.length), '\0');
    auto const length = static_cast<LONGINT64>(unit.length);
    auto* const bytes = reinterpret_cast<unsigned char*>(content.data());
    if (chm_retrieve_object(file, &unit, bytes, 0, length) != length)
        return {};
    return content;
}

int collectName(chmFile*, chmUnitInfo* unit, void* names) {
    auto const name = QString::fromUtf8(unit->path);
    if (!name.endsWith(u'/'))
        static_cast<QStringList*>(names)->append(name.mid(1));
    return CHM_ENUMERATOR_CONTINUE;
}

bool isPage(QString const& name) {
    return name.endsWith(QLatin1String(".htm"), Qt::CaseInsensitive) ||
           name.endsWith(QLatin1String(".html"), Qt::CaseInsensitive);
}

QString plain(QString const& markup) {
    return markup.contains(u'&') ? QTextDocumentFragment::fromHtml(markup).toPlainText() : markup;
}

} // namespace

void HelpFile::Close::operator()(chmFile* file) const {
    chm_close(file);
}

HelpFile::HelpFile(std::unique_ptr<chmFile, Close> file) : file_(std::move(file)) {
    chm_enumerate(file_.get(), CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES, collectName, &names_);
}

std::unique_ptr<HelpFile> HelpFile::open(QString const& path) {
    if (!hasSoundCompression(path))
        return nullptr;
    std::unique_ptr<chmFile, Close> file(chm_open(QFile::encodeName(path).constData()));
    if (!file || !hasSoundBlocks(readObject(file.get(), helpBlockTable)))
        return nullptr;
    std::unique_ptr<HelpFile> help(new HelpFile(std::move(file)));
    auto const pages = help->pages();
    bool const readable = std::any_of(pages.begin(), pages.end(),
                                      [&](auto const& page) { return !help->read(page).isNull(); });
    return readable ? std::move(help) : nullptr;
}

QStringList HelpFile::pages() const {
    QStringList pages;
    std::copy_if(names_.begin(), names_.end(), std::back_inserter(pages), isPage);
    return pages;
}

QByteArray HelpFile::read(QString const& name) const {
    auto const path = ("/" + name).toUtf8();
    return path.size() > CHM_MAX_PATHLEN ? QByteArray() : readObject(file_.get(), path.constData());
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
