// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "docking/DockTree.h"

#include <QtTest>
#include <QtWidgets>

namespace ui::test {

/// Panels with two fields each, named "a1" and "a2" after the panel's title; in the main window
/// H(a T(b c) d) with b in front, and e floats.
class Desk : public DockTree
{
public:
    Desk()
        : DockTree(u"H()"_qs)
    {
        play(
            u"dock a root right, dock b root right, dock d root right, dock c b center, select b"_qs);
        root().setSizes({196, 196, 196});
        rowOfTabs = tabs("^b");
        e->move(700, 50);
        e->show();
        settle();
        focus(u"a1"_qs);
    }

    static void addFields(DockableWindow& panel)
    {
        auto* column = new QVBoxLayout(panel.content());
        for (const QChar number : u"12"_qs) {
            auto* field = new QLineEdit(panel.content());
            field->setObjectName(panel.getText() + number);
            column->addWidget(field);
        }
    }

    /// One that floats, hidden.
    static DockableWindow* panelWithFields(const QString& title)
    {
        DockableWindow* made = panel(title);
        addFields(*made);
        return made;
    }

    /// As a click on a field does.
    void focus(const QString& name)
    {
        auto* field = root().findChild<QWidget*>(name);
        field->window()->activateWindow();
        field->setFocus(Qt::MouseFocusReason);
        QTRY_COMPARE(focused(), name);
    }

    /// The name of what has the focus; in brackets the class of what has none.
    static QString focused()
    {
        const QWidget* widget = QApplication::focusWidget();
        if (!widget) {
            return u"nothing"_qs;
        }
        const QString name = widget->objectName();
        return name.isEmpty() ? u"(%1)"_qs.arg(QLatin1String(widget->metaObject()->className()))
                              : name;
    }

    /// Presses a key where the keyboard is.
    static void press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QTRY_VERIFY(QGuiApplication::focusWindow());
        QTest::keyClick(QGuiApplication::focusWindow(), key, held);
    }

    DockableWindow* a = panelWithFields(u"a"_qs);
    DockableWindow* b = panelWithFields(u"b"_qs);
    DockableWindow* c = panelWithFields(u"c"_qs);
    DockableWindow* d = panelWithFields(u"d"_qs);
    DockableWindow* e = panelWithFields(u"e"_qs);
    DockableTabGroup* rowOfTabs = nullptr;
};

} // namespace ui::test
