// Help pages for the program: one window, made when first asked for.
#pragma once

#include <QPointer>
#include <QString>

namespace desktop {

class HelpWindow;

class HelpViewer {
  public:
    HelpViewer() = default;
    ~HelpViewer();
    HelpViewer(HelpViewer const&) = delete;
    HelpViewer& operator=(HelpViewer const&) = delete;

    /// Shows a page of a help file in the one window, in front of the others. False for a file that
    /// cannot be read, which leaves the window as it is. Of a page that is not there the window
    /// says so.
    bool show(QString const& file, QString const& page);

  private:
    QPointer<HelpWindow> window_;
};

} // namespace desktop
