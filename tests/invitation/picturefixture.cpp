#include "picturefixture.h"

#include "tests/support/whenopen.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTableWidget>
#include <QTest>

picturefixture::picturefixture()
{
    downloadDir = directory.path();
    openHost();
    dialog->show();
    sent();
}

void picturefixture::load(const filedialoguser& choose, const transferuser& wait)
{
    const whenopen<ts3filedialog> chooser(choose);
    const whenopen<ts3downloaddialog> waiter(wait);
    widget<QPushButton>("loadbutton")->click();
    QVERIFY(chooser.ran());
    QCOMPARE(waiter.ran(), bool(wait));
}

filedialoguser picturefixture::choose(const QString& name)
{
    return [this, name](ts3filedialog& files) {
        auto* table = files.findChild<QTableWidget*>("table");
        table->selectRow(1);
        QMetaObject::invokeMethod(&files, "onTableDoubleClicked");
        emit controller.fileList(1, 2, "/", name, remoteBytes, 0, 1);
        QCOMPARE(table->rowCount(), 1);
        table->selectRow(0);
        files.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Ok)->click();
    };
}

transferuser picturefixture::finish()
{
    return [this](ts3downloaddialog&) {
        emit controller.fileTransferStatus(host.requests.last().transferID, complete, "", 0, 1);
    };
}

void picturefixture::putFile(const QString& name, const QByteArray& content) const
{
    QFile file(directory.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

void picturefixture::putPicture(const QString& name, QSize size) const
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(directory.filePath(name), "PNG"));
}

QString picturefixture::shown(const char* edit) const { return widget<QLineEdit>(edit)->text(); }

QString picturefixture::message() const { return dialog->findChild<QStatusBar*>()->currentMessage(); }
