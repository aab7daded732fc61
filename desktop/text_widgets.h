// Text boxes. The program decides on every key and every change; the widget shows what came of it.
#pragma once

#include "desktop/control_widget.h"

#include <QLineEdit>
#include <QPlainTextEdit>

#include <string>

namespace desktop {

/// What the two kinds of text box share: keys and changes on their way to the program.
class TextInput : public ControlWidget {
  public:
    TextInput(platform::TextBox& box, EventGate& gate) : ControlWidget(box, gate) {}

  protected:
    platform::TextBox* box() const { return static_cast<platform::TextBox*>(control()); }
    /// True when the key has gone to the program and the widget is to do nothing by itself: a key
    /// with a character, the deleting keys, Enter and Escape.
    bool sendKey(QKeyEvent const& event);
    /// True for finished text of an input method, which then has gone to the program key by key.
    bool sendCommitted(QInputMethodEvent const& event);
    /// True for a key combination that is the shortcut of a menu entry within reach: the menu wins
    /// over the widget's own use of it.
    bool isMenuShortcut(QKeyEvent const& event) const;
    /// The widget's text after an editing of its own, such as pasting; the caret in Qt's units.
    void sendText(QString const& text, int caret);
    void sendSelection(QString const& text, int start, int end);

  private:
    void sendTyped(QString const& text);
};

/// A box of one line. Without room for a frame it has none.
class TextField : public QLineEdit, public TextInput {
  public:
    TextField(platform::TextBox& box, QWidget& parent, EventGate& gate);

    QWidget& widget() override { return *this; }
    void takeOver() override;

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;

  private:
    void takeOverText();
    void takeOverSelection();

    /// The press that brings the focus keeps the selection that the program then makes.
    enum class Press { none, bringsFocus, plain };
    Press press_ = Press::none;
    QPoint pressedAt_;
    bool losesFocus_ = false;
};

/// A box of several lines.
class TextArea : public QPlainTextEdit, public TextInput {
  public:
    TextArea(platform::TextBox& box, QWidget& parent, EventGate& gate);

    QWidget& widget() override { return *this; }
    QWidget& mouseWidget() override { return *viewport(); }
    void takeOver() override;

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
};

} // namespace desktop
