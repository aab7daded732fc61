#include "desktop/help_browser.h"

#include "desktop/colours.h"
#include "desktop/help_file.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFontInfo>
#include <QPixmap>
#include <QRegularExpression>
#include <QTextCursor>
#include <QUrl>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

/// Pages are addressed as "help:/velho.htm": a link in one then never means a file on the disk.
QUrl addressOf(QString const& page) {
    QUrl address;
    address.setScheme(QStringLiteral("help"));
    address.setPath(u'/' + page.section(u'#', 0, 0));
    if (page.contains(u'#'))
        address.setFragment(page.section(u'#', 1));
    return address;
}

/// A style sheet whose colours have been chosen for light paper.
QString onThisDesktop(QString const& sheet) {
    static QRegularExpression const colour(QStringLiteral("#[0-9a-fA-F]{6}\\b"));
    QString fit;
    qsizetype end = 0;
    for (auto found = colour.globalMatch(sheet); found.hasNext();) {
        auto const match = found.next();
        QColor const given(match.captured());
        auto const number = platform::RGB(given.red(), given.green(), given.blue());
        fit += QStringView(sheet).mid(end, match.capturedStart() - end);
        fit += toColour(number, Ground::window).name();
        end = match.capturedEnd();
    }
    return fit + sheet.mid(end);
}

QString nameOf(QUrl const& address) {
    auto path = address.path();
    while (path.startsWith(u'/'))
        path.remove(0, 1);
    return path;
}

} // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent) {
    setFrameShape(QFrame::NoFrame);
    takeOverFont();
    constexpr int margin = 14; // pixels
    document()->setDocumentMargin(margin);
}

/// The application's face, at a size that can grow: by points.
void HelpBrowser::takeOverFont() {
    auto face = QApplication::font();
    face.setPointSizeF(QFontInfo(face).pointSizeF());
    setFont(face);
}

void HelpBrowser::dressAnew() {
    takeOverFont();
    int const zoomed = std::exchange(zoomed_, 0);
    zoom(zoomed);
    reload();
    fitPictures();
}

void HelpBrowser::showPage(QString const& page) {
    setSource(addressOf(page));
}

QString HelpBrowser::page() const {
    return nameOf(source());
}

QString HelpBrowser::pageOf(QUrl const& address) {
    return address.hasFragment() ? nameOf(address) + u'#' + address.fragment() : nameOf(address);
}

void HelpBrowser::mark(QStringList const& words) {
    QList<ExtraSelection> marks;
    for (auto const& word : words)
        for (auto found = document()->find(word); !found.isNull();
             found = document()->find(word, found)) {
            ExtraSelection here;
            here.cursor = found;
            here.format.setBackground(QColor(255, 226, 120));
            here.format.setForeground(Qt::black);
            marks.append(here);
        }
    setExtraSelections(marks);
    moveCursor(QTextCursor::Start);
    goToNextMark();
}

bool HelpBrowser::goToNextMark() {
    auto const marks = extraSelections();
    int const here = textCursor().position();
    // What lies behind the caret comes first, then what lies before it.
    auto const rank = [here](ExtraSelection const& one) {
        int const at = one.cursor.position();
        return std::pair(at <= here, at);
    };
    auto const next =
        std::min_element(marks.begin(), marks.end(), [&](auto const& one, auto const& other) {
            return rank(one) < rank(other);
        });
    if (next == marks.end())
        return false;
    auto cursor = next->cursor;
    cursor.clearSelection();
    setTextCursor(cursor);
    ensureCursorVisible();
    return true;
}

void HelpBrowser::zoom(int step) {
    constexpr int furthest = 10;
    int const wanted = step == 0 ? 0 : std::clamp(zoomed_ + step, -2, furthest);
    if (wanted > zoomed_)
        zoomIn(wanted - zoomed_);
    else if (wanted < zoomed_)
        zoomOut(zoomed_ - wanted);
    zoomed_ = wanted;
}

void HelpBrowser::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier))
        return QTextBrowser::wheelEvent(event);
    if (event->angleDelta().y() != 0)
        zoom(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
}

QVariant HelpBrowser::loadResource(int type, QUrl const& name) {
    if (!file_)
        return {};
    auto const wanted = nameOf(name);
    if (type == QTextDocument::StyleSheetResource)
        return onThisDesktop(file_->text(wanted));
    if (type != QTextDocument::HtmlResource)
        return file_->read(wanted);
    auto const page = file_->text(wanted);
    return page.isNull() ? missingPage(wanted) : page;
}

void HelpBrowser::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        fitPictures();
}

void HelpBrowser::fitPictures() {
    double const room = viewport()->width() - 2 * document()->documentMargin();
    auto const next = [this](QTextCursor const& from) {
        return document()->find(QString(QChar::ObjectReplacementCharacter), from);
    };
    for (auto cursor = next(QTextCursor(document())); !cursor.isNull(); cursor = next(cursor)) {
        auto picture = cursor.charFormat().toImageFormat();
        if (!picture.isValid())
            continue;
        auto const loaded = document()->resource(QTextDocument::ImageResource, picture.name());
        // The document keeps what it has shown as a pixmap; before that it has the file's bytes.
        auto pixmap = loaded.value<QPixmap>();
        if (pixmap.isNull())
            pixmap.loadFromData(loaded.toByteArray());
        if (pixmap.isNull())
            continue;
        picture.setWidth(std::min<double>(pixmap.width(), room));
        cursor.setCharFormat(picture);
    }
}

QString HelpBrowser::missingPage(QString const& name) const {
    auto const contents = file_->contents();
    auto const first = contents.isEmpty() ? file_->pages().value(0) : contents.front().page;
    return QStringLiteral("<html><head><title>Sivua ei löydy</title></head><body>"
                          "<h1>Sivua ei löydy</h1><p>Ohjeessa ei ole sivua ”%1”.</p>"
                          "<p><a href=\"%2\">Siirry ohjeen alkuun</a></p></body></html>")
        .arg(name.toHtmlEscaped(), first.toHtmlEscaped());
}

/// What lies outside the help file belongs to the browser or the mail program.
void HelpBrowser::doSetSource(QUrl const& url, QTextDocument::ResourceType type) {
    auto const scheme = url.scheme();
    if (!scheme.isEmpty() && scheme != QLatin1String("help")) {
        QDesktopServices::openUrl(url);
        return;
    }
    setExtraSelections({});
    QTextBrowser::doSetSource(url, type);
    fitPictures();
}

} // namespace desktop
