// SPDX-License-Identifier: Apache-2.0
#include "docktrees.h"

#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/DockableTabGroup.h>

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

#include <cmath>
#include <cstdint>
#include <random>

namespace ui::bench {

namespace {

constexpr QSize kWindow(1600, 1000); // logical pixels, for kPanels
constexpr int kLabels = 20;          // in each panel
constexpr int kHandle = 6;           // logical pixels, as in our tree, whatever the style's

QString contentName()
{
    return QStringLiteral("content");
}

QSize windowFor(std::size_t panels)
{
    return kWindow * std::sqrt(static_cast<double>(panels) / static_cast<double>(kPanels));
}

QWidget* makeContent()
{
    auto* content = new QWidget;
    content->setObjectName(contentName());
    auto* rows = new QVBoxLayout(content);
    for (int i = 0; i < kLabels; ++i) {
        auto* label = new QLabel(QStringLiteral("Label %1").arg(i));
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        rows->addWidget(label);
    }
    return content;
}

QString titleOf(std::size_t panel)
{
    return QStringLiteral("Panel %1").arg(panel);
}

class OurTree final : public Tree
{
public:
    OurTree(Shape shape, std::size_t panels)
    {
        gMainWindow = &m_root;
        m_root.setAttribute(Qt::WA_DeleteOnClose, false);
        m_root.resize(windowFor(panels));
        for (std::size_t i = 0; i < panels; ++i) {
            auto* panel = new DockableWindow(makeContent());
            panel->setText(titleOf(i));
            m_panels.push_back(panel);
            place(i, shape);
        }
        m_root.show();
        drain();
    }
    ~OurTree() override { gMainWindow = nullptr; }

    QWidget& window() override { return m_root; }
    void undock(std::size_t panel) override { m_panels[panel]->undock(true); }
    void dock(std::size_t panel, std::size_t target, DockableArea area) override
    {
        DockableWindow* at = m_panels[target];
        auto* tabs = qobject_cast<DockableTabGroup*>(at->findDockableParentGroup());
        if (tabs && area == DockableArea::Center) {
            at = tabs; // as the pointer finds it
        }
        at->dockInArea(m_panels[panel], area);
    }
    void switchTabs(int index) override
    {
        for (DockableTabGroup* group : m_groups) {
            group->setActiveIndex(index);
        }
    }

private:
    void place(std::size_t i, Shape shape)
    {
        if (i == 0 || shape == Shape::Flat) {
            m_root.dockInArea(m_panels[i], DockableArea::Right);
        } else if (shape == Shape::Splits) {
            dock(i, targetOf(i, shape), areaOf(i, shape));
        }
        if (shape == Shape::Tabs) {
            if (i % kTabsInGroup == 0) {
                m_groups.push_back(new DockableTabGroup);
                m_root.dockInArea(m_groups.back(), DockableArea::Right);
            }
            m_groups.back()->appendChild(m_panels[i]);
        }
    }

    DockableGroup m_root;
    std::vector<DockableWindow*> m_panels;
    std::vector<DockableTabGroup*> m_groups;
};

class BareTree final : public Tree
{
public:
    BareTree(Shape shape, std::size_t panels)
        : m_root(makeSplitter(Qt::Horizontal))
    {
        // It makes native children for a moment, of which the off-screen platform complains.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        auto* layout = new QVBoxLayout(&m_window);
        layout->setContentsMargins(kHandle, kHandle, kHandle, kHandle);
        layout->addWidget(m_root);
        m_window.resize(windowFor(panels));
        for (std::size_t i = 0; i < panels; ++i) {
            m_panels.push_back(makePanel(i, shape));
            place(i, shape);
        }
        m_window.show();
        drain();
    }

    QWidget& window() override { return m_window; }
    void undock(std::size_t number) override
    {
        QWidget* panel = m_panels[number];
        QTabWidget* tabs = tabsOf(panel);
        auto* from = qobject_cast<QSplitter*>(panel->parentWidget());
        if (!tabs && !from) {
            return;
        }
        const QPoint position = panel->mapToGlobal(QPoint());
        panel->setParent(&m_window, Qt::Window);
        panel->move(position);
        panel->show();
        if (tabs && tabs->count() < 2) {
            QWidget* last = tabs->widget(0);
            dissolve(*tabs, last);
            if (last) {
                last->show();
            }
        } else if (from && from->count() < 2) {
            dissolve(*from, from->widget(0));
        }
    }
    void dock(std::size_t number, std::size_t targetNumber, DockableArea area) override
    {
        QWidget* target = m_panels[targetNumber];
        if (QTabWidget* tabs = tabsOf(target)) {
            tabs->setCurrentIndex(tabs->addTab(m_panels[number], titleOf(number)));
            return;
        }
        auto* parent = qobject_cast<QSplitter*>(target->parentWidget());
        if (!parent) {
            return;
        }
        const QList<int> sizes = parent->sizes();
        const int index = parent->indexOf(target);
        if (area == DockableArea::Center) {
            auto* tabs = new QTabWidget;
            tabs->addTab(target, titleOf(targetNumber));
            tabs->setCurrentIndex(tabs->addTab(m_panels[number], titleOf(number)));
            parent->insertWidget(index, tabs);
            parent->setSizes(sizes);
            return;
        }
        QSplitter* splitter =
            makeSplitter(ui::docking::isVertical(area) ? Qt::Vertical : Qt::Horizontal);
        splitter->addWidget(target);
        splitter->insertWidget(ui::docking::insertIndex(area), m_panels[number]);
        parent->insertWidget(index, splitter);
        m_panels[number]->show();
        parent->setSizes(sizes);
    }
    void switchTabs(int index) override
    {
        for (QTabWidget* group : m_groups) {
            group->setCurrentIndex(index);
        }
    }

private:
    static QSplitter* makeSplitter(Qt::Orientation orientation)
    {
        auto* splitter = new QSplitter(orientation);
        splitter->setChildrenCollapsible(false);
        splitter->setHandleWidth(kHandle);
        return splitter;
    }
    static QTabWidget* tabsOf(QWidget* panel)
    {
        QWidget* stack = panel->parentWidget();
        return stack ? qobject_cast<QTabWidget*>(stack->parentWidget()) : nullptr;
    }
    /// Gives the place of splitter or tabs to what is left in it, if anything is.
    static void dissolve(QWidget& holder, QWidget* last)
    {
        auto* above = qobject_cast<QSplitter*>(holder.parentWidget());
        if (!above) {
            return;
        }
        const QList<int> sizes = above->sizes();
        const int index = above->indexOf(&holder);
        holder.setParent(nullptr);
        if (last) {
            above->insertWidget(index, last);
            above->setSizes(sizes);
        }
        holder.deleteLater();
    }
    /// With a row for its title, unless a tab has that.
    static QWidget* makePanel(std::size_t i, Shape shape)
    {
        auto* panel = new QWidget;
        auto* rows = new QVBoxLayout(panel);
        rows->setContentsMargins(0, 0, 0, 0);
        rows->setSpacing(0);
        if (shape != Shape::Tabs) {
            rows->addWidget(new QLabel(titleOf(i)));
        }
        rows->addWidget(makeContent(), 1);
        return panel;
    }
    void place(std::size_t i, Shape shape)
    {
        if (shape == Shape::Tabs) {
            if (i % kTabsInGroup == 0) {
                m_groups.push_back(new QTabWidget);
                m_root->addWidget(m_groups.back());
            }
            m_groups.back()->addTab(m_panels[i], titleOf(i));
        } else if (i == 0 || shape == Shape::Flat) {
            m_root->addWidget(m_panels[i]);
        } else {
            dock(i, targetOf(i, shape), areaOf(i, shape));
        }
    }

    QWidget m_window;
    QSplitter* m_root;
    std::vector<QWidget*> m_panels;
    std::vector<QTabWidget*> m_groups;
};

} // namespace

std::unique_ptr<Tree> makeOurTree(Shape shape, std::size_t panels)
{
    return std::make_unique<OurTree>(shape, panels);
}

std::unique_ptr<Tree> makeBareTree(Shape shape, std::size_t panels)
{
    return std::make_unique<BareTree>(shape, panels);
}

void setLabelGaps(QWidget& window, int margin, int gap)
{
    for (QWidget* content : window.findChildren<QWidget*>(contentName())) {
        content->layout()->setContentsMargins(margin, margin, margin, margin);
        content->layout()->setSpacing(gap);
    }
}

std::vector<Move> seededMoves(unsigned seed, Shape shape, std::size_t panels, std::size_t count)
{
    std::mt19937 random(seed);
    std::vector<Move> moves;
    while (moves.size() < count) {
        const std::uint32_t bits = random();
        const Move move{
            bits % panels,
            (bits >> 8U) % panels,
            shape == Shape::Tabs ? DockableArea::Center
                                 : static_cast<DockableArea>(1 + (bits >> 16U) % 4)};
        if (move.panel != move.target) {
            moves.push_back(move);
        }
    }
    return moves;
}

ContentEvents::ContentEvents()
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool ContentEvents::eventFilter(QObject* watched, QEvent* event)
{
    const bool counts = event->type() == QEvent::Resize || event->type() == QEvent::Paint;
    if (counts && watched->isWidgetType() && watched->objectName() == contentName()) {
        event->type() == QEvent::Resize ? ++resizes : ++paints;
    }
    return false;
}

std::size_t targetOf(std::size_t panel, Shape shape)
{
    const std::size_t inGroup = panel % kTabsInGroup;
    if (shape == Shape::Tabs) {
        return inGroup == 0 ? 0 : panel - inGroup;
    }
    return panel / 2;
}

DockableArea areaOf(std::size_t panel, Shape shape)
{
    if (shape == Shape::Tabs && panel % kTabsInGroup != 0) {
        return DockableArea::Center;
    }
    return panel % 2 == 0 ? DockableArea::Right : DockableArea::Bottom;
}

void drain()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace ui::bench
