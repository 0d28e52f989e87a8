#include "tests/support/controls.h"
#include "windowtour.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QToolButton>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>

/// Every window for those who use it without a mouse, without their eyes, in dark colours or in large letters.
class tst_accessibility : public QObject {
    Q_OBJECT

private slots:
    void everyControlHasASpokenName_data();
    void everyControlHasASpokenName();
    void everyButtonWithoutATextHasAToolTip_data();
    void everyButtonWithoutATextHasAToolTip();
    void theTabKeyVisitsEveryControl_data();
    void theTabKeyVisitsEveryControl();
    void theTabKeyGoesInReadingOrder_data();
    void theTabKeyGoesInReadingOrder();
    void nothingIsCutInLettersOfTwiceTheSize_data();
    void nothingIsCutInLettersOfTwiceTheSize();
    void textsAndIconsStandOut_data();
    void textsAndIconsStandOut();
};

namespace {

using judgement = std::function<QStringList(QWidget&)>;

QString nameOf(const QWidget& widget)
{
    return QString::fromLatin1("%1 \"%2\"").arg(widget.metaObject()->className(), widget.objectName());
}

bool isPartOfAControl(const QWidget& widget)
{
    const auto* parent = widget.parentWidget();
    return qobject_cast<const QAbstractSpinBox*>(parent) || qobject_cast<const QComboBox*>(parent)
        || qobject_cast<const QScrollBar*>(&widget) || qobject_cast<const QHeaderView*>(&widget)
        || widget.objectName().startsWith("qt_toolbar_ext");
}

/// Those that show.
template <typename Child> QList<Child*> childrenOf(const QWidget& window)
{
    const QList<Child*> children = window.findChildren<Child*>();
    QList<Child*> shown;
    std::copy_if(children.begin(), children.end(), std::back_inserter(shown),
                 [&window](const Child* child) { return child->isVisibleTo(&window); });
    return shown;
}

/// What a user acts on in a shown window.
QList<QWidget*> controlsOf(const QWidget& window)
{
    QList<QWidget*> found;
    for (QWidget* widget : childrenOf<QWidget>(window)) {
        const bool isControl = qobject_cast<QAbstractButton*>(widget) || qobject_cast<QAbstractSlider*>(widget)
            || qobject_cast<QAbstractSpinBox*>(widget) || qobject_cast<QLineEdit*>(widget)
            || qobject_cast<QAbstractItemView*>(widget) || qobject_cast<QComboBox*>(widget)
            || widget->focusPolicy() & Qt::TabFocus;
        if (isControl && !isPartOfAControl(*widget))
            found.append(widget);
    }
    return found;
}

QStringList nameless(QWidget& window)
{
    QStringList faults;
    for (QWidget* control : controlsOf(window)) {
        const QString name = controls::spokenName(control);
        if (name.isEmpty() || name == "...")
            faults.append(nameOf(*control));
    }
    return faults;
}

QStringList withoutToolTip(QWidget& window)
{
    QStringList faults;
    for (QAbstractButton* button : childrenOf<QAbstractButton>(window)) {
        const auto* tool = qobject_cast<QToolButton*>(button);
        const bool iconOnly = button->text().isEmpty() || (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly);
        if (iconOnly && !isPartOfAControl(*button) && button->toolTip().isEmpty())
            faults.append(nameOf(*button));
    }
    return faults;
}

/// The widgets to which the Tab key gives the focus, in its order, from the window's first on.
QList<QWidget*> tabWalk(QWidget& window)
{
    QApplication::setActiveWindow(&window);
    QWidget* first = window.nextInFocusChain();
    while (first != &window && !(first->focusPolicy() & Qt::TabFocus && first->isVisible() && first->isEnabled()))
        first = first->nextInFocusChain();
    first->setFocus(Qt::TabFocusReason);
    QList<QWidget*> walk;
    QWidget* at = QApplication::focusWidget();
    while (at && !walk.contains(at) && walk.size() < 100) {
        walk.append(at);
        QTest::keyClick(at, Qt::Key_Tab);
        at = QApplication::focusWidget();
    }
    return walk;
}

QStringList unvisited(QWidget& window)
{
    const QList<QWidget*> walk = tabWalk(window);
    QStringList faults;
    for (QWidget* control : controlsOf(window)) {
        // The toolkit leaves out a list with nothing to choose from.
        const auto* list = qobject_cast<QComboBox*>(control);
        const bool idle = !control->isEnabled() || (list && list->count() < 2);
        if (!idle && !walk.contains(control))
            faults.append(nameOf(*control));
    }
    return faults;
}

QStringList jumpsBack(QWidget& window)
{
    QStringList faults;
    const QList<QWidget*> walk = tabWalk(window);
    for (int i = 1; i < walk.size(); ++i) {
        const QRect from(walk[i - 1]->mapTo(&window, QPoint()), walk[i - 1]->size());
        const QRect to(walk[i]->mapTo(&window, QPoint()), walk[i]->size());
        const bool up = to.bottom() < from.top() && to.left() < from.right();
        const bool back = to.right() < from.left() && to.top() < from.bottom();
        if (up || back)
            faults.append(nameOf(*walk[i - 1]) + " to " + nameOf(*walk[i]));
    }
    return faults;
}

bool isText(const QWidget& widget)
{
    return qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QLabel*>(&widget)
        || qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QAbstractSpinBox*>(&widget);
}

QStringList cutOff(QWidget& window)
{
    QStringList faults;
    for (QWidget* widget : childrenOf<QWidget>(window)) {
        const QSize least = widget->minimumSizeHint();
        if (isText(*widget) && !isPartOfAControl(*widget)
            && (widget->width() < least.width() || widget->height() < least.height()))
            faults.append(nameOf(*widget));
    }
    return faults;
}

/// The ratio of the luminances, from 1 to 21.
qreal contrast(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& color) {
        const auto linear = [](qreal part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    };
    const qreal a = luminance(one) + 0.05;
    const qreal b = luminance(other) + 0.05;
    return qMax(a, b) / qMin(a, b);
}

/// The largest contrast that a pixel of the picture has to the colour it lies on.
qreal contrastOf(const QImage& picture, const QColor& ground)
{
    qreal largest = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if (pixel.alpha() > 200)
                largest = qMax(largest, contrast(pixel, ground));
        }
    }
    return largest;
}

QStringList faint(QWidget& window)
{
    QStringList faults;
    for (QWidget* widget : childrenOf<QWidget>(window)) {
        const QColor ground = widget->palette().color(widget->backgroundRole());
        if (!widget->isEnabled())
            continue;
        if (isText(*widget) && contrast(widget->palette().color(widget->foregroundRole()), ground) < 4.5)
            faults.append("text of " + nameOf(*widget));
        // The icon of the colour is a sample of it, whatever it is.
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        if (button && !button->icon().isNull() && button->text() != "Color"
            && contrastOf(button->icon().pixmap(button->iconSize()).toImage(), ground) < 3)
            faults.append("icon of " + nameOf(*widget));
    }
    return faults;
}

QPalette darkPalette()
{
    QPalette dark(QColor(53, 53, 53));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    return dark;
}

void addStops()
{
    QTest::addColumn<QByteArray>("stop");
    for (const QByteArray& stop : windowtour::stops())
        QTest::newRow(stop.constData()) << stop;
}

void judge(const QByteArray& stop, const judgement& judgement)
{
    QStringList faults;
    QVERIFY(windowtour::visit(stop, [&](QWidget& window) { faults = judgement(window); }));
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(", ")));
}

} // namespace

void tst_accessibility::everyControlHasASpokenName_data() { addStops(); }

void tst_accessibility::everyControlHasASpokenName()
{
    QFETCH(QByteArray, stop);
    judge(stop, nameless);
}

void tst_accessibility::everyButtonWithoutATextHasAToolTip_data() { addStops(); }

void tst_accessibility::everyButtonWithoutATextHasAToolTip()
{
    QFETCH(QByteArray, stop);
    judge(stop, withoutToolTip);
}

void tst_accessibility::theTabKeyVisitsEveryControl_data() { addStops(); }

void tst_accessibility::theTabKeyVisitsEveryControl()
{
    QFETCH(QByteArray, stop);
    judge(stop, unvisited);
}

void tst_accessibility::theTabKeyGoesInReadingOrder_data() { addStops(); }

void tst_accessibility::theTabKeyGoesInReadingOrder()
{
    QFETCH(QByteArray, stop);
    judge(stop, jumpsBack);
}

void tst_accessibility::nothingIsCutInLettersOfTwiceTheSize_data() { addStops(); }

void tst_accessibility::nothingIsCutInLettersOfTwiceTheSize()
{
    QFETCH(QByteArray, stop);
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(before.pointSizeF() * 2);
    QApplication::setFont(large);
    const auto reset = qScopeGuard([&before] { QApplication::setFont(before); });
    judge(stop, cutOff);
}

void tst_accessibility::textsAndIconsStandOut_data()
{
    QTest::addColumn<QByteArray>("stop");
    QTest::addColumn<QPalette>("palette");
    for (const QByteArray& stop : windowtour::stops()) {
        QTest::newRow(stop + " in light colours") << stop << QApplication::palette();
        QTest::newRow(stop + " in dark colours") << stop << darkPalette();
    }
}

void tst_accessibility::textsAndIconsStandOut()
{
    QFETCH(QByteArray, stop);
    QFETCH(QPalette, palette);
    const QPalette before = QApplication::palette();
    QApplication::setPalette(palette);
    const auto reset = qScopeGuard([&before] { QApplication::setPalette(before); });
    judge(stop, faint);
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    // The dialogs of the desktop cannot be looked into from here.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    tst_accessibility test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_accessibility.moc"
