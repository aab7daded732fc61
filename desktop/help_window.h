// The help window: a page, and beside it contents, index and search.
#pragma once

#include "desktop/help_file.h"

#include <QSplitter>
#include <QWidget>

#include <memory>

class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QTabWidget;
class QTreeWidget;

namespace desktop {

class HelpBrowser;
class HelpSearch;

/// Goes when it is closed, and remembers nothing.
class HelpWindow : public QWidget {
  public:
    explicit HelpWindow(std::unique_ptr<HelpFile> file);
    ~HelpWindow() override;

    /// Another file, or the same as it stands by now.
    void setFile(std::unique_ptr<HelpFile> file);
    void showPage(QString const& page);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

  private:
    QWidget* makeBar();
    QWidget* makeContents();
    QWidget* makeIndex();
    QWidget* makeSearch();
    int lineHeight() const;
    void fillContents();
    void fillIndex();
    void narrowIndex(QString const& typed);
    QListWidgetItem* firstShown() const;
    /// Shows the page of the index's current line, or of its first one.
    void openFromIndex();
    void goToSearch();
    void search();
    /// What the contents and the title say follows the page.
    void followPage(QString const& page);
    void selectInContents(QString const& page);

    std::unique_ptr<HelpFile> file_;
    std::unique_ptr<HelpSearch> search_; ///< null before the first search
    QSplitter* split_;
    HelpBrowser* browser_;
    QTabWidget* tabs_;
    QTreeWidget* contents_;
    QListWidget* index_;
    QLineEdit* searched_;
    QListWidget* hits_;
};

} // namespace desktop
