// The page of the help window: shows what a help file holds, links and pictures included.
#pragma once

#include <QTextBrowser>

namespace desktop {

class HelpFile;

class HelpBrowser : public QTextBrowser {
  public:
    explicit HelpBrowser(QWidget* parent);

    /// The file that pages come from; it must outlive its use here.
    void setFile(HelpFile const& file) { file_ = &file; }
    /// Shows a page, "velho.htm" or "velho.htm#fontit". One that is not there is said to be
    /// missing.
    void showPage(QString const& page);
    /// The page that stands, without a place in it.
    QString page() const;
    /// The same with its place.
    QString pageAndPlace() const { return pageOf(source()); }
    /// The page and place that an address of this browser means.
    static QString pageOf(QUrl const& address);

    /// Marks every place where one of the words stands, and goes to the first.
    void mark(QStringList const& words);
    /// Goes to the next marked place, behind the last to the first. False where nothing is marked.
    bool goToNextMark();

    /// One step larger (1) or smaller (-1), within bounds; 0 for the ordinary size.
    void zoom(int step);

    /// Takes over colours and font of the application, which have changed.
    void dressAnew();

    QVariant loadResource(int type, QUrl const& name) override;

  protected:
    void doSetSource(QUrl const& url, QTextDocument::ResourceType type) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void takeOverFont();
    /// Pictures are as wide as they are, or as the page.
    void fitPictures();
    QString missingPage(QString const& name) const;

    HelpFile const* file_ = nullptr;
    int zoomed_ = 0;
};

} // namespace desktop
