// Windows of their own: modal dialogs and the tooltip.
#pragma once

#include "desktop/form_view.h"
#include "desktop/form_widgets.h"

#include <QDialog>

class QScrollArea;

namespace desktop {

/// What the two kinds share: a window of fixed size with real widgets on a surface, which may be
/// the window itself.
class PlainView : public FormView {
  public:
    PlainView(platform::Form& form, QWidget& window, QWidget& surface, EventGate& gate);

    QWidget& windowWidget() override { return window_; }
    void takeOver(platform::Control& control) override;
    void remove(platform::Control const& control) override;
    void settle() override;
    QWidget* focusWidgetOf(platform::Control const& control) override;
    QRect placeOnScreen(platform::Control const& control) override;
    platform::Control* controlAt(QWidget& widget, QPoint point) override;
    void discard() override;

  protected:
    platform::Form* form() const { return form_; }
    EventGate& gate() const { return gate_; }
    /// Pixels of frame and caption in the form's outer size.
    virtual QSize decoration() const = 0;
    virtual QPoint placeFor(QSize inside) const = 0;
    /// Makes room for a surface of that size. Returns the size of the window's inside.
    virtual QSize fit(QSize inside) { return inside; }
    QWidget& surface() { return surface_; }
    void paintSurface();
    /// The colours of the form, by the palette of the desktop.
    void takeOverPalette();

  private:
    platform::Form* form_;
    QWidget& window_;
    QWidget& surface_;
    EventGate& gate_;
    FormWidgets widgets_;
};

/// A modal form, in the middle of the window that it belongs to. Where the screen is smaller than
/// the form it scrolls.
class DialogWindow : public QDialog, public PlainView {
  public:
    DialogWindow(platform::Form& form, QWidget* owner, EventGate& gate);

  protected:
    QSize decoration() const override;
    QPoint placeFor(QSize inside) const override;
    QSize fit(QSize inside) override;
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    QScrollArea* scroll_ = nullptr; // only where it is needed
};

/// A bare box above everything, which never takes the keyboard.
class TooltipWindow : public QWidget, public PlainView {
  public:
    TooltipWindow(platform::Form& form, QWidget* owner, EventGate& gate);

  protected:
    QSize decoration() const override { return {0, 0}; }
    QPoint placeFor(QSize inside) const override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace desktop
