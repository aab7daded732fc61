// List and combo boxes.
#pragma once

#include "desktop/control_widget.h"

#include <QAbstractListModel>
#include <QComboBox>
#include <QListView>
#include <QStringList>

namespace desktop {

/// The items of a list as Qt reads them.
class ListItems : public QAbstractListModel {
  public:
    using QAbstractListModel::QAbstractListModel;

    /// Takes over the items; true when any has changed.
    bool takeOver(platform::ListControl const& list);

    int rowCount(QModelIndex const& parent = {}) const override;
    QVariant data(QModelIndex const& index, int role) const override;
    /// What the user types finds an item by its first letter behind blanks.
    QModelIndexList match(QModelIndex const& start, int role, QVariant const& value, int hits,
                          Qt::MatchFlags flags) const override;

  private:
    QStringList items_;
};

class ComboBoxWidget : public QComboBox, public ControlWidget {
  public:
    ComboBoxWidget(platform::ComboBox& box, QWidget& parent, EventGate& gate);

    QWidget& widget() override { return *this; }
    void takeOver() override;
    void showPopup() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void wheelEvent(QWheelEvent* event) override;

  private:
    platform::ComboBox* box() const { return static_cast<platform::ComboBox*>(control()); }

    ListItems items_;
};

class ListBoxWidget : public QListView, public ControlWidget {
  public:
    ListBoxWidget(platform::ListBox& box, QWidget& parent, EventGate& gate);

    QWidget& widget() override { return *this; }
    QWidget& mouseWidget() override { return *viewport(); }
    void takeOver() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    platform::ListBox* box() const { return static_cast<platform::ListBox*>(control()); }
    void sendPick(QModelIndex const& index);
    void showChosen();

    ListItems items_;
};

} // namespace desktop
