// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/tabs/TabBar.h>
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabItem.h>

#include <QtTest>
#include <QtWidgets>

#include <utility>

namespace ui::test {

/// What is dragged over a header, as the system tells.
struct Dragged
{
    explicit Dragged(const QByteArray& bytes, const QString& format = u"application/tab-reorder"_qs)
    {
        data.setData(format, bytes);
    }

    template <typename Event>
    bool send(QWidget* to, QPoint at)
    {
        Event event(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.setAccepted(false);
        QCoreApplication::sendEvent(to, &event);
        return event.isAccepted();
    }
    bool enter(QWidget* to, QPoint at) { return send<QDragEnterEvent>(to, at); }
    bool move(QWidget* to, QPoint at) { return send<QDragMoveEvent>(to, at); }
    bool drop(QWidget* to, QPoint at) { return send<QDropEvent>(to, at); }

    QMimeData data;
};

/// The middle of a tab, in its header.
inline QPoint middleOf(const TabBarHeader& header, int index)
{
    return header.tab(index)->mapTo(&header, header.tab(index)->rect().center());
}

/// A tab bar whose tabs and pages are named by number, and what it tells: "2:5" when index 2 is
/// current and page 5 in front, with an @ if the header tells of another index, "0>2:5" for a
/// move, "closed 5" for a tab. Its end fails the test when tabs and pages are out of step.
class TabBench : public QObject
{
public:
    explicit TabBench(int tabs = 0, bool withAddButton = false)
        : bar(*new TabBar(u"Documents"_qs, withAddButton))
        , header(*bar.getHeader())
        , alive(&bar)
    {
        connect(&bar, &TabBar::tabChanged, this, [this](int index) {
            m_told << u"%1:%2"_qs.arg(index).arg(pageName());
        });
        connect(&header, &TabBarHeader::indexChanged, this, [this] {
            if (!m_told.isEmpty()) {
                m_told.last() += u'@';
            }
        });
        connect(&header, &TabBarHeader::tabMoved, this, [this](int from, int to) {
            m_told << u"%1>%2:%3"_qs.arg(from).arg(to).arg(pageName());
        });
        add(tabs);
        told();
    }

    ~TabBench() override
    {
        if (alive && !fault().isEmpty()) {
            QTest::qFail(qPrintable(fault()), __FILE__, __LINE__);
        }
        delete alive.data();
    }

    void add(int tabs = 1)
    {
        for (const int last = m_next + tabs; m_next < last; ++m_next) {
            const QString name = QString::number(m_next);
            auto* const page = new QWidget;
            page->setObjectName(name);
            auto* const tab = new TabItem(name, &header);
            note(tab, &TabItem::closed, u"closed "_qs);
            note(tab, &TabItem::renamed, u"renamed "_qs);
            note(tab, &TabItem::deleted, u"deleted "_qs);
            tab->setObjectName(name);
            bar.addPage(tab, page);
        }
    }

    /// Steps apart by commas, as in "set 2, move 0 3": add NUMBER, set, remove, disable, hide
    /// INDEX, move FROM TO, clear, mirror, key KEYS, drop TAB OVER PIXELS (beside its middle, in
    /// reading direction).
    void play(const QString& steps)
    {
        using Step = void (*)(TabBench&, int, int);
        static const QHash<QString, Step> all{
            {u"add"_qs, [](TabBench& b, int tabs, int) { b.add(tabs); }},
            {u"set"_qs, [](TabBench& b, int i, int) { b.bar.setTab(i); }},
            {u"remove"_qs, [](TabBench& b, int i, int) { b.bar.removeTab(i); }},
            {u"disable"_qs, [](TabBench& b, int i, int) { b.bar.getTab(i)->setEnabled(false); }},
            {u"hide"_qs, [](TabBench& b, int i, int) { b.bar.getTab(i)->hide(); }},
            {u"move"_qs, [](TabBench& b, int from, int to) { b.header.moveTab(from, to); }},
            {u"clear"_qs, [](TabBench& b, int, int) { b.bar.clear(); }},
            {u"mirror"_qs,
             [](TabBench& b, int, int) { b.bar.setLayoutDirection(Qt::RightToLeft); }}};
        for (const QString& step : steps.split(u", "_qs)) {
            const QStringList words = step.split(u' ');
            if (words.first() == u"key") {
                const QKeyCombination keys = QKeySequence(words.at(1))[0];
                QTest::keyClick(&header, keys.key(), keys.keyboardModifiers());
            } else if (words.first() == u"drop") {
                drop(words.at(1), words.at(2).toInt(), words.at(3).toInt());
            } else {
                all[words.first()](*this, words.value(1).toInt(), words.value(2).toInt());
            }
        }
    }

    void drop(const QString& tab, int over, int beside)
    {
        layOut();
        const bool mirrored = bar.layoutDirection() == Qt::RightToLeft;
        const QPoint at = middleOf(header, over) + QPoint(mirrored ? -beside : beside, 0);
        Dragged dragged(tab.toLatin1());
        QVERIFY(dragged.enter(&header, {1, 1}) && dragged.move(&header, at));
        QVERIFY(dragged.drop(&header, at));
    }

    void show()
    {
        bar.resize(500, 200);
        bar.show();
        QApplication::setActiveWindow(&bar);
        QVERIFY(QTest::qWaitForWindowExposed(&bar));
        layOut();
    }

    static void layOut()
    {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        }
    }

    static void processDeletions()
    {
        for (int i = 0; i < 2; ++i) { // tabs, then their pages
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    QString pageName() { return bar.currentPage() ? bar.currentPage()->objectName() : QString(); }

    QString texts()
    {
        QStringList all;
        for (int i = 0; i < bar.count(); ++i) {
            all << bar.getTab(i)->text();
        }
        return all.join(u' ');
    }

    /// Since it was asked last.
    QString told() { return std::exchange(m_told, {}).join(u' '); }

    /// Everything that must hold whatever was done; empty, or what does not.
    QString fault()
    {
        QString faults;
        for (int i = 0; i < bar.count(); ++i) {
            const TabItem& tab = *bar.getTab(i);
            const QWidget* const page = bar.getPage(i);
            const bool paired = page && page->objectName() == tab.objectName();
            if (tab.index() != i || tab.isActive() != (i == bar.activeTab()) || !paired) {
                faults += u" tab %1"_qs.arg(i);
            }
        }
        const QWidget* const front = bar.findChild<QStackedWidget*>()->currentWidget();
        return front->objectName() == pageName() ? faults : faults + u" front"_qs;
    }

    TabBar& bar;
    TabBarHeader& header;
    QPointer<TabBar> alive;

private:
    void note(TabItem* tab, void (TabItem::*signal)(), const QString& what)
    {
        connect(tab, signal, this, [this, tab, what] { m_told << what + tab->text(); });
    }

    QStringList m_told;
    int m_next = 0;
};

} // namespace ui::test
