#include "desktop/spoken_arrows.h"

#include "desktop/scroll_widgets.h"
#include "desktop/spoken.h"

#include <QAccessibleWidget>

#include <algorithm>

namespace desktop {

namespace {

class SpokenArrows : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit SpokenArrows(ArrowPair& arrows) : QAccessibleWidget(&arrows, QAccessible::SpinBox) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? currentValue().toString()
                                           : QAccessibleWidget::text(which);
    }

    // The upper arrow leads towards Min, and what a user sees grows by it.
    QVariant currentValue() const override { return bar() ? -bar()->Value : 0; }
    QVariant minimumValue() const override { return bar() ? -bar()->Max : 0; }
    QVariant maximumValue() const override { return bar() ? -bar()->Min : 0; }
    QVariant minimumStepSize() const override { return bar() ? bar()->SmallChange.get() : 1; }
    void setCurrentValue(QVariant const& value) override {
        arrows().scrollTo(
            -std::clamp(value.toInt(), minimumValue().toInt(), maximumValue().toInt()));
    }

  private:
    ArrowPair& arrows() const { return static_cast<ArrowPair&>(*widget()); }
    platform::ScrollBar* bar() const {
        return static_cast<platform::ScrollBar*>(arrows().control());
    }
};

} // namespace

void letArrowsSpeak() {
    letSpeak<ArrowPair, SpokenArrows>();
}

} // namespace desktop
