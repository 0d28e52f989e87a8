#pragma once

#include "ui_kelvorconfigdialog.h"

#include <QDialog>

/// Runs the settings dialog, filled with the eight values; true when it ended with OK. Only then are the new values
/// written, all eight; when the dialog was cancelled or destroyed together with its parent they stay as they are.
/// Nothing is checked: an emptied width or height comes back as 0, an emptied directory as an empty string.
bool editSettings(const QString& title, const QString& downloaddir, bool playsound, const QString& soundpath,
                  bool awayreject, bool onlyactivetab, int defaultwidth, int defaultheight, bool pong,
                  QString* newDownloaddir, bool* newPlaysound, QString* newSoundpath, bool* newAwayreject,
                  bool* newOnlyactivetab, int* newDefaultwidth, int* newDefaultheight, bool* newPong, QWidget* parent);

/// The form of the settings. It knows neither their file nor the controller; editSettings() fills and reads it.
class kelvorconfigdialog : public QDialog, private Ui::kelvorconfigdialog {
    Q_OBJECT

public:
    kelvorconfigdialog(const QString& title, QWidget* parent);

private slots:
    void getSoundFile();
    void getDownloadDir();

private:
    bool isAsking() const;

    friend bool editSettings(const QString& title, const QString& downloaddir, bool playsound, const QString& soundpath,
                             bool awayreject, bool onlyactivetab, int defaultwidth, int defaultheight, bool pong,
                             QString* newDownloaddir, bool* newPlaysound, QString* newSoundpath, bool* newAwayreject,
                             bool* newOnlyactivetab, int* newDefaultwidth, int* newDefaultheight, bool* newPong,
                             QWidget* parent);
};
