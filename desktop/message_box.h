// MessageBox: Qt's message box, which fits every screen and waits for an answer.
#pragma once

#include <QList>
#include <QMessageBox>
#include <QRect>

class QTextEdit;

namespace desktop {

/// A text that would make the box larger than the screen scrolls inside it, but for its last line,
/// which asks or concludes. A box without a
/// cautious answer, which an escape button would be, closes by its buttons alone.
class MessageBox : public QMessageBox {
  public:
    /// `inSight` are the places on the screen that the box is not to cover, as far as it can.
    MessageBox(QWidget* owner, QList<QRect> inSight);

    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool fits(QSize room) const;
    void scrollText(QSize room);
    void bringIntoRoom();

    QList<QRect> inSight_;
    QTextEdit* scrolled_ = nullptr; ///< what scrolls of the text, if anything
};

} // namespace desktop
