#pragma once

#include "docking/DockTree.h"
#include <MorrantUI/docking/DockableTabGroup.h>

#include <QtTest>
#include <QtWidgets>

#include <functional>

namespace ui::test {

/// Panels with two fields each, named "a1" and "a2" after the panel's title; in the main window
/// H(a T(b c) d) with b in front, and e floats.
class Desk
{
public:
    Desk()
    {
        root.dockInArea(a, DockableArea::Right);
        root.dockInArea(b, DockableArea::Right);
        root.dockInArea(d, DockableArea::Right);
        b->dockInArea(c, DockableArea::Center);
        tabs = qobject_cast<DockableTabGroup*>(b->findDockableParentGroup());
        tabs->setActiveIndex(0);
        tree.show();
        e->move(700, 50);
        e->show();
        focus(QStringLiteral("a1"));
    }

    static DockableWindow* panel(const QString& title)
    {
        auto* content = new QWidget;
        auto* column = new QVBoxLayout(content);
        for (const QString& number : {QStringLiteral("1"), QStringLiteral("2")}) {
            auto* field = new QLineEdit(content);
            field->setObjectName(title + number);
            column->addWidget(field);
        }
        auto* window = new DockableWindow(content);
        window->setText(title);
        window->resize(120, 100);
        return window;
    }

    /// As a click on a field does.
    void focus(const QString& name)
    {
        auto* field = root.findChild<QWidget*>(name);
        field->window()->activateWindow();
        field->setFocus(Qt::MouseFocusReason);
        QTRY_COMPARE(focused(), name);
    }

    /// The name of what has the focus; in brackets the class of what has none.
    static QString focused()
    {
        const QWidget* widget = QApplication::focusWidget();
        if (!widget) {
            return QStringLiteral("nothing");
        }
        const QString name = widget->objectName();
        return name.isEmpty()
                   ? QStringLiteral("(%1)").arg(QLatin1String(widget->metaObject()->className()))
                   : name;
    }

    /// Presses a key where the keyboard is.
    static void press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QTRY_VERIFY(QGuiApplication::focusWindow());
        QTest::keyClick(QGuiApplication::focusWindow(), key, held);
    }

    DockTree tree;
    DockableGroup& root = tree.root();
    DockableWindow* a = panel(QStringLiteral("a"));
    DockableWindow* b = panel(QStringLiteral("b"));
    DockableWindow* c = panel(QStringLiteral("c"));
    DockableWindow* d = panel(QStringLiteral("d"));
    DockableWindow* e = panel(QStringLiteral("e"));
    DockableTabGroup* tabs = nullptr;
};

/// The menu that opens meanwhile, which is then left by Escape.
struct SeenMenu
{
    QStringList texts;
    QPoint place;
};

inline SeenMenu menuDuring(const std::function<void()>& action)
{
    SeenMenu seen;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, qApp, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu && menu->isVisible()) {
            seen.place = menu->pos();
            for (const QAction* entry : menu->actions()) {
                seen.texts << entry->text();
            }
            QTest::keyClick(menu, Qt::Key_Escape);
        }
    });
    timer.start(0);
    action();
    settle();
    return seen;
}

} // namespace ui::test
