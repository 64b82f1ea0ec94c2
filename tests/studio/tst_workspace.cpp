#include "layout/layoutjson.h"
#include "studiotest.h"
#include <MorrantUI/docking/DockableGroup.h>

#include <QFile>
#include <QRandomGenerator>
#include <QScreen>

using namespace studio;
using studio::test::settle;

namespace {

/// Five empty panels, "a" to "e", in a workspace of its own.
struct FivePanels
{
    explicit FivePanels(const Layout& layout)
    {
        for (const QString& id : ids) {
            auto* content = new QWidget;
            content->setWindowTitle(id.toUpper());
            content->setMinimumSize(8, 8);
            workspace.addPanel(id, content);
        }
        workspace.setDefaultLayout({});
        workspace.resize(700, 500);
        workspace.setLayout(layout);
        workspace.show();
        settle();
    }

    /// What the user might do next.
    void act(QRandomGenerator& random)
    {
        const QString id = ids.at(random.bounded(ids.size()));
        const QString otherId = ids.at(random.bounded(ids.size()));
        DockableWindow* window = workspace.windowOf(id);
        DockableWindow* other = workspace.windowOf(otherId);
        const auto area = static_cast<DockableArea>(random.bounded(1, 6));
        if (window == nullptr || other == nullptr) {
            workspace.setPanelOpen(id, true);
        } else if (random.bounded(6) == 0) {
            workspace.setPanelOpen(id, false);
        } else if (random.bounded(5) == 0) {
            window->undock(true);
            window->setGeometry(random.bounded(1, 300), random.bounded(1, 300), 250, 200);
        } else if (random.bounded(4) == 0) {
            workspace.root().dockInArea(window, area);
        } else {
            other->dockInArea(window, area);
        }
        settle();
    }

    const QStringList ids{u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs, u"e"_qs};
    Workspace workspace;
};

QByteArray compact(const Layout& layout)
{
    return layoutJson(layout).simplified().replace(' ', "");
}

/// What lies behind other tabs is laid out when it comes to the front, in whatever room there is
/// then.
void forgetSizesBehind(LayoutNode& node, bool isBehind = false)
{
    if (isBehind) {
        node.sizes.clear();
    }
    for (std::size_t i = 0; i < node.children.size(); ++i) {
        const bool isTab = node.kind == LayoutNode::Kind::Tabs;
        forgetSizesBehind(node.children[i], isBehind || (isTab && int(i) != node.active));
    }
}

Layout shown(Layout layout)
{
    forgetSizesBehind(layout.root);
    for (FloatingWindow& window : layout.floating) {
        forgetSizesBehind(window.root);
        window.geometry.moveTo(0, 0); // where a frame lets it
    }
    return layout;
}

struct OpenWindow : StudioWindow
{
    OpenWindow()
    {
        openFile(samplePaths().first());
        show();
        settle();
    }

    Layout arrangement() { return workspace().layout(); }
    DockableWindow& panel(const QString& id) { return *workspace().windowOf(id); }
};

/// The panels in their dock tree, and where they come back.
class WorkspaceTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:

    void anyArrangementComesBackAsItWas()
    {
        for (quint32 seed = 1; seed <= 40; ++seed) {
            QRandomGenerator random(seed);
            Layout before;
            {
                FivePanels panels({});
                for (int i = 0; i < 12; ++i) {
                    panels.act(random);
                }
                before = fitted(panels.workspace.layout(), panels.ids);
                for (FloatingWindow& window : before.floating) { // as they come back
                    const QRect screen = panels.workspace.screen()->availableGeometry();
                    window.geometry = within(window.geometry, screen);
                }
            }
            const LayoutResult read = readLayout(layoutJson(before));
            QVERIFY2(read, qPrintable(read.error));
            FivePanels panels(*read.layout);
            const auto after = [&panels] {
                return shown(fitted(panels.workspace.layout(), panels.ids));
            };
            const auto difference = [&] {
                return QByteArray::number(seed) + ": " + compact(before) + compact(after());
            };
            QVERIFY2(after() == shown(before), difference());
            panels.act(random);
            panels.workspace.setLayout(*read.layout); // now that all have their sizes
            settle();
            QVERIFY2(after() == shown(before), difference());
        }
    }

    void aClosedPanelComesBackToItsPlace()
    {
        OpenWindow window;
        const LayoutNode before = window.arrangement().root;
        const auto setOpen = [&window](const Workspace::Panel& panel, bool open) {
            window.workspace().setPanelOpen(panel.id, open);
            settle();
        };
        for (const Workspace::Panel& panel : window.workspace().panels()) {
            setOpen(panel, false);
            setOpen(panel, true);
            const LayoutNode after = window.arrangement().root;
            QCOMPARE(panelsOf(after), panelsOf(before));
            QCOMPARE(after.children.size(), before.children.size());
        }
        for (const bool open : {false, true}) {
            for (const Workspace::Panel& panel : window.workspace().panels()) {
                setOpen(panel, open);
                QCOMPARE(panel.content->isVisible(), open);
            }
            QVERIFY(window.openFile(samplePaths().last())); // without any panel as well
            window.selectLayer(0);
            window.player().step(1);
        }
        for (const auto* group : gMainWindow->findChildren<DockableGroup*>()) {
            QVERIFY(group->childCount() > 1); // nothing is left in an empty band
        }
    }

    void aFloatingGroupHidesWithTheWorkspaceAndKeepsItsPanelsWhenClosed()
    {
        OpenWindow window;
        QWidget* const list = window.panel(u"layers"_qs).content();
        window.panel(u"attributes"_qs).undock(true);
        DockableWindow* group = window.panel(u"attributes"_qs)
                                    .dockInArea(&window.panel(u"layers"_qs), DockableArea::Center);
        for (const bool gallery : {true, false}) {
            window.setGalleryShown(gallery);
            QCOMPARE(group->isVisible(), !gallery);
            QCOMPARE(window.arrangement().floating.size(), std::size_t(1));
        }
        QVERIFY(group->close());
        settle();
        QCOMPARE(window.arrangement().closed, (QStringList{u"layers"_qs, u"attributes"_qs}));
        window.workspace().setPanelOpen(u"layers"_qs, true);
        QCOMPARE(window.panel(u"layers"_qs).content(), list);
    }

    void theLayoutIsKeptFromOneWindowToTheNext()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"layout.json"_qs);
        Layout before;
        {
            OpenWindow window;
            window.keepLayoutIn(path);
            window.resize(760, 620);
            window.panel(u"viewport"_qs)
                .dockInArea(&window.panel(u"attributes"_qs), DockableArea::Center);
            window.panel(u"notDrawn"_qs).undock(true);
            window.panel(u"notDrawn"_qs).setGeometry(50, 60, 300, 200);
            window.workspace().setPanelOpen(u"transport"_qs, false);
            settle();
            before = window.arrangement();
            QVERIFY(!QFile::exists(path));
            QVERIFY(window.close());
        }
        const QStringList all =
            panelsOf(before.root) + QStringList{u"notDrawn"_qs, u"transport"_qs};
        {
            StudioWindow window; // shows the gallery, so that its panels never get a size
            window.setGalleryShown(true);
            window.keepLayoutIn(path);
            window.show();
            QVERIFY(window.close());
            QCOMPARE(readLayoutFile(path).layout->root, fitted(before, all).root);
        }
        StudioWindow window;
        window.keepLayoutIn(path);
        window.show();
        settle();
        const Layout after = window.workspace().layout();
        QCOMPARE(panelsOf(after.root), panelsOf(before.root));
        QCOMPARE(after.closed, before.closed);
        if (window.screen()->availableSize().expandedTo({760, 620})
            == window.screen()->availableSize()) { // else it was made smaller
            QCOMPARE(window.size(), QSize(760, 620));
            QCOMPARE(compact(after), compact(fitted(before, all)));
        }
        QVERIFY(window.notices().isEmpty());
    }

    void aBadLayoutFileIsToldOnceAndReplaced()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(u"layout.json"_qs));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("{") == 1);
        file.close();
        OpenWindow window;
        const Layout before = window.arrangement();
        QSignalSpy failed(&window, &StudioWindow::failed);
        window.keepLayoutIn(file.fileName());
        QCOMPARE(failed.size(), 1);
        QCOMPARE(window.notices().texts().value(0), failed.first().first().toString());
        QCOMPARE(panelsOf(window.arrangement().root), panelsOf(before.root));
        QVERIFY(window.close());
        QVERIFY(readLayoutFile(file.fileName()));
        QVERIFY(QFile::exists(file.fileName() + u".bad"_qs));
    }

    void resetLayoutBringsTheDefaultBack()
    {
        OpenWindow window;
        const Layout before = window.arrangement();
        window.panel(u"viewport"_qs).undock(true);
        window.workspace().setPanelOpen(u"layers"_qs, false);
        gMainWindow->dockInArea(&window.panel(u"attributes"_qs), DockableArea::Top);
        settle();
        QVERIFY(window.arrangement() != before);
        for (QAction* action : window.findChildren<QAction*>()) {
            if (action->text() == u"&Reset Layout"_qs) {
                action->trigger();
            }
        }
        settle();
        QCOMPARE(compact(window.arrangement()), compact(before));
    }
};

const ui::test::Registration<WorkspaceTest> kRegistration;
} // namespace

#include "tst_workspace.moc"
