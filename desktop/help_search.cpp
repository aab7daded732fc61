#include "desktop/help_search.h"

#include "desktop/help_file.h"

#include <QTextDocument>

#include <algorithm>

namespace desktop {

namespace {

/// How well a page serves the words; 0 when one of them is missing.
qsizetype rank(QString const& title, QString const& text, QStringList const& words) {
    constexpr qsizetype worthOfTitle = 1000;
    qsizetype sum = 0;
    for (auto const& word : words) {
        auto const places = text.count(word, Qt::CaseInsensitive);
        bool const inTitle = title.contains(word, Qt::CaseInsensitive);
        if (places == 0 && !inTitle)
            return 0;
        sum += places + (inTitle ? worthOfTitle : 0);
    }
    return sum;
}

QString excerptAround(QString const& text, QString const& word) {
    constexpr qsizetype before = 30;
    constexpr qsizetype length = 110;
    auto const place = std::max<qsizetype>(0, text.indexOf(word, 0, Qt::CaseInsensitive));
    // Whole words only, at both ends.
    auto const blank = place > before ? text.indexOf(u' ', place - before) : -1;
    auto const start = place <= before ? 0 : (blank < 0 || blank > place ? place : blank + 1);
    auto excerpt = text.mid(start, length);
    bool const goesOn = start + length < text.size();
    if (goesOn && excerpt.lastIndexOf(u' ') > length / 2)
        excerpt.truncate(excerpt.lastIndexOf(u' '));
    return (start > 0 ? QStringLiteral("… ") : QString()) + excerpt +
           (goesOn ? QStringLiteral(" …") : QString());
}

} // namespace

HelpSearch::HelpSearch(HelpFile const& file) {
    for (auto const& name : file.pages()) {
        QTextDocument document;
        document.setHtml(file.text(name));
        auto text = document.toPlainText();
        text.remove(QChar::ObjectReplacementCharacter); // where pictures stand
        pages_.append(
            {name, document.metaInformation(QTextDocument::DocumentTitle), text.simplified()});
    }
}

QList<HelpHit> HelpSearch::find(QStringList const& words) const {
    if (words.isEmpty())
        return {};
    QList<std::pair<qsizetype, Page const*>> ranked;
    for (auto const& page : pages_)
        if (auto const worth = rank(page.title, page.text, words))
            ranked.append({worth, &page});
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](auto const& one, auto const& other) { return one.first > other.first; });
    QList<HelpHit> hits;
    for (auto const& [worth, page] : ranked)
        hits.append({page->name, page->title, excerptAround(page->text, words.front())});
    return hits;
}

QStringList searchWords(QString const& typed) {
    return typed.simplified().split(u' ', Qt::SkipEmptyParts);
}

} // namespace desktop
