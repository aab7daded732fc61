#include "desktop/boxes.h"

#include "desktop/colours.h"
#include "desktop/message_box.h"
#include "desktop/text.h"
#include "desktop/window_place.h"
#include "platform/base.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QStringList>

#include <span>
#include <utility>

namespace desktop {

namespace {

using platform::Answer;

struct BoxButton {
    Answer answer;
    char const* caption;
    QMessageBox::ButtonRole role;
};

constexpr BoxButton okButton{Answer::ok, "OK", QMessageBox::AcceptRole};
constexpr BoxButton cancelButton{Answer::cancel, "&Peruuta", QMessageBox::RejectRole};
constexpr BoxButton yesButton{Answer::yes, "&Kyllä", QMessageBox::YesRole};
constexpr BoxButton noButton{Answer::no, "&Ei", QMessageBox::NoRole};

/// The buttons by the lowest bits of the flags.
std::span<BoxButton const> buttonsFor(int flags) {
    static constexpr BoxButton ok[] = {okButton};
    static constexpr BoxButton okCancel[] = {okButton, cancelButton};
    static constexpr BoxButton yesNoCancel[] = {yesButton, noButton, cancelButton};
    static constexpr BoxButton yesNo[] = {yesButton, noButton};
    switch (flags & 0x7) {
    case platform::box::ok_cancel:
        return okCancel;
    case platform::box::yes_no_cancel:
        return yesNoCancel;
    case platform::box::yes_no:
        return yesNo;
    default:
        return ok;
    }
}

QMessageBox::Icon iconFor(int flags) {
    switch (flags & 0x70) {
    case platform::box::critical:
        return QMessageBox::Critical;
    case platform::box::question:
        return QMessageBox::Question;
    case platform::box::warning:
        return QMessageBox::Warning;
    case platform::box::information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

/// Escape and the box's frame answer the last button, where that does no harm: after a question
/// that knows yes and no alone, neither is a way back.
bool hasWayBack(int flags) {
    return (flags & 0x7) != platform::box::yes_no;
}

std::size_t defaultButtonOf(int flags) {
    return static_cast<std::size_t>((flags >> 8) & 0x3);
}

/// "Text (*.x;*.y)|*.x;*.y|..." as Qt's name filters.
QStringList nameFilters(std::string_view filter) {
    QStringList filters;
    auto const parts = toQt(filter).split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        auto description = parts.at(i);
        if (auto const bracket = description.lastIndexOf(QLatin1String(" (")); bracket > 0)
            description.truncate(bracket);
        auto patterns = parts.at(i + 1);
        // Names need no dot to be any name.
        patterns.replace(QLatin1String("*.*"), QLatin1String("*")).replace(u';', u' ');
        filters.append(QStringLiteral("%1 (%2)").arg(description, patterns));
    }
    return filters;
}

/// Qt's line takes pasted line breaks and only shows them as something else.
void keepInOneLine(QLineEdit& line) {
    QObject::connect(&line, &QLineEdit::textChanged, &line, [&line](QString const& text) {
        auto const inOneLine = [](QString const& part) {
            return toQt(platform::in_one_line(fromQt(part)));
        };
        auto const wanted = inOneLine(text);
        if (wanted == text)
            return;
        auto const caret = inOneLine(text.left(line.cursorPosition())).size();
        line.setText(wanted);
        line.setCursorPosition(static_cast<int>(caret));
    });
}

/// The folder that the last file was chosen in.
QString& lastFolder() {
    static QString folder;
    return folder;
}

/// The folder that a file dialog starts in; empty for where Qt likes.
QString firstFolder(platform::CommonDialog const& settings) {
    auto const wished = toQt(settings.InitDir);
    return !wished.isEmpty() && QFileInfo(wished).isDir() ? wished : lastFolder();
}

/// Boxes of fixed size: the window manager has nothing to offer for them but closing.
constexpr Qt::WindowFlags boxFlags =
    Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;

/// Kinds of file by words that Qt has no translation of.
class FileKinds : public QFileIconProvider {
  public:
    QString type(QFileInfo const& file) const override {
        return file.isDir() ? QStringLiteral("Kansio") : QStringLiteral("Tiedosto");
    }
};

constexpr int overwritePrompt = 0x2;
constexpr int fileMustExist = 0x1000;

} // namespace

Answer showMessage(QWidget* owner, std::string_view text, int flags, std::string_view title,
                   QList<QRect> const& inSight) {
    waitUntilPlaced(owner); // the box stands over its middle
    // The box goes with its owner, should that end first.
    QPointer<MessageBox> const box(new MessageBox(owner, inSight));
    box->setWindowFlags(hasWayBack(flags) ? boxFlags : boxFlags & ~Qt::WindowCloseButtonHint);
    box->setWindowTitle(toQt(title));
    box->setTextFormat(Qt::PlainText);
    box->setText(toQtLines(text));
    // The whole of it at once, also where only a part is in sight.
    box->setAccessibleDescription(toQtLines(text).trimmed());
    box->setIcon(iconFor(flags));
    auto const buttons = buttonsFor(flags);
    QList<QPushButton*> made;
    for (auto const& button : buttons)
        made.append(box->addButton(QString::fromUtf8(button.caption), button.role));
    box->setDefaultButton(made.at(qsizetype(std::min(defaultButtonOf(flags), buttons.size() - 1))));
    if (hasWayBack(flags))
        box->setEscapeButton(made.last());
    box->exec();
    auto const chosen = box ? made.indexOf(static_cast<QPushButton*>(box->clickedButton())) : -1;
    delete box;
    return buttons[chosen < 0 ? buttons.size() - 1 : std::size_t(chosen)].answer;
}

std::string askText(QWidget* owner, std::string_view prompt, std::string_view title,
                    std::string_view defaultText) {
    QInputDialog dialog(owner, boxFlags);
    dialog.setWindowTitle(toQt(title));
    dialog.setLabelText(toQtLines(prompt));
    dialog.setTextValue(toQt(platform::in_one_line(defaultText)));
    dialog.setOkButtonText(QStringLiteral("OK"));
    dialog.setCancelButtonText(QStringLiteral("&Peruuta"));
    constexpr int width = 360;
    dialog.resize(width, dialog.sizeHint().height());
    if (auto* const line = dialog.findChild<QLineEdit*>())
        keepInOneLine(*line);
    return dialog.exec() == QDialog::Accepted ? fromQt(dialog.textValue()) : std::string();
}

std::string askFile(QWidget* owner, platform::CommonDialog const& settings, FileTask task) {
    FileKinds kinds;
    QFileDialog dialog(owner);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setIconProvider(&kinds);
    dialog.setAcceptMode(task == FileTask::open ? QFileDialog::AcceptOpen
                                                : QFileDialog::AcceptSave);
    bool const existing = task == FileTask::open && (settings.Flags & fileMustExist);
    dialog.setFileMode(existing ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !(settings.Flags & overwritePrompt));
    auto const filters = nameFilters(settings.Filter);
    dialog.setNameFilters(filters);
    if (settings.FilterIndex >= 1 && settings.FilterIndex <= filters.size())
        dialog.selectNameFilter(filters.at(settings.FilterIndex - 1));
    if (task == FileTask::save)
        dialog.setDefaultSuffix(toQt(settings.DefaultExt));
    dialog.setLabelText(QFileDialog::Accept, task == FileTask::open ? QStringLiteral("&Avaa")
                                                                    : QStringLiteral("&Tallenna"));
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("&Peruuta"));
    if (auto const folder = firstFolder(settings); !folder.isEmpty())
        dialog.setDirectory(folder);
    // Their captions stand beside them, and are none of theirs to a reader.
    for (auto const& [name, caption] :
         {std::pair("fileTypeCombo", QFileDialog::FileType), {"lookInCombo", QFileDialog::LookIn}})
        if (auto* const box = dialog.findChild<QComboBox*>(QLatin1String(name)))
            box->setAccessibleName(dialog.labelText(caption).remove(u'&'));
    // By itself it may come up taller than a small screen.
    constexpr QSize ordinary(620, 440);
    auto const room = roomFor(owner).marginsRemoved(frameFor(owner)).size();
    dialog.resize(ordinary.boundedTo(room));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        throw platform::RuntimeError(platform::ErrorNumber::cancelled);
    auto const chosen = dialog.selectedFiles().constFirst();
    // Not the folder that the dialog shows: a name may be typed with the path to another.
    lastFolder() = QFileInfo(chosen).absolutePath();
    return fromQt(QDir::toNativeSeparators(chosen));
}

platform::Colour askColour(QWidget* owner, platform::Colour start) {
    QColorDialog dialog(toColour(start, Ground::card), owner);
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setWindowFlags(boxFlags);
    if (auto* const buttons = dialog.findChild<QDialogButtonBox*>())
        buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("&Peruuta"));
    if (dialog.exec() != QDialog::Accepted)
        throw platform::RuntimeError(platform::ErrorNumber::cancelled);
    auto const chosen = dialog.selectedColor();
    return platform::RGB(chosen.red(), chosen.green(), chosen.blue());
}

} // namespace desktop
