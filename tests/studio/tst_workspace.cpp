// SPDX-License-Identifier: Apache-2.0
#include "studiotest.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/saving/LayoutWatch.h>

using namespace studio;
using studio::test::settle;

namespace {

QByteArray compact(const QJsonObject& layout)
{
    return QJsonDocument(layout).toJson(QJsonDocument::Compact);
}

QJsonObject read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                          : QJsonObject();
}

/// The names of the panels in a tree, in order.
QStringList panelsOf(const QJsonValue& node)
{
    const QString name = node[u"panel"].toString();
    QStringList panels = name.isEmpty() ? QStringList() : QStringList{name};
    for (const QJsonValue& child : node[u"children"].toArray()) {
        panels += panelsOf(child);
    }
    return panels;
}

struct OpenWindow : StudioWindow
{
    OpenWindow()
    {
        openFile(samplePaths().first());
        show();
        settle();
    }

    QJsonObject arrangement() { return workspace().layout(); }
    QJsonValue root() { return arrangement()[u"root"]; }
    DockableWindow& panel(const QString& id) { return *workspace().windowOf(id); }
};

/// The panels in their dock tree, and where they come back.
class WorkspaceTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:
    void aClosedPanelComesBackToItsPlace()
    {
        OpenWindow window;
        const QJsonValue before = window.root();
        const auto setOpen = [&window](const Workspace::Panel& panel, bool open) {
            window.workspace().setPanelOpen(panel.id, open);
            settle();
        };
        for (const Workspace::Panel& panel : window.workspace().panels()) {
            setOpen(panel, false);
            setOpen(panel, true);
            const QJsonValue after = window.root();
            QCOMPARE(panelsOf(after), panelsOf(before));
            QCOMPARE(after[u"children"].toArray().size(), before[u"children"].toArray().size());
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
            QCOMPARE(window.arrangement()[u"floating"].toArray().size(), 1);
        }
        QVERIFY(group->close());
        settle();
        QCOMPARE(window.arrangement()[u"closed"], (QJsonArray{u"layers"_qs, u"attributes"_qs}));
        window.workspace().setPanelOpen(u"layers"_qs, true);
        QCOMPARE(window.panel(u"layers"_qs).content(), list);
    }

    void theLayoutIsKeptFromOneWindowToTheNext()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"layout.json"_qs);
        QJsonObject before;
        {
            OpenWindow window;
            window.keepLayoutIn(path);
            const QSize screen = window.screen()->availableSize();
            QCOMPARE(window.size(), window.size().boundedTo(screen)); // whatever size is usual
            window.resize(760, 620);
            window.panel(u"viewport"_qs)
                .dockInArea(&window.panel(u"attributes"_qs), DockableArea::Center);
            window.panel(u"notDrawn"_qs).undock(true);
            window.panel(u"notDrawn"_qs).setGeometry(50, 60, 300, 200);
            window.workspace().setPanelOpen(u"transport"_qs, false);
            settle();
            before = window.arrangement();
            ui::test::FakeClock(window.findChild<LayoutWatch*>()).fireTimers(ui::kLayoutRest);
            QVERIFY(QFile::exists(path)); // without an end, which may never come
            window.player().setLooping(false);
        }
        {
            StudioWindow window; // shows the gallery, so that its panels never get a size
            window.setGalleryShown(true);
            window.keepLayoutIn(path);
            window.show();
            QVERIFY(window.close());
            QCOMPARE(read(path)[u"root"], before[u"root"]);
        }
        StudioWindow window;
        window.keepLayoutIn(path);
        window.show();
        settle();
        const QJsonObject after = window.workspace().layout();
        QCOMPARE(panelsOf(after[u"root"]), panelsOf(before[u"root"]));
        QCOMPARE(after[u"closed"], before[u"closed"]);
        if (window.screen()->availableSize().expandedTo({760, 620})
            == window.screen()->availableSize()) { // else it was made smaller
            QCOMPARE(window.size(), QSize(760, 620));
            QCOMPARE(compact(after), compact(before));
        }
        QVERIFY(window.notices().isEmpty() && !window.player().isLooping());
    }

    void aBadLayoutFileIsToldOnceAndReplaced()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(u"layout.json"_qs));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("{") == 1);
        file.close();
        OpenWindow window;
        const QJsonValue before = window.root();
        QSignalSpy failed(&window, &StudioWindow::failed);
        window.keepLayoutIn(file.fileName());
        QCOMPARE(failed.size(), 1);
        QCOMPARE(window.notices().texts().value(0), failed.first().first().toString());
        QCOMPARE(panelsOf(window.root()), panelsOf(before));
        QVERIFY(window.close() && !panelsOf(read(file.fileName())[u"root"]).isEmpty());
        QVERIFY(QFile::exists(file.fileName() + u".bad"_qs));
    }

    void aPanelThatALayoutDoesNotKnowComesToItsPlace()
    {
        OpenWindow window;
        QJsonObject former = window.arrangement();
        QByteArray json = QJsonDocument(former).toJson(QJsonDocument::Compact);
        QVERIFY(json.contains(",{\"panel\":\"attributes\",\"type\":\"panel\"}"));
        json.replace(",{\"panel\":\"attributes\",\"type\":\"panel\"}", "");
        window.workspace().setPanelOpen(u"attributes"_qs, false);
        settle();
        QCOMPARE(window.workspace().setLayout(json), QString());
        settle();
        QCOMPARE(panelsOf(window.root()), panelsOf(former[u"root"]));
    }

    void resetLayoutBringsTheDefaultBack()
    {
        OpenWindow window;
        const QJsonObject before = window.arrangement();
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
