#include "desktop/spoken_option.h"

#include "desktop/button_widgets.h"
#include "desktop/spoken.h"

#include <QAccessibleWidget>

namespace desktop {

namespace {

class SpokenOption : public QAccessibleWidget {
  public:
    explicit SpokenOption(OptionButtonWidget& option)
        : QAccessibleWidget(&option, QAccessible::RadioButton) {}

    QString text(QAccessible::Text which) const override {
        auto const text = QAccessibleWidget::text(which);
        return which == QAccessible::Name && text.isEmpty() ? option().text() : text;
    }
    QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = option().isChecked();
        return state;
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(QString const& action) override {
        if (action == pressAction())
            option().click();
        else
            QAccessibleWidget::doAction(action);
    }

  private:
    OptionButtonWidget& option() const { return static_cast<OptionButtonWidget&>(*widget()); }
};

} // namespace

void letOptionsSpeak() {
    letSpeak<OptionButtonWidget, SpokenOption>();
}

} // namespace desktop
