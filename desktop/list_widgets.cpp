#include "desktop/list_widgets.h"

#include "desktop/text.h"
#include "platform/input.h"

#include <QKeyEvent>
#include <QWheelEvent>

namespace desktop {

bool ListItems::takeOver(platform::ListControl const& list) {
    QStringList wanted;
    wanted.reserve(list.ListCount());
    for (int i = 0; i < list.ListCount(); ++i)
        wanted.append(toQt(list.List(i)));
    if (wanted == items_)
        return false;
    beginResetModel();
    items_ = std::move(wanted);
    endResetModel();
    return true;
}

int ListItems::rowCount(QModelIndex const& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(items_.size());
}

QVariant ListItems::data(QModelIndex const& index, int role) const {
    if (!index.isValid() || index.row() >= items_.size() || role != Qt::DisplayRole)
        return {};
    return items_.at(index.row());
}

ComboBoxWidget::ComboBoxWidget(platform::ComboBox& box, QWidget& parent, EventGate& gate)
    : QComboBox(&parent), ControlWidget(box, gate) {
    constexpr int most = 24;
    setMaxVisibleItems(most);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setModel(&items_);
    connect(this, &QComboBox::activated, this, [this](int index) {
        if (auto* const list = static_cast<platform::ComboBox*>(control()))
            this->gate().run([&] { platform::input::pick(*list, index); });
    });
}

void ComboBoxWidget::takeOver() {
    auto const& box = static_cast<platform::ComboBox const&>(*control());
    takeOverLook(box);
    items_.takeOver(box);
    setCurrentIndex(box.ListIndex);
}

void ComboBoxWidget::wheelEvent(QWheelEvent* event) {
    // Rolling over a box on the way elsewhere must not change it.
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

ListBoxWidget::ListBoxWidget(platform::ListBox& box, QWidget& parent, EventGate& gate)
    : QListView(&parent), ControlWidget(box, gate) {
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(
        Qt::ScrollBarAlwaysOff); // it would cover an item; texts end in "…"
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setModel(&items_);
    connect(this, &QListView::clicked, this, [this](QModelIndex const& index) { sendPick(index); });
    connect(this, &QListView::doubleClicked, this, [this] {
        if (this->box())
            this->gate().run([&] { platform::input::double_click(*this->box()); });
    });
}

void ListBoxWidget::sendPick(QModelIndex const& index) {
    if (box() && index.isValid())
        gate().run([&] { platform::input::pick(*box(), index.row()); });
}

void ListBoxWidget::takeOver() {
    takeOverLook(*box());
    items_.takeOver(*box());
    showChosen();
}

void ListBoxWidget::showChosen() {
    auto const chosen = items_.index(box()->ListIndex);
    if (currentIndex() == chosen)
        return;
    setCurrentIndex(chosen);
    if (chosen.isValid())
        scrollTo(chosen);
}

void ListBoxWidget::mouseReleaseEvent(QMouseEvent* event) {
    QListView::mouseReleaseEvent(event);
    if (box())
        showChosen(); // a press that was dragged off its item has chosen nothing
}

void ListBoxWidget::keyPressEvent(QKeyEvent* event) {
    if (!box())
        return;
    auto const press = [&](platform::Key key) {
        gate().run([&] { platform::input::press(*box(), key); });
    };
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return press(platform::Key::enter);
    case Qt::Key_Escape:
        return press(platform::Key::escape);
    default:
        break;
    }
    auto const before = currentIndex();
    QListView::keyPressEvent(event);
    if (currentIndex() != before)
        sendPick(currentIndex());
}

} // namespace desktop
