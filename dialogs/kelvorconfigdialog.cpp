#include "kelvorconfigdialog.h"

#include "prompts/heldwindow.h"
#include "prompts/prompts.h"

#include <QFileDialog>
#include <QIntValidator>

namespace {

// The sizes that the dialog suggests while typing, in pixels. A field may still be left outside of them.
constexpr int smallestSide = 200;
constexpr int largestSide = 2000;

} // namespace

kelvorconfigdialog::kelvorconfigdialog(const QString& title, QWidget* parent)
    : QDialog(parent)
{
    setupUi(this);
    setWindowTitle(title);
    auto* validator = new QIntValidator(smallestSide, largestSide, this);
    widthedit->setValidator(validator);
    heightedit->setValidator(validator);
    // Queued: the dialog may be destroyed while a file dialog is open, and the button, which looks at itself after a
    // click, must not stand below on the stack then.
    connect(downloadbutton, &QToolButton::clicked, this, &kelvorconfigdialog::getDownloadDir, Qt::QueuedConnection);
    connect(soundbutton, &QToolButton::clicked, this, &kelvorconfigdialog::getSoundFile, Qt::QueuedConnection);
}

// Two clicks may have come before the first of them was answered.
bool kelvorconfigdialog::isAsking() const { return findChild<QFileDialog*>() != nullptr; }

// The pattern has no dot on purpose: it also offers names that merely end in these letters.
void kelvorconfigdialog::getSoundFile()
{
    if (isAsking())
        return;
    const QString path = prompts::askOpenFile(this, QString::fromLatin1("Open Wave File"), soundedit->text(),
                                              QString::fromLatin1("Wavefiles (*wav)"));
    if (!path.isEmpty())
        soundedit->setText(path);
}

void kelvorconfigdialog::getDownloadDir()
{
    if (isAsking())
        return;
    const QString path =
        prompts::askDirectory(this, QString::fromLatin1("Choose Download Directory"), downloadedit->text());
    if (!path.isEmpty())
        downloadedit->setText(path);
}

bool editSettings(const QString& title, const QString& downloaddir, bool playsound, const QString& soundpath,
                  bool awayreject, bool onlyactivetab, int defaultwidth, int defaultheight, bool pong,
                  QString* newDownloaddir, bool* newPlaysound, QString* newSoundpath, bool* newAwayreject,
                  bool* newOnlyactivetab, int* newDefaultwidth, int* newDefaultheight, bool* newPong, QWidget* parent)
{
    const heldwindow<kelvorconfigdialog> dialog(new kelvorconfigdialog(title, parent));
    dialog->downloadedit->setText(downloaddir);
    dialog->soundgroup->setChecked(playsound);
    dialog->soundedit->setText(soundpath);
    dialog->awaycheckbox->setChecked(awayreject);
    dialog->activecheckbox->setChecked(onlyactivetab);
    dialog->widthedit->setText(QString::number(defaultwidth));
    dialog->heightedit->setText(QString::number(defaultheight));
    dialog->pongcheckbox->setChecked(pong);
    if (dialog->exec() != QDialog::Accepted || !dialog)
        return false;
    *newDownloaddir = dialog->downloadedit->text();
    *newPlaysound = dialog->soundgroup->isChecked();
    *newSoundpath = dialog->soundedit->text();
    *newAwayreject = dialog->awaycheckbox->isChecked();
    *newOnlyactivetab = dialog->activecheckbox->isChecked();
    *newDefaultwidth = dialog->widthedit->text().toInt();
    *newDefaultheight = dialog->heightedit->text().toInt();
    *newPong = dialog->pongcheckbox->isChecked();
    return true;
}
