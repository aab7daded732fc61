#include "desktop/spoken_painted.h"

#include "desktop/painted_widgets.h"

#include <QAccessibleWidget>

namespace desktop {

namespace {

/// A picture where one is shown; otherwise what holds the controls that stand in it.
QAccessible::Role roleOf(platform::Control const* control) {
    auto const* const box = dynamic_cast<platform::PictureBox const*>(control);
    return box && !box->Picture.get().empty() ? QAccessible::Graphic : QAccessible::Pane;
}

class SpokenLink : public QAccessibleWidget {
  public:
    explicit SpokenLink(PaintedWidget& link) : QAccessibleWidget(&link, QAccessible::Link) {}

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(QString const& action) override {
        if (action == pressAction())
            static_cast<PaintedWidget&>(*widget()).pressByKey();
        else
            QAccessibleWidget::doAction(action);
    }
};

QAccessibleInterface* makeSpoken(QString const&, QObject* object) {
    if (auto* const bar = dynamic_cast<StatusBarWidget*>(object))
        return new QAccessibleWidget(bar, QAccessible::StatusBar);
    auto* const painted = dynamic_cast<PaintedWidget*>(object);
    if (!painted)
        return nullptr;
    if (auto const* const label = dynamic_cast<platform::Label*>(painted->control()))
        return label->is_link ? new SpokenLink(*painted) : nullptr;
    return new QAccessibleWidget(painted, roleOf(painted->control()));
}

} // namespace

void letPaintedSpeak() {
    QAccessible::installFactory(makeSpoken);
}

} // namespace desktop
