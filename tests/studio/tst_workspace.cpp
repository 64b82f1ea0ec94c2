// SPDX-License-Identifier: Apache-2.0
#include "studiotest.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/saving/LayoutWatch.h>

using namespace studio;
using studio::test::settle;

/// The studio's panels in their workspace.
class StudioWorkspaceTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:
    void theStudioWorksWithoutAnyPanelAndKeepsItsLayout()
    {
        StudioWindow window;
        window.openFile(samplePaths().first());
        window.show();
        settle();
        Workspace& workspace = window.workspace();
        const QByteArray before = workspace.layout();
        DockableWindow& layers = *workspace.windowOf(u"layers"_qs);
        layers.undock(true);
        window.setGalleryShown(true);
        QVERIFY(!layers.isVisible());
        window.setGalleryShown(false);
        for (const QString& id : workspace.panels()) {
            workspace.setPanelOpen(id, false);
            settle();
            QVERIFY(window.openFile(samplePaths().last()));
            window.selectLayer(0);
            window.player().step(1);
        }
        for (QAction* action : window.findChildren<QAction*>()) {
            if (action->text() == u"&Reset Layout"_qs) {
                action->trigger();
            }
        }
        settle();
        QCOMPARE(workspace.layout(), before);

        const QTemporaryDir folder;
        const QString path = folder.filePath(u"layout.json"_qs);
        window.keepLayoutIn(path);
        workspace.setPanelOpen(u"transport"_qs, false);
        window.player().setLooping(false);
        ui::test::FakeClock(window.findChild<LayoutWatch*>()).fireTimers(ui::kLayoutRest);
        StudioWindow next;
        next.keepLayoutIn(path);
        QVERIFY(!next.workspace().isPanelOpen(u"transport"_qs));
        QVERIFY(next.notices().isEmpty() && !next.player().isLooping());
    }
};

const ui::test::Registration<StudioWorkspaceTest> kRegistration;

#include "tst_workspace.moc"
