#pragma once

#include "ui_kelvoraboutdialog.h"

#include <QDialog>

/// What the plugin is and which versions it has, with three ways out: the toolkit's about box, the page of the voice
/// client's maker and the donation page. Whoever runs it owns it; it has no buttons and closes by its window controls.
class kelvoraboutdialog : public QDialog, private Ui::kelvoraboutdialog {
    Q_OBJECT

public:
    explicit kelvoraboutdialog(QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private slots:
    void onLink(QString url);

private:
    void showAboutQt();
};
