#include "desktop/tree_widget.h"

#include "desktop/text.h"
#include "platform/input.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace desktop {

TreeWidget::TreeWidget(platform::TreeView& tree, QWidget& parent, EventGate& gate)
    : QTreeWidget(&parent), ControlWidget(tree, gate) {
    setColumnCount(1);
    header()->hide();
    setRootIsDecorated(false); // no node has others below it
    setUniformRowHeights(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QTreeWidget::itemClicked, this, [this] { sendPick(); });
}

void TreeWidget::sendPick() {
    int const wanted = indexOfTopLevelItem(currentItem());
    if (tree() && wanted >= 0)
        gate().run([&] { platform::input::pick(*tree(), wanted); });
}

void TreeWidget::takeOver() {
    takeOverLook(*tree());
    takeOverNodes();
    showChosen();
}

void TreeWidget::takeOverNodes() {
    QStringList wanted;
    for (int i = 0; i < tree()->ListCount(); ++i)
        wanted.append(toQt(tree()->List(i)));
    if (wanted == nodes_)
        return;
    nodes_ = wanted;
    clear();
    constexpr int room = 6; // pixels more than the text is high
    for (auto const& text : nodes_) {
        auto* const item = new QTreeWidgetItem(this, {text});
        item->setSizeHint(0, {0, fontMetrics().height() + room});
        item->setExpanded(true);
    }
}

void TreeWidget::showChosen() {
    auto* const chosen = topLevelItem(tree()->ListIndex);
    if (currentItem() != chosen)
        setCurrentItem(chosen);
}

void TreeWidget::mouseReleaseEvent(QMouseEvent* event) {
    QTreeWidget::mouseReleaseEvent(event);
    if (tree())
        showChosen(); // a press that was dragged off its node has chosen nothing
}

void TreeWidget::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        event->ignore(); // the dialog's keys
        return;
    default:
        break;
    }
    auto const* const before = currentItem();
    QTreeWidget::keyPressEvent(event);
    if (currentItem() != before)
        sendPick();
}

} // namespace desktop
