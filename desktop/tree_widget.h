// Tree views.
#pragma once

#include "desktop/control_widget.h"

#include <QStringList>
#include <QTreeWidget>

namespace desktop {

/// A click or a key only tells the program which node is wanted; the tree shows the one that the
/// program has made the chosen one.
class TreeWidget : public QTreeWidget, public ControlWidget {
  public:
    TreeWidget(platform::TreeView& tree, QWidget& parent, EventGate& gate);

    QWidget& widget() override { return *this; }
    QWidget& mouseWidget() override { return *viewport(); }
    void takeOver() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    platform::TreeView* tree() const { return static_cast<platform::TreeView*>(control()); }
    void sendPick();
    void takeOverNodes();
    void showChosen();

    QStringList nodes_;
};

} // namespace desktop
