// Search over the text of all pages of a help file.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace desktop {

class HelpFile;

struct HelpHit {
    QString page;
    QString title;
    QString excerpt; ///< some words around the first place
};

/// The pages' text without its markup.
class HelpSearch {
  public:
    explicit HelpSearch(HelpFile const& file);

    /// Pages in which every word is found, anywhere inside a longer one too, as inflected words
    /// are. Those with a word in their title come first, then those with the most places.
    QList<HelpHit> find(QStringList const& words) const;

  private:
    struct Page {
        QString name;
        QString title;
        QString text;
    };
    QList<Page> pages_;
};

/// What a user typed, as words.
QStringList searchWords(QString const& typed);

} // namespace desktop
