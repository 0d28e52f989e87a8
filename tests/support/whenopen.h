#pragma once

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <functional>

/// Plays the user of a modal window: as soon as a window of the class is the topmost modal one, act is called with it,
/// once, from inside the window's own event loop. In act, QTRY_... and further objects of this kind work. Should act
/// end by a failed check, the window is closed, so that the test ends. Made before the call that opens the window, and
/// kept until after it:
///
///     const whenopen<QMessageBox> user([](QMessageBox &box) { box.button(QMessageBox::Yes)->click(); });
///     callThatAsks();
///     QVERIFY(user.ran());
template <typename Window> class whenopen {
public:
    explicit whenopen(std::function<void(Window&)> act)
    {
        QObject::connect(&poll, &QTimer::timeout, &poll, [this, act] {
            const QPointer<Window> window(qobject_cast<Window*>(QApplication::activeModalWidget()));
            if (!window || !window->isVisible())
                return;
            poll.stop();
            acted = true;
            act(*window);
            if (window && QTest::currentTestFailed())
                window->close();
        });
        poll.start(1);
    }

    /// Whether the window came up.
    bool ran() const { return acted; }

private:
    QTimer poll;
    bool acted = false;
};
