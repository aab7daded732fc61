#include "draw/foreign_svg.h"

#include <QFile>
#include <QXmlStreamReader>

namespace draw {

namespace {

/// Each costs the renderer some hundred bytes of memory, however few it has in the file.
constexpr int mostElements = 20'000;
constexpr qint64 mostBytes = 1024 * 1024;

/// Without the prefix that names of another vocabulary have.
QStringView plain(QStringView name) {
    return name.mid(name.lastIndexOf(u':') + 1);
}

} // namespace

bool standsAlone(QString const& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > mostBytes)
        return false;
    QXmlStreamReader reader(&file);
    // As the renderer reads: what only one of the two took for an error would get past the other.
    reader.setNamespaceProcessing(false);
    int elements = 0;
    while (!reader.atEnd()) {
        auto const next = reader.readNext();
        if (next == QXmlStreamReader::ProcessingInstruction &&
            reader.processingInstructionTarget() == u"xml-stylesheet")
            return false;
        if (next != QXmlStreamReader::StartElement)
            continue;
        if (++elements > mostElements || plain(reader.qualifiedName()) == u"image")
            return false;
    }
    return !reader.hasError();
}

} // namespace draw
