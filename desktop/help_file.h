// A compiled help file: pages, pictures and contents, as they were when it was opened.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

namespace desktop {

/// One line of the contents or of the index. Level 0 is outermost; a heading may have no page.
struct HelpEntry {
    QString title;
    QString page; ///< name of a page, with "#place" behind it where the line means a place in it
    int level = 0;
};

class HelpFile {
  public:
    /// Null for a file that is missing, no help file, or damaged so that no page can be read; after
    /// some seconds at the latest, whatever stands in it.
    static std::unique_ptr<HelpFile> open(QString const& path);

    /// Names of everything in it, "velho.htm", "pictures/kortti.png".
    QStringList const& names() const { return names_; }
    /// Names of the pages alone.
    QStringList pages() const;
    /// Null for a name that is not there or cannot be read. Upper and lower case are the same.
    QByteArray read(QString const& name) const;
    /// A page's source, by the code page that it declares.
    QString text(QString const& name) const;

    QList<HelpEntry> contents() const { return entriesOf(QStringLiteral(".hhc")); }
    QList<HelpEntry> index() const { return entriesOf(QStringLiteral(".hhk")); }

  private:
    /// Takes what the reader has written; false where it makes no sense.
    bool take(QByteArray const& written);
    QList<HelpEntry> entriesOf(QString const& ending) const;

    QStringList names_;
    QHash<QString, QByteArray> files_; ///< by the name in small letters; null where unreadable
};

/// The lines of a contents or index file.
QList<HelpEntry> parseHelpEntries(QString const& source);

} // namespace desktop
