#include "prompts.h"

#include "heldwindow.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>

namespace {

QString chosenFile(const heldwindow<QFileDialog>& dialog)
{
    if (dialog->exec() != QDialog::Accepted || !dialog)
        return QString();
    return dialog->selectedFiles().value(0);
}

// The toolkit's own question before overwriting does not survive the end of its parent, so this one is asked here.
bool mayOverwrite(QWidget* parent, const QString& name)
{
    const QString text =
        QString::fromLatin1("%1 already exists.\nDo you want to replace it?").arg(QFileInfo(name).fileName());
    const heldwindow<QMessageBox> box(prompts::makeQuestion(parent, QString::fromLatin1("Kelvor"), text));
    box->setDefaultButton(QMessageBox::No);
    return box->exec() == QMessageBox::Yes && box;
}

} // namespace

namespace prompts {

std::optional<QString> askText(QWidget* parent, const QString& title, const QString& label, QLineEdit::EchoMode echo)
{
    const heldwindow<QInputDialog> dialog(new QInputDialog(parent));
    dialog->setWindowTitle(title);
    dialog->setLabelText(label);
    dialog->setTextEchoMode(echo);
    // As wide as its label alone, the dialog would leave the window manager no room for the title and its buttons.
    const QFontMetrics metrics = dialog->fontMetrics();
    dialog->findChild<QLineEdit*>()->setMinimumWidth(metrics.horizontalAdvance(title)
                                                     + 20 * metrics.averageCharWidth());
    const QList<QLabel*> labels = dialog->findChildren<QLabel*>();
    for (QLabel* shown : labels)
        shown->setTextFormat(Qt::PlainText);
    if (dialog->exec() != QDialog::Accepted || !dialog)
        return std::nullopt;
    return dialog->textValue();
}

QString askSaveFile(QWidget* parent, const QString& caption, const QString& filter)
{
    const heldwindow<QFileDialog> dialog(new QFileDialog(parent, caption, QString(), filter));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    for (;;) {
        const QString name = chosenFile(dialog);
        if (name.isEmpty() || !QFileInfo::exists(name) || mayOverwrite(dialog.get(), name))
            return dialog ? name : QString();
        if (!dialog)
            return QString();
    }
}

QString askOpenFile(QWidget* parent, const QString& caption, const QString& start, const QString& filter)
{
    const heldwindow<QFileDialog> dialog(new QFileDialog(parent, caption, QString(), filter));
    const QFileInfo present(start);
    dialog->setDirectory(present.isDir() ? start : present.path());
    if (present.isFile())
        dialog->selectFile(start);
    dialog->setFileMode(QFileDialog::ExistingFile);
    return chosenFile(dialog);
}

QString askDirectory(QWidget* parent, const QString& caption, const QString& start)
{
    const heldwindow<QFileDialog> dialog(new QFileDialog(parent, caption, start));
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    return chosenFile(dialog);
}

QColor askColor(QWidget* parent, const QColor& initial)
{
    const heldwindow<QColorDialog> dialog(new QColorDialog(initial, parent));
    if (dialog->exec() != QDialog::Accepted || !dialog)
        return QColor();
    return dialog->selectedColor();
}

QMessageBox* makeQuestion(QWidget* parent, const QString& title, const QString& text)
{
    auto* box = new QMessageBox(QMessageBox::Question, title, QString(), QMessageBox::Yes | QMessageBox::No, parent);
    box->setTextFormat(Qt::PlainText);
    box->setText(text);
    box->setDefaultButton(QMessageBox::Yes);
    return box;
}

} // namespace prompts
