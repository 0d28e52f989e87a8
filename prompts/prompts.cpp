#include "prompts.h"

#include "heldwindow.h"
#include "plainline.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>

namespace {

// Characters of a question: far more than it has with ordinary names in it, and a box of few lines still.
constexpr int longestText = 600;
// In characters of average width: enough for the longest name that a voice server allows, in its widest letters.
constexpr int widestLabel = 120;

// The label of an edit, in which a single ampersand would mark a shortcut and not be shown.
QString promptLabel(const QString& text, const QFontMetrics& metrics)
{
    const int widest = widestLabel * metrics.averageCharWidth();
    QString line = metrics.elidedText(plainLine(text, longestText), Qt::ElideMiddle, widest);
    return line.replace(QLatin1Char('&'), QLatin1String("&&"));
}

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
        QString::fromLatin1("%1 already exists. Do you want to replace it?").arg(QFileInfo(name).fileName());
    const heldwindow<QMessageBox> box(prompts::makeQuestion(parent, QString::fromLatin1("Kelvor"), text));
    box->setDefaultButton(QMessageBox::No);
    return box->exec() == QMessageBox::Yes && box;
}

} // namespace

namespace prompts {

std::optional<QString> askText(QWidget* parent, const QString& title, const QString& label, QLineEdit::EchoMode echo)
{
    const heldwindow<QInputDialog> dialog(new QInputDialog(parent));
    const QFontMetrics metrics = dialog->fontMetrics();
    dialog->setWindowTitle(title);
    dialog->setLabelText(promptLabel(label, metrics));
    dialog->setTextEchoMode(echo);
    // As wide as its label alone, the dialog would leave the window manager no room for the title and its buttons.
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
    while (dialog) {
        const QString name = chosenFile(dialog);
        if (name.isEmpty() || !QFileInfo::exists(name) || mayOverwrite(dialog.get(), name))
            return name;
    }
    return QString();
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
    box->setText(plainLine(text, longestText));
    box->setDefaultButton(QMessageBox::Yes);
    return box;
}

} // namespace prompts
