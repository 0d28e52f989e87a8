#pragma once

#include "tests/support/whenopen.h"

#include <QIcon>
#include <QStringList>

class QAction;
class QToolBar;
class QToolButton;
class sessionfixture;
class ts3filedialog;
class whiteboard;

// The parts of a window as the user finds them, by their place and their texts; none of them has an object name.

QToolBar* actionBar(whiteboard* window);
QToolBar* toolBar(whiteboard* window);
QList<QToolButton*> toolButtons(whiteboard* window);
/// By the start of the tool tip; null when there is none.
QToolButton* toolButton(whiteboard* window, const QByteArray& toolTip);
QAction* action(whiteboard* window, const QByteArray& text);
/// A click of the mouse on the button of an action, and what comes of it: dialogs are opened by a queued call.
void click(whiteboard* window, const QByteArray& text);

/// The nicknames in the list of participants, and the icon of one.
QStringList rows(whiteboard* window);
QIcon rowIcon(whiteboard* window, int row);
bool isIcon(const QIcon& icon, const char* path);

/// Whether the canvas of a session's window is as large as the fixture's sessions, and white all over.
bool isWhite(whiteboard* window);

/// One drag over the canvas of three positions: 40|40, 60|50, 80|60.
void drag(whiteboard* window);

/// Walks the file dialog of the next upload into the first channel, there into a directory unless it is empty, and
/// accepts a name. To be kept until the upload was asked for.
[[nodiscard]] whenopen<ts3filedialog> chooseUpload(sessionfixture* fixture, const QString& name,
                                                   const QString& directory = QString());

/// Counts what the toolkit complains of, as long as it lives: the length of a test, since each starts with a handler
/// of its own.
class warningcounter {
public:
    warningcounter();
    ~warningcounter();
    warningcounter(const warningcounter&) = delete;
    warningcounter& operator=(const warningcounter&) = delete;

    int count() const;
};
