// MainWindow: the main form, with its menus, its bars, and the area for child windows.
#pragma once

#include "desktop/bar_overflow.h"
#include "desktop/form_view.h"
#include "desktop/form_widgets.h"
#include "desktop/menu_bar.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QTimer>

namespace desktop {

/// The form's outer size counts a frame and a caption of the usual measures, whatever the window
/// manager puts around it: so the size stays the same from one session to the next.
class MainWindow : public QMainWindow, public FormView {
  public:
    MainWindow(platform::Form& form, EventGate& gate);

    QMdiArea& childArea() { return *area_; }

    QWidget& windowWidget() override { return *this; }
    void takeOver(platform::Control& control) override;
    void remove(platform::Control const& control) override;
    void settle() override;
    QWidget* focusWidgetOf(platform::Control const& control) override;
    QRect placeOnScreen(platform::Control const& control) override;
    platform::Control* controlAt(QWidget& widget, QPoint point) override;
    void discard() override;

    /// The outer place and size that the window has when it is neither maximised nor minimised.
    QRect normalBounds() const;

    /// Room inside frame, caption and menu bar, in pixels, when the outer size is this.
    static QSize innerSize(QSize outer);

  protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    void takeOverForm();
    void takeOverState();
    void takeOverGeometry();
    void layOut();
    /// Gives every bar that needs one its way to the buttons that do not fit.
    void fitBars();
    /// Tells the program where the window stands and what outer size it has.
    void sendGeometry();
    void sendState();
    /// Gives dropped files to the program, when the gate takes them.
    void sendFiles(QStringList const& files);
    /// Does so in a moment, when the gate takes it.
    void sendLater(void (MainWindow::*send)());
    QRect formGeometry() const;
    QRect seenGeometry() const;
    bool isNormal() const { return !isMinimized() && !isMaximized(); }

    platform::Form* form_;
    EventGate& gate_;
    QWidget* surface_;
    QMdiArea* area_;
    FormMenus menus_;
    FormWidgets widgets_;
    QHash<platform::Control const*, BarOverflow*> overflows_;
    bool layoutIsOld_ = true;
    bool barsAreOld_ = true;
    QRect known_;             // what window and form have last agreed on
    QRect normal_;            // the last place and size that stood for a moment in the normal state
    bool isRestored_ = false; // a moment ago; what the window has may still be the large size
    QTimer settled_;
};

} // namespace desktop
