// Help pages for the program: one window, made when first asked for.
#pragma once

#include <QPointer>
#include <QString>

class QWidget;

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
    /// says so. A window that comes up stands beside the one that it explains, if that is not null.
    bool show(QString const& file, QString const& page, QWidget const* explained);

  private:
    QPointer<HelpWindow> window_;
};

} // namespace desktop
