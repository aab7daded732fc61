#include "desktop/spoken_card.h"

#include "desktop/card_canvas.h"
#include "desktop/text.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

using platform::Control;
using platform::ControlClass;
using platform::Spoken;

using Told = std::pair<Spoken, QRect>;
using Tell = void (*)(QAccessibleEvent*);

std::optional<Spoken> describe(CardCanvas const& canvas, Control const* control) {
    bool const tells = canvas.shows(control) && canvas.form()->Describe;
    return tells ? canvas.form()->Describe(*control) : std::nullopt;
}

QAccessible::Role roleOf(ControlClass kind) {
    switch (kind) {
    case ControlClass::text_box:
        return QAccessible::EditableText;
    case ControlClass::check_box:
        return QAccessible::CheckBox;
    case ControlClass::option_button:
        return QAccessible::RadioButton;
    case ControlClass::combo_box:
        return QAccessible::ComboBox;
    case ControlClass::list_box:
        return QAccessible::List;
    case ControlClass::picture_box:
        return QAccessible::Graphic;
    default:
        return QAccessible::StaticText;
    }
}

/// One object on a card. It outlives its control where somebody keeps it, and is then not valid.
class SpokenObject : public QAccessibleInterface {
  public:
    SpokenObject(CardCanvas& canvas, Control const& control)
        : canvas_(&canvas), control_(&control) {}

    Control const* control() const { return control_; }

    bool isValid() const override { return canvas_ && canvas_->shows(control_); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override {
        return canvas_ ? canvas_->window()->windowHandle() : nullptr;
    }
    QAccessibleInterface* parent() const override {
        return canvas_ ? QAccessible::queryAccessibleInterface(canvas_) : nullptr;
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(QAccessibleInterface const*) const override { return -1; }
    QAccessible::Role role() const override {
        return isValid() ? roleOf(control_->control_class()) : QAccessible::NoRole;
    }
    QString text(QAccessible::Text which) const override;
    void setText(QAccessible::Text, QString const&) override {}
    QRect rect() const override;
    QAccessible::State state() const override;

  private:
    std::optional<Spoken> spoken() const {
        return canvas_ ? describe(*canvas_, control_) : std::nullopt;
    }

    QPointer<CardCanvas> canvas_;
    Control const* control_;
};

QString SpokenObject::text(QAccessible::Text which) const {
    auto const told = spoken();
    if (!told)
        return {};
    switch (which) {
    case QAccessible::Name:
        return toQt(told->name);
    case QAccessible::Description:
        return toQt(told->kind);
    default:
        return {};
    }
}

QRect SpokenObject::rect() const {
    if (!isValid())
        return {};
    auto const place = canvas_->shownPlace(*control_);
    return {canvas_->mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::State SpokenObject::state() const {
    QAccessible::State state;
    auto const told = spoken();
    if (!told) {
        state.invalid = true;
        return state;
    }
    state.selectable = true;
    state.multiSelectable = true;
    state.selected = told->selected;
    state.movable = !told->locked;
    state.sizeable = !told->locked;
    state.readOnly = told->locked; // the one of these that every reader knows
    state.offscreen = !canvas_->visibleRegion().intersects(canvas_->shownPlace(*control_));
    return state;
}

class SpokenCard : public QAccessibleWidget {
  public:
    explicit SpokenCard(CardCanvas& canvas) : QAccessibleWidget(&canvas, QAccessible::Canvas) {
        told_ = allTold();
    }
    ~SpokenCard() override {
        for (auto const id : std::as_const(made_))
            QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return static_cast<int>(objects().size()); }
    QAccessibleInterface* child(int index) const override {
        auto const& all = objects();
        return index >= 0 && index < all.size() ? object(*all.at(index)) : nullptr;
    }
    int indexOfChild(QAccessibleInterface const* child) const override {
        auto const* const one = dynamic_cast<SpokenObject const*>(child);
        return one ? static_cast<int>(objects().indexOf(one->control())) : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override;
    void tellChanges(Tell tell);

  private:
    CardCanvas& canvas() const { return static_cast<CardCanvas&>(*widget()); }
    QList<Control const*> const& objects() const;
    QAccessibleInterface* object(Control const& control) const;
    QHash<Control const*, Told> allTold() const;
    void tellChange(QAccessibleInterface& object, Told const& before, Told const& now, Tell tell);

    mutable QList<Control const*> objects_; // in stacking order
    mutable std::optional<unsigned> asOf_;  // the canvas's changes when they were listed
    mutable QHash<Control const*, QAccessible::Id> made_;
    QHash<Control const*, Told> told_; // what a reader can know
};

QList<Control const*> const& SpokenCard::objects() const {
    if (!canvas().form())
        objects_.clear();
    else if (asOf_ != canvas().changes()) {
        asOf_ = canvas().changes();
        objects_.clear();
        for (auto const* const control : canvas().form()->children())
            if (describe(canvas(), control))
                objects_.append(control);
    }
    return objects_;
}

QAccessibleInterface* SpokenCard::object(Control const& control) const {
    if (auto const known = made_.constFind(&control); known != made_.constEnd())
        return QAccessible::accessibleInterface(*known);
    auto* const made = new SpokenObject(canvas(), control);
    made_.insert(&control, QAccessible::registerAccessibleInterface(made));
    return made;
}

/// The topmost of the objects that lie there.
QAccessibleInterface* SpokenCard::childAt(int x, int y) const {
    auto const point = canvas().mapFromGlobal(QPoint(x, y));
    if (!canvas().visibleRegion().contains(point))
        return nullptr;
    auto const& all = objects();
    auto const found = std::find_if(all.rbegin(), all.rend(), [&](Control const* control) {
        return canvas().shownPlace(*control).contains(point);
    });
    return found == all.rend() ? nullptr : object(**found);
}

QHash<Control const*, Told> SpokenCard::allTold() const {
    QHash<Control const*, Told> all;
    for (auto const* const control : objects())
        if (auto told = describe(canvas(), control))
            all.insert(control, {std::move(*told), canvas().shownPlace(*control)});
    return all;
}

void SpokenCard::tellChanges(Tell tell) {
    auto const before = std::exchange(told_, allTold());
    for (auto const& [control, now] : told_.asKeyValueRange())
        if (auto const known = before.constFind(control); known != before.constEnd())
            tellChange(*object(*control), *known, now, tell);
    auto const isNew = [&](Control const* control) { return !before.contains(control); };
    bool const reordered =
        before.size() != told_.size() || std::any_of(told_.keyBegin(), told_.keyEnd(), isNew);
    if (!reordered)
        return;
    for (auto one = made_.begin(); one != made_.end();) {
        if (told_.contains(one.key())) {
            ++one;
            continue;
        }
        QAccessible::deleteAccessibleInterface(*one);
        one = made_.erase(one);
    }
    QAccessibleEvent event(this, QAccessible::ObjectReorder);
    tell(&event);
}

void SpokenCard::tellChange(QAccessibleInterface& object, Told const& before, Told const& now,
                            Tell tell) {
    auto const send = [&](QAccessible::Event what) {
        QAccessibleEvent event(&object, what);
        tell(&event);
    };
    if (before.first.name != now.first.name)
        send(QAccessible::NameChanged);
    if (before.second != now.second)
        send(QAccessible::LocationChanged);
    QAccessible::State changed;
    changed.selected = before.first.selected != now.first.selected;
    bool const lock = before.first.locked != now.first.locked;
    changed.readOnly = lock;
    changed.movable = lock;
    changed.sizeable = lock;
    if (changed.selected || changed.readOnly) {
        QAccessibleStateChangeEvent event(&object, changed);
        tell(&event);
    }
    if (changed.selected)
        send(now.first.selected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
}

QAccessibleInterface* makeSpoken(QString const&, QObject* object) {
    auto* const canvas = dynamic_cast<CardCanvas*>(object);
    return canvas ? new SpokenCard(*canvas) : nullptr;
}

} // namespace

void letCardsSpeak() {
    QAccessible::installFactory(makeSpoken);
}

void tellChanges(CardCanvas& canvas, void (*tell)(QAccessibleEvent*)) {
    if (auto* const card =
            dynamic_cast<SpokenCard*>(QAccessible::queryAccessibleInterface(&canvas)))
        card->tellChanges(tell);
}

} // namespace desktop
