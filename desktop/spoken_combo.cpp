#include "desktop/spoken_combo.h"

#include "desktop/list_widgets.h"
#include "desktop/spoken.h"

#include <QAccessibleWidget>

namespace desktop {

namespace {

class SpokenCombo : public QAccessibleWidget {
  public:
    explicit SpokenCombo(ComboBoxWidget& box) : QAccessibleWidget(&box, QAccessible::ComboBox) {}

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(box().view()) : nullptr;
    }
    int indexOfChild(QAccessibleInterface const* child) const override {
        return child && child->object() == box().view() ? 0 : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        bool const open = box().view()->isVisible();
        return open && child(0)->rect().contains(x, y) ? child(0) : nullptr;
    }
    QString text(QAccessible::Text which) const override {
        auto const chosen = box().currentText().trimmed();
        if (which == QAccessible::Value)
            return chosen;
        auto const text = QAccessibleWidget::text(which);
        if (which != QAccessible::Name || chosen.isEmpty())
            return text;
        // Qt tells a change of the choice as one of the name: then both are read.
        return text.isEmpty() ? chosen : text + QStringLiteral(": ") + chosen;
    }
    QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = box().view()->isVisible();
        state.collapsed = !state.expanded;
        return state;
    }
    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
    void doAction(QString const& action) override {
        if (action != showMenuAction() && action != pressAction())
            return;
        if (box().view()->isVisible())
            box().hidePopup();
        else
            box().showPopup();
    }

  private:
    ComboBoxWidget& box() const { return static_cast<ComboBoxWidget&>(*widget()); }
};

} // namespace

void letCombosSpeak() {
    letSpeak<ComboBoxWidget, SpokenCombo>();
}

} // namespace desktop
