#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>
#include <vector>

class ContextMenu;
class QAction;
class QMenu;
class QPoint;
class QWidget;

namespace studio {

/// Something the user can do.
struct Command
{
    QString text;
    QString icon; ///< name among the icons; may be empty
    QList<QKeySequence> keys;
    std::function<void()> run;
};

/// Adds actions that name their first key in their tool tips and answer their keys in every window
/// of the application.
QList<QAction*> addCommands(QMenu& menu, const std::vector<Command>& commands);

/// A text as a row of a menu shows it: there "&" has a meaning.
QString menuText(QString text);
/// The text of a row as it is read, without what marks its key.
QString plainText(const QString& menuText);

/// Adds the rows of a menu that opens at a point of the widget.
using FillMenu = std::function<void(ContextMenu& menu, QPoint point)>;

/// Gives a widget a context menu: by the right button, the Menu key and Shift+F10, also in what
/// lies in it and has none of its own. A menu without rows does not open.
void offerContextMenu(QWidget& widget, FillMenu fill);

} // namespace studio
