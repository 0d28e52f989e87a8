#include "kelvoraboutdialog.h"

#include <QDesktopServices>
#include <QEvent>
#include <QLayout>
#include <QMessageBox>
#include <QUrl>

namespace {

// No account stands behind it: the name belongs to the zone that is reserved for examples.
constexpr char donationAddress[] = "https://donations.example/donate?button_id=kelvor";

} // namespace

kelvoraboutdialog::kelvoraboutdialog(QWidget* parent)
    : QDialog(parent)
{
    setupUi(this);
    setWindowTitle(QString::fromLatin1("Kelvor Info"));
    qtlabel->installEventFilter(this);
    donatelabel->installEventFilter(this);
    connect(teamspeaklabel, &QLabel::linkActivated, this, &kelvoraboutdialog::onLink);
}

void kelvoraboutdialog::showEvent(QShowEvent* event)
{
    // The label that wraps keeps the layout from asking for the height that large letters need.
    const int leastWidth = qMax(width(), layout()->minimumSize().width());
    resize(leastWidth, qMax(height(), layout()->minimumHeightForWidth(leastWidth)));
    QDialog::showEvent(event);
}

void kelvoraboutdialog::onLink(QString url) { QDesktopServices::openUrl(QUrl(url)); }

// Presses are watched and never swallowed. The toolkit's box comes up when the press is over: the dialog may go away
// behind it, and after a press of the right button the toolkit still asks the window for a context menu.
bool kelvoraboutdialog::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        if (object == qtlabel)
            QMetaObject::invokeMethod(this, &kelvoraboutdialog::showAboutQt, Qt::QueuedConnection);
        else if (object == donatelabel)
            QDesktopServices::openUrl(QUrl(QString::fromLatin1(donationAddress)));
    }
    return QDialog::eventFilter(object, event);
}

void kelvoraboutdialog::showAboutQt()
{
    // Two presses may have come before the box of the first was there.
    if (!findChild<QMessageBox*>())
        QMessageBox::aboutQt(this, QString::fromLatin1("About Qt"));
}
