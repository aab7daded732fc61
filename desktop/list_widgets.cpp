#include "desktop/list_widgets.h"

#include "desktop/spoken_combo.h"
#include "desktop/text.h"
#include "platform/input.h"

#include <QKeyEvent>
#include <QWheelEvent>

#include <algorithm>

namespace desktop {

namespace {

bool addsByKey(QKeyEvent const& event) {
    bool const isKey = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter ||
                       event.key() == Qt::Key_Space;
    return isKey && (event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
}

} // namespace

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

QModelIndexList ListItems::match(QModelIndex const& start, int role, QVariant const& value,
                                 int hits, Qt::MatchFlags flags) const {
    if (role != Qt::DisplayRole || hits != 1 || !(flags & Qt::MatchStartsWith))
        return QAbstractListModel::match(start, role, value, hits, flags);
    auto const wanted = value.toString();
    for (qsizetype i = 0; i < items_.size(); ++i) {
        auto const row = (start.row() + i) % items_.size();
        auto const& item = items_.at(row);
        auto const first =
            std::find_if(item.begin(), item.end(), [](QChar c) { return c != u' '; });
        if (QStringView(first, item.end()).startsWith(wanted, Qt::CaseInsensitive))
            return {index(static_cast<int>(row))};
    }
    return {};
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
    letCombosSpeak();
    connect(this, &QComboBox::activated, this, [this](int index) {
        if (this->box())
            this->gate().run([&] { platform::input::pick(*this->box(), index); });
    });
}

void ComboBoxWidget::takeOver() {
    takeOverLook(*box());
    items_.takeOver(*box());
    setCurrentIndex(box()->ListIndex);
}

void ComboBoxWidget::showPopup() {
    // What is installed last sees the keys of the open list first.
    if (box() && box()->AddByKey)
        view()->installEventFilter(this);
    QComboBox::showPopup();
}

bool ComboBoxWidget::eventFilter(QObject* watched, QEvent* event) {
    // The list chooses by Enter before it comes as a key.
    bool const isFirst = event->type() == QEvent::ShortcutOverride;
    if ((!isFirst && event->type() != QEvent::KeyPress) ||
        !addsByKey(*static_cast<QKeyEvent*>(event)))
        return QComboBox::eventFilter(watched, event);
    event->accept();
    auto const line = view()->currentIndex();
    if (!isFirst && line.isValid() && box())
        gate().run([&] { platform::input::pick_also(*box(), line.row()); });
    return true;
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
    bool const changed = items_.takeOver(*box());
    // While the keyboard moves a mark in an open list, that is what stands out.
    if (!box()->pops_up || changed || !hasFocus())
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
        return box()->pops_up ? sendPick(currentIndex()) : press(platform::Key::enter);
    case Qt::Key_Escape:
        return press(platform::Key::escape);
    default:
        break;
    }
    auto const before = currentIndex();
    QListView::keyPressEvent(event);
    if (currentIndex() != before && !box()->pops_up)
        sendPick(currentIndex());
}

} // namespace desktop
