#pragma once

class QMainWindow;
class QMenu;

/// The client's window and menu, of which its interface says nothing: they are found among the application's widgets.
namespace hostmenu {

/// Null as long as the client has none.
QMainWindow* findMainWindow();

/// The menu "Tools" of the window, whatever the client's language; null as long as the window or its menu bar is not
/// complete.
QMenu* findToolsMenu(const QMainWindow* window);

} // namespace hostmenu
