#include "whiteboard.h"

#include "canvas/paintscene.h"
#include "dialogs/kelvoraboutdialog.h"
#include "hostapi/hostcalls.h"
#include "prompts/heldwindow.h"
#include "prompts/prompts.h"
#include "serverfiles/ts3downloaddialog.h"
#include "serverfiles/ts3filedialog.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFileInfo>
#include <QSlider>
#include <QStatusBar>
#include <QToolBar>

namespace {

// Whether a name that somebody typed is the name of a file in a directory, and not a way out of it.
bool isPlainName(const QString& name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") && !name.contains(QChar::Null)
        && QFileInfo(name).fileName() == name;
}

// Takes away what an earlier upload left behind, or a failed write would send that again. False when it is still there.
bool removeOld(const QString& path)
{
    if (QFile::remove(path))
        return true;
    const QFileInfo old(path);
    return !old.exists() && !old.isSymLink();
}

} // namespace

// Two clicks may have come before the first of them was answered, or the window's end; only one dialog opens.
bool whiteboard::mayPrompt() const { return !left && !QApplication::activeModalWidget(); }

void whiteboard::showColor()
{
    QImage image(16, 16, QImage::Format_ARGB32_Premultiplied);
    image.fill(currentColor);
    coloraction->setIcon(QPixmap::fromImage(image));
    actionbar->widgetForAction(coloraction)->setAccessibleDescription(currentColor.name());
}

void whiteboard::onColorButtonClicked()
{
    if (!mayPrompt())
        return;
    const QPointer<whiteboard> self(this);
    const QColor chosen = prompts::askColor(this, currentColor);
    if (!self || !chosen.isValid())
        return;
    currentColor = chosen;
    scene->setColor(chosen);
    showColor();
}

// The two thickness widgets set each other. That ends because setting the value that is there emits nothing.
void whiteboard::onThicknessSliderChanged(int newval)
{
    thickness = newval / 10.0;
    scene->setThickness(thickness);
    thicknessspin->setValue(thickness);
}

// Truncated, not rounded: a value between two tenths is pulled down to the lower one by the echo. That is kept.
void whiteboard::onThicknessSpinChanged(double newval)
{
    thickness = newval;
    scene->setThickness(thickness);
    thicknessslider->setValue(static_cast<int>(newval * 10.0));
}

void whiteboard::onSwapClicked() { scene->swapChannels(true, QString()); }
void whiteboard::onInvertClicked() { scene->invertColors(true, QString()); }
void whiteboard::onFlipHorizontallyClicked() { scene->flipHorizontally(true, QString()); }
void whiteboard::onFlipVerticallyClicked() { scene->flipVertically(true, QString()); }
void whiteboard::onGrayscaleClicked() { scene->grayscale(true, QString()); }
void whiteboard::onClearButtonClicked() { scene->clearCanvas(true); }

void whiteboard::onSaveButtonClicked()
{
    if (!mayPrompt())
        return;
    const QPointer<whiteboard> self(this);
    const QString name = prompts::askSaveFile(this, QString::fromLatin1("Save image to file"),
                                              QString::fromLatin1("PNG-Images (*.png)"));
    if (self && !name.isEmpty())
        scene->savePicture(name);
}

void whiteboard::onUploadButtonClicked()
{
    if (!mayPrompt())
        return;
    const QPointer<whiteboard> self(this);
    uint64 channel = 0;
    QString password;
    QString path;
    QString name;
    {
        const heldwindow<ts3filedialog> dialog(new ts3filedialog(ts3Functions, schandler, this));
        connect(this, &whiteboard::fileList, dialog.get(), &ts3filedialog::onFileList);
        if (!dialog->getSaveFile(&channel, &password, &path, &name) || !self)
            return;
    }
    const QString separator = path.endsWith(QLatin1Char('/')) ? QString() : QString::fromLatin1("/");
    uploadPicture(channel, password, path + separator + name, name);
}

// The voice client reads the file from the directory that it is told, under the name at the end of the remote path.
void whiteboard::uploadPicture(uint64 channel, const QString& password, const QString& remotePath, const QString& name)
{
    const QDir directory = QDir::temp();
    const QString localPath = directory.filePath(name);
    if (!isPlainName(name) || !removeOld(localPath))
        return;
    scene->savePicture(localPath);
    QFile file(localPath);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const auto size = static_cast<uint64>(file.size());
    file.close();

    const QPointer<whiteboard> self(this);
    unsigned int error = ERROR_ok;
    const bool uploaded =
        upload(ts3Functions, schandler, channel, password, remotePath, directory.absolutePath(), size, &error, this);
    if (self && !uploaded)
        statusbar->showMessage(hostcalls::errorText(ts3Functions, error));
}

void whiteboard::onAboutButtonClicked()
{
    if (!mayPrompt())
        return;
    const heldwindow<kelvoraboutdialog> dialog(new kelvoraboutdialog(this));
    dialog->exec();
}

// The canvas asks for no focus of its own; without this no key would reach a text after a click.
void whiteboard::repairFocus() { scene->setFocus(Qt::OtherFocusReason); }
