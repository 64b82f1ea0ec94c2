// SPDX-License-Identifier: Apache-2.0
#include "docking/DockTree.h"
#include "docking/FuzzedPanel.h"
#include "support/TestCase.h"
#include <MorrantUI/docking/arrangement.h>
#include <MorrantUI/docking/saving/LayoutFile.h>
#include <MorrantUI/docking/saving/LayoutWatch.h>
#include <MorrantUI/docking/saving/Workspace.h>
#include <MorrantUI/docking/saving/savedlayouts.h>
#include <MorrantUI/documents/savedfiles.h>

using ui::test::settle;

namespace {

/// Two columns, of which the left one has tabs, above a bar.
const QByteArray kDefault = QByteArrayLiteral(
    R"({"version":1,"root":{"type":"group","orientation":"vertical","children":[)"
    R"({"type":"group","orientation":"horizontal","sizes":[200,400],"children":[)"
    R"({"type":"tabGroup","active":0,"children":[{"type":"panel","panel":"layers"},)"
    R"({"type":"panel","panel":"notes"}]},{"type":"panel","panel":"view"}]},)"
    R"({"type":"panel","panel":"bar"}]}})");

/// Of a program that did not know "notes".
const QByteArray kFormer =
    QByteArrayLiteral(R"({"version":1,"closed":["bar"],"root":{"type":"group","children":[)"
                      R"({"type":"panel","panel":"view"},{"type":"panel","panel":"layers"}]}})");

struct Host : QWidget
{
    Host()
    {
        gMainWindow = &panels.root();
        for (const QString& id : {u"layers"_qs, u"notes"_qs, u"view"_qs, u"bar"_qs}) {
            auto* content = new QWidget;
            content->setMinimumSize(50, 20);
            content->setWindowTitle(u"The &"_qs + id);
            panels.addPanel(
                id, content, id == u"bar" ? Workspace::Kind::Bar : Workspace::Kind::Panel);
        }
        panels.setDefaultLayout(kDefault);
        panels.reset();
        (new QVBoxLayout(this))->addWidget(&panels);
        resize(640, 480);
    }

    void open()
    {
        show();
        settle();
    }
    DockableWindow& window(const QString& id) { return *panels.windowOf(id); }
    void setOpen(const QString& id, bool open)
    {
        panels.setPanelOpen(id, open);
        settle();
    }
    /// In the order of the tree, then those that float.
    static QString order()
    {
        QStringList names;
        for (const DockableWindow* panel : ui::allPanels()) {
            names.append(panel->objectName());
        }
        return names.join(u' ');
    }

    Workspace panels;
};

} // namespace

class WorkspaceTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aClosedPanelComesBackToItsPlaceAndActionsFollow()
    {
        Host host;
        host.open();
        const QStringList ids = host.panels.panels();
        for (const QString& id : ids) {
            host.setOpen(id, false);
            host.setOpen(id, true);
            QCOMPARE(Host::order(), u"layers notes view bar"_qs);
        }
        const auto actions = host.panels.panelActions();
        QCOMPARE(actions[1]->text(), u"The &&notes"_qs);
        for (const bool open : {false, true}) { // also into a tree without any panel
            for (int i = 0; i < ids.size(); ++i) {
                actions[i]->trigger();
                settle();
                QCOMPARE(host.panels.content(ids[i])->isVisible(), open);
            }
        }
        for (const auto* group : gMainWindow->findChildren<DockableGroup*>()) {
            QVERIFY(group->childCount() > 1); // nothing is left in an empty band
        }
        for (const bool floats : {false, true}) { // by other hands
            DockableWindow& notes = host.window(u"notes"_qs);
            floats ? notes.undock(true) : notes.undockAndClose();
            floats ? void(notes.close()) : settle();
            settle();
            QVERIFY(!actions[1]->isChecked() && host.panels.reset() && actions[1]->isChecked());
        }
        host.window(u"layers"_qs).dockInArea(&host.window(u"bar"_qs), DockableArea::Bottom);
        host.setOpen(u"notes"_qs, true);
        QVERIFY(ui::maximizePanel(&host.window(u"view"_qs)));
        host.setOpen(u"bar"_qs, true); // in a group behind a tab of what is out of sight
        QVERIFY(host.panels.content(u"bar"_qs)->isVisible());
    }

    void aPanelGoesWithItsContentAndBadOnesAreIgnored()
    {
        Host host;
        host.open();
        delete host.panels.content(u"layers"_qs);
        settle();
        QCOMPARE(host.panels.panelActions().size(), 3);
        QCOMPARE(Host::order(), u"notes view bar"_qs);
        host.panels.addPanel(u"view"_qs, new QWidget(&host));
        host.panels.addPanel(u"around"_qs, &host);
        host.panels.addPanel(u"root"_qs, &host.panels.root());
        host.panels.addPanel(u"again"_qs, host.panels.content(u"view"_qs));
        host.panels.addPanel({}, &host);
        host.panels.addPanel(u"none"_qs, nullptr);
        host.setOpen(u"none"_qs, true);
        QCOMPARE(host.panels.panels().size(), 3);
        gMainWindow = nullptr;
        QVERIFY(!host.panels.reset());
        const auto line = u"warning: A workspace arranges nothing: its root is not gMainWindow"_qs;
        QCOMPARE(ui::test::LogSink::take(), QStringList(line));
    }

    void aFloatingGroupHidesWithTheWorkspaceAndKeepsItsPanelsWhenClosed()
    {
        Host host;
        host.open();
        QWidget* const content = host.panels.content(u"layers"_qs);
        host.window(u"view"_qs).undock(true);
        DockableWindow* group =
            host.window(u"view"_qs).dockInArea(&host.window(u"layers"_qs), DockableArea::Center);
        for (const bool shown : {false, true}) {
            host.panels.setVisible(shown);
            QVERIFY(group->isVisible() == shown && ui::floatingWindows().size() == 1);
        }
        QVERIFY(group->close());
        settle();
        const QJsonValue closed = QJsonDocument::fromJson(host.panels.layout())[u"closed"];
        QCOMPARE(closed, QJsonValue(QJsonArray{u"layers"_qs, u"view"_qs}));
        host.setOpen(u"layers"_qs, true);
        QCOMPARE(host.window(u"layers"_qs).content(), content);
        host.setOpen(u"notes"_qs, true);
        host.window(u"notes"_qs).undock(true);
        host.panels.hide();
        host.window(u"bar"_qs).undock(true);
        QVERIFY(host.window(u"bar"_qs).isHidden());
        QVERIFY(host.panels.reset()); // behind a tab, meanwhile
        host.panels.show();
        settle();
        QVERIFY(content->isVisible() && !host.window(u"notes"_qs).isVisible());
    }

    void aPanelThatALayoutDoesNotMentionComesToItsPlace()
    {
        Host host;
        host.open();
        for (const bool open : {false, true}) {
            host.setOpen(u"notes"_qs, open);
            QVERIFY(host.panels.setLayout(kFormer));
            settle();
            QCOMPARE(Host::order(), u"view layers notes"_qs);
        }
        QString error;
        QVERIFY(!host.panels.setLayout("{", &error) && !error.isEmpty() && host.panels.reset());
        QCOMPARE(Host::order(), u"layers notes view bar"_qs);
        host.hide();
        QVERIFY(host.panels.setLayout(kFormer));
        host.setOpen(u"notes"_qs, false); // before it could be seen
        host.setOpen(u"view"_qs, false);
        QVERIFY(host.panels.setLayout(host.panels.layout()));
        host.open();
        QCOMPARE(Host::order(), u"layers"_qs);
    }

    void contentsMayDoAnythingWhenTheHostShowsOrHidesThem()
    {
        const std::pair<QString, void (*)(Workspace&)> rows[] = {
            {u"notes view bar"_qs, [](Workspace& w) { w.windowOf(u"layers"_qs)->close(); }},
            {u"view layers notes"_qs, [](Workspace& w) { w.setLayout(kFormer); }},
            {u"layers notes view bar"_qs, [](Workspace& w) { w.setPanelOpen(u"notes"_qs, true); }},
            {u"notes bar layers"_qs, [](Workspace& w) { delete w.content(u"view"_qs); }}};
        for (unsigned i = 0; i < 8; ++i) {
            ui::test::Trap trap;
            Host host;
            host.open();
            for (const char* const id : {"layers", "view"}) {
                i < 6 ? void() : host.window(QLatin1String(id)).undock(true);
            }
            host.setVisible(i % 2 == 0);
            host.panels.content(u"layers"_qs)->installEventFilter(&trap);
            trap.action = [&] { rows[i / 2].second(host.panels); };
            host.setVisible(i % 2 != 0);
            host.open();
            QCOMPARE(Host::order(), rows[i / 2].first);
            QVERIFY(host.panels.content(u"notes"_qs)->isVisible());
            trap.action = [&] { host.panels.addPanel(u"new"_qs, new QWidget); }; // as it dies
        }
    }

    void aLayoutFileKeepsTheArrangementTheWindowAndValues()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"new/layout.json"_qs);
        QByteArray before;
        for (int run = 0; run < 4; ++run) {
            Host host;
            LayoutFile file(path, host.panels, host);
            file.save(); // not before it was read
            QCOMPARE(QFile::exists(path), run > 0);
            QSignalSpy failed(&file, &LayoutFile::failed);
            file.restore();
            host.panels.setHidden(run == 1); // its panels never get a size
            host.open();
            if (run == 0) {
                host.resize(360, 310);
                host.window(u"view"_qs).dockInArea(&host.window(u"notes"_qs), DockableArea::Bottom);
                host.window(u"layers"_qs).undock(true);
                host.window(u"layers"_qs).setGeometry(50, 60, 300, 200);
                host.setOpen(u"bar"_qs, false);
                before = host.panels.layout();
                file.setValue(u"loop"_qs, 7);
                file.setValue(u"root"_qs, 7); // no host's own
                ui::test::FakeClock(host.findChild<LayoutWatch*>()).fireTimers(ui::kLayoutRest);
            } else if (run == 1) {
                file.save();
            } else if (run == 2) {
                QCOMPARE(host.panels.layout(), before);
                QCOMPARE(host.size(), QSize(360, 310));
                host.resize(9000, 310);
                file.save(); // on a screen that is larger than the next run's
            } else {
                QVERIFY(host.screen()->availableGeometry().contains(host.geometry()));
            }
            QVERIFY(failed.isEmpty() && file.value(u"loop"_qs) == QJsonValue(7));
        }
    }

    void aBadLayoutFileIsToldOnceAndReplaced()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"layout.json"_qs);
        const QByteArray newer = R"({"version":99,"loop":7})";
        Host host;
        host.open();
        const auto holds = [](const QString& name, const QByteArray& bytes) {
            return ui::fileState(name, ui::fingerprintOf(bytes)) == ui::FileState::Known;
        };
        for (const bool isKept : {false, true}) { // as a copy, which else a folder is in the way of
            QCOMPARE(ui::replaceFile(path, newer), QString());
            QDir copy(path + u".bad"_qs);
            QVERIFY(isKept ? copy.removeRecursively() : copy.mkpath(u"."_qs));
            LayoutFile layout(path, host.panels, host);
            QSignalSpy failed(&layout, &LayoutFile::failed);
            layout.restore();
            layout.save();
            QVERIFY(failed.size() == 1 && layout.value(u"loop"_qs) == QJsonValue(7));
            QVERIFY(holds(path + u".bad"_qs, newer) == isKept && holds(path, newer) != isKept);
        }
        LayoutFile nowhere(path + u"/x/layout.json"_qs, host.panels, host);
        QSignalSpy failed(&nowhere, &LayoutFile::failed);
        nowhere.restore();
        nowhere.save();
        nowhere.save();
        QCOMPARE(failed.size(), 1);
    }
};

const ui::test::Registration<WorkspaceTest> kRegistration;

#include "tst_workspace.moc"
