#pragma once

#include <MorrantUI/docking/tabs/TabBar.h>
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabItem.h>

#include <QApplication>
#include <QStackedWidget>
#include <QTest>

#include <utility>

namespace ui::test {

/// A tab bar whose tabs and pages are named by number, and what it tells: "2:5" when index 2 is
/// current and page 5 in front, "0>2:5" for a move, "closed 5" for a tab.
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
        connect(&header, &TabBarHeader::tabMoved, this, [this](int from, int to) {
            m_told << u"%1>%2:%3"_qs.arg(from).arg(to).arg(pageName());
        });
        add(tabs);
        told();
    }

    ~TabBench() override { delete alive.data(); }

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
            bar.addPage(tab, page);
        }
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

    QString pageName()
    {
        return bar.currentPage() != nullptr ? bar.currentPage()->objectName() : QString();
    }

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

    /// A tab's rectangle in the header.
    QRect place(int index)
    {
        TabItem* const tab = bar.getTab(index);
        return {tab->mapTo(&header, QPoint(0, 0)), tab->size()};
    }

    /// Everything that must hold whatever was done; empty, or what does not.
    QString fault()
    {
        QString faults;
        for (int i = 0; i < bar.count(); ++i) {
            const TabItem* const tab = bar.getTab(i);
            const QWidget* const page = bar.getPage(i);
            if (tab->index() != i || tab->isActive() != (i == bar.activeTab()) || page == nullptr
                || page->objectName() != tab->text())
            {
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
