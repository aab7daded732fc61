#include "desktop/help_window.h"

#include "desktop/help_browser.h"
#include "desktop/help_search.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace desktop {

namespace {

constexpr int pageRole = Qt::UserRole;

QVBoxLayout* tightColumn(QWidget& widget) {
    auto* const layout = new QVBoxLayout(&widget);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(6);
    return layout;
}

QToolButton* addButton(QHBoxLayout& bar, QString const& text, QString const& tip,
                       QString const& name) {
    auto* const button = new QToolButton;
    button->setText(text);
    button->setToolTip(tip);
    button->setObjectName(name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setMinimumSize(26, 26);
    bar.addWidget(button);
    return button;
}

/// A list whose lines lead to pages, by a click as by a key.
template <class View>
void leadTo(View& view, std::function<void()> const& go) {
    QObject::connect(&view, &View::itemClicked, &view, go);
    QObject::connect(&view, &View::itemActivated, &view, go);
}

} // namespace

HelpWindow::HelpWindow(std::unique_ptr<HelpFile> file)
    : split_(new QSplitter), browser_(new HelpBrowser(this)), tabs_(new QTabWidget) {
    setObjectName(QStringLiteral("help"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_QuitOnClose, false);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeBar());
    layout->addWidget(split_, 1);
    tabs_->setDocumentMode(true);
    tabs_->setAccessibleName(QStringLiteral("Ohjeen osat"));
    tabs_->tabBar()->setAccessibleName(QStringLiteral("Ohjeen osat"));
    tabs_->addTab(makeContents(), QStringLiteral("&Sisällys"));
    tabs_->addTab(makeIndex(), QStringLiteral("&Hakemisto"));
    tabs_->addTab(makeSearch(), QStringLiteral("H&aku"));
    split_->addWidget(tabs_);
    split_->addWidget(browser_);
    split_->setChildrenCollapsible(false);
    split_->setSizes({240, 780});
    split_->setStretchFactor(1, 1);
    resize(1020, 720);
    connect(browser_, &QTextBrowser::sourceChanged, this,
            [this](QUrl const& address) { followPage(HelpBrowser::pageOf(address)); });
    setFile(std::move(file));
}

HelpWindow::~HelpWindow() = default;

void HelpWindow::setFile(std::unique_ptr<HelpFile> file) {
    file_ = std::move(file);
    browser_->setFile(*file_);
    search_.reset();
    fillContents();
    fillIndex();
}

void HelpWindow::showPage(QString const& page) {
    browser_->showPage(page);
}

/// Pixels, of contents and index.
int HelpWindow::lineHeight() const {
    constexpr int least = 20;
    constexpr int around = 4;
    return std::max(least, fontMetrics().height() + around);
}

QWidget* HelpWindow::makeBar() {
    auto* const bar = new QWidget;
    auto* const layout = new QHBoxLayout(bar);
    layout->setContentsMargins(6, 4, 6, 4);
    layout->setSpacing(4);
    auto* const back =
        addButton(*layout, QStringLiteral("‹ Edellinen"),
                  QStringLiteral("Edellinen sivu (Alt+nuoli vasemmalle)"), QStringLiteral("back"));
    auto* const forward =
        addButton(*layout, QStringLiteral("Seuraava ›"),
                  QStringLiteral("Seuraava sivu (Alt+nuoli oikealle)"), QStringLiteral("forward"));
    layout->addStretch(1);
    auto* const smaller =
        addButton(*layout, QStringLiteral("A−"), QStringLiteral("Pienempi teksti (Ctrl+miinus)"),
                  QStringLiteral("smaller"));
    auto* const ordinary =
        addButton(*layout, QStringLiteral("A"), QStringLiteral("Tavallinen tekstikoko (Ctrl+0)"),
                  QStringLiteral("ordinary"));
    auto* const larger =
        addButton(*layout, QStringLiteral("A+"), QStringLiteral("Suurempi teksti (Ctrl+plus)"),
                  QStringLiteral("larger"));
    for (auto* const button : {back, forward})
        button->setEnabled(false);
    // Wherever in the window the keyboard is: the page knows these keys only for itself.
    new QShortcut(Qt::ALT | Qt::Key_Left, this, browser_, &QTextBrowser::backward);
    new QShortcut(Qt::ALT | Qt::Key_Right, this, browser_, &QTextBrowser::forward);
    new QShortcut(Qt::CTRL | Qt::Key_F, this, [this] { goToSearch(); });
    new QShortcut(Qt::Key_F3, this, [this] {
        if (!browser_->goToNextMark())
            goToSearch();
    });
    connect(back, &QToolButton::clicked, browser_, &QTextBrowser::backward);
    connect(forward, &QToolButton::clicked, browser_, &QTextBrowser::forward);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    connect(smaller, &QToolButton::clicked, this, [this] { browser_->zoom(-1); });
    connect(ordinary, &QToolButton::clicked, this, [this] { browser_->zoom(0); });
    connect(larger, &QToolButton::clicked, this, [this] { browser_->zoom(1); });
    return bar;
}

QWidget* HelpWindow::makeContents() {
    contents_ = new QTreeWidget;
    contents_->setObjectName(QStringLiteral("contents"));
    contents_->setAccessibleName(QStringLiteral("Sisällys"));
    contents_->setHeaderHidden(true);
    contents_->setFrameShape(QFrame::NoFrame);
    contents_->setUniformRowHeights(true);
    leadTo(*contents_, [this] {
        auto const* const line = contents_->currentItem();
        if (auto const page = line ? line->data(0, pageRole).toString() : QString();
            !page.isEmpty())
            showPage(page);
    });
    return contents_;
}

QWidget* HelpWindow::makeIndex() {
    auto* const side = new QWidget;
    auto* const layout = tightColumn(*side);
    auto* const typed = new QLineEdit;
    typed->setObjectName(QStringLiteral("indexWord"));
    typed->setPlaceholderText(QStringLiteral("Kirjoita hakusanan alku"));
    typed->setAccessibleName(QStringLiteral("Hakusana"));
    index_ = new QListWidget;
    index_->setAccessibleName(QStringLiteral("Hakemisto"));
    index_->setObjectName(QStringLiteral("index"));
    layout->addWidget(typed);
    layout->addWidget(index_, 1);
    connect(typed, &QLineEdit::textChanged, this, [this](QString const& now) { narrowIndex(now); });
    connect(typed, &QLineEdit::returnPressed, this, [this] { openFromIndex(); });
    leadTo(*index_, [this] { openFromIndex(); });
    return side;
}

QWidget* HelpWindow::makeSearch() {
    auto* const side = new QWidget;
    auto* const layout = tightColumn(*side);
    searched_ = new QLineEdit;
    searched_->setObjectName(QStringLiteral("searched"));
    searched_->setPlaceholderText(QStringLiteral("Kirjoita etsittävät sanat"));
    searched_->setAccessibleName(QStringLiteral("Etsittävät sanat"));
    searched_->setClearButtonEnabled(true);
    hits_ = new QListWidget;
    hits_->setAccessibleName(QStringLiteral("Löydetyt sivut"));
    hits_->setObjectName(QStringLiteral("hits"));
    hits_->setWordWrap(true);
    hits_->setAlternatingRowColors(true);
    hits_->setSpacing(2);
    layout->addWidget(searched_);
    layout->addWidget(hits_, 1);
    connect(searched_, &QLineEdit::textChanged, this, [this] { search(); });
    connect(searched_, &QLineEdit::returnPressed, this, [this] {
        if (auto* const first = hits_->item(0)) {
            hits_->setCurrentItem(first);
            Q_EMIT hits_->itemActivated(first);
        }
    });
    leadTo(*hits_, [this] {
        auto const* const line = hits_->currentItem();
        auto const page = line ? line->data(pageRole).toString() : QString();
        if (page.isEmpty())
            return;
        showPage(page);
        browser_->mark(searchWords(searched_->text()));
    });
    return side;
}

void HelpWindow::fillContents() {
    contents_->clear();
    QList<QTreeWidgetItem*> above;
    for (auto const& entry : file_->contents()) {
        above.resize(std::min<qsizetype>(entry.level, above.size()));
        auto* const line = new QTreeWidgetItem({entry.title});
        line->setData(0, pageRole, entry.page);
        line->setSizeHint(0, {0, lineHeight()});
        if (above.isEmpty())
            contents_->addTopLevelItem(line);
        else
            above.back()->addChild(line);
        above.append(line);
    }
    for (int i = 0; i < contents_->topLevelItemCount(); ++i)
        contents_->topLevelItem(i)->setExpanded(true);
}

void HelpWindow::fillIndex() {
    index_->clear();
    for (auto const& entry : file_->index()) {
        auto* const line = new QListWidgetItem(entry.title, index_);
        line->setData(pageRole, entry.page);
        line->setSizeHint({0, lineHeight()});
    }
}

void HelpWindow::narrowIndex(QString const& typed) {
    auto const start = typed.simplified();
    for (int i = 0; i < index_->count(); ++i) {
        auto* const line = index_->item(i);
        line->setHidden(!line->text().startsWith(start, Qt::CaseInsensitive));
    }
    index_->setCurrentItem(start.isEmpty() ? nullptr : firstShown());
}

/// The first line of the index that the typed word leaves; null when it leaves none.
QListWidgetItem* HelpWindow::firstShown() const {
    for (int i = 0; i < index_->count(); ++i)
        if (!index_->item(i)->isHidden())
            return index_->item(i);
    return nullptr;
}

void HelpWindow::openFromIndex() {
    auto* const current = index_->currentItem();
    // The keyboard makes a line the current one where it comes into the list, though it be hidden.
    if (auto* const line = current && !current->isHidden() ? current : firstShown()) {
        index_->setCurrentItem(line);
        showPage(line->data(pageRole).toString());
    }
}

void HelpWindow::search() {
    if (!search_)
        search_ = std::make_unique<HelpSearch>(*file_);
    hits_->clear();
    auto const words = searchWords(searched_->text());
    for (auto const& hit : search_->find(words)) {
        auto* const line = new QListWidgetItem(hit.title + u'\n' + hit.excerpt, hits_);
        line->setData(pageRole, hit.page);
    }
    if (hits_->count() == 0 && !words.isEmpty())
        (new QListWidgetItem(QStringLiteral("Sanoja ei löydy ohjeesta."), hits_))
            ->setFlags(Qt::NoItemFlags);
}

void HelpWindow::followPage(QString const& page) {
    auto const title = browser_->documentTitle();
    auto const whole = QStringLiteral("Kehystimen ohje"); // the first page's title too
    browser_->setAccessibleName(title.isEmpty() ? whole : title);
    setWindowTitle(title.isEmpty() || title == whole ? whole
                                                     : title + QStringLiteral(" – ") + whole);
    selectInContents(page);
}

/// The line of the very place if there is one, or else of its page.
void HelpWindow::selectInContents(QString const& page) {
    QTreeWidgetItem* best = nullptr;
    for (QTreeWidgetItemIterator line(contents_); *line; ++line) {
        auto const leadsTo = (*line)->data(0, pageRole).toString();
        if (leadsTo.compare(page, Qt::CaseInsensitive) == 0) {
            best = *line;
            break;
        }
        if (!best && leadsTo.compare(page.section(u'#', 0, 0), Qt::CaseInsensitive) == 0)
            best = *line;
    }
    contents_->setCurrentItem(best);
}

void HelpWindow::goToSearch() {
    tabs_->setCurrentIndex(2);
    searched_->setFocus(Qt::ShortcutFocusReason);
    searched_->selectAll();
}

/// The page has taken its colours and its size from the desktop that was.
bool HelpWindow::event(QEvent* event) {
    bool const done = QWidget::event(event);
    bool const dressed = event->type() == QEvent::ApplicationPaletteChange ||
                         event->type() == QEvent::ApplicationFontChange;
    if (!dressed || !file_)
        return done;
    fillContents();
    fillIndex();
    browser_->dressAnew();
    selectInContents(browser_->page());
    return done;
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    bool const control = event->modifiers() & Qt::ControlModifier;
    switch (event->key()) {
    case Qt::Key_Escape:
        close();
        return;
    case Qt::Key_Plus:
    case Qt::Key_Minus:
    case Qt::Key_0:
        if (control)
            browser_->zoom(event->key() == Qt::Key_0 ? 0 : event->key() == Qt::Key_Plus ? 1 : -1);
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace desktop
