#include "kelvoraboutdialog.h"

#include <QDesktopServices>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
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

void kelvoraboutdialog::onLink(QString url) { QDesktopServices::openUrl(QUrl(url)); }

// Presses are watched and never swallowed, except when the dialog went away behind the toolkit's box: there is nobody
// left then to whom the press could go on.
bool kelvoraboutdialog::eventFilter(QObject* object, QEvent* event)
{
    const QPointer<kelvoraboutdialog> self(this);
    if (event->type() == QEvent::MouseButtonPress) {
        if (object == qtlabel)
            showAboutQt(static_cast<QMouseEvent*>(event)->button());
        else if (object == donatelabel)
            QDesktopServices::openUrl(QUrl(QString::fromLatin1(donationAddress)));
    }
    return !self || QDialog::eventFilter(object, event);
}

// After a press of the right button the toolkit asks the window for a context menu, and crashes if it is gone. So this
// box, behind which the dialog may go away, has to wait there until the press is over.
void kelvoraboutdialog::showAboutQt(Qt::MouseButton button)
{
    const auto show = [this] { QMessageBox::aboutQt(this, QString::fromLatin1("About Qt")); };
    QMetaObject::invokeMethod(this, show, button == Qt::RightButton ? Qt::QueuedConnection : Qt::DirectConnection);
}
