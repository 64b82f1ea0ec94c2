// SPDX-License-Identifier: Apache-2.0
#include "graph/GraphEditor.h"
#include "studiotest.h"
#include "timeline/DopeSheet.h"
#include <MorrantUI/MorrantUI.h>

#include <map>

using namespace studio;

namespace {

QString joined(const std::map<double, QString>& byTime)
{
    QStringList texts;
    for (const auto& entry : byTime) {
        texts.append(entry.second);
    }
    return texts.join(u" | ");
}

/// A layer that turns, eased, from 0 at 10 to 100 at 50 and stops at 70, with opacity below.
Document turning()
{
    QByteArray text = "'ty':3,'nm':'A','ks':{'r':{'a':1,'k':["
                      "{'t':10,'s':[0],'o':{'x':[0.5],'y':[0]},'i':{'x':[0.5],'y':[1]}},"
                      "{'t':50,'s':[100]},{'t':70,'s':[100]}]},"
                      "'sk':{'a':1,'k':[{'t':0,'s':[0]},{'t':20,'s':[9]}]},"
                      "'o':{'a':1,'k':[{'t':0,'s':[0]},{'t':20,'s':[100]}]}}";
    return studio::test::documentOf(studio::test::layer(text.replace("'", "\"")));
}

struct Graph : StudioWindow
{
    Graph()
    {
        openDocument(std::make_shared<Document>(turning()), u"turning"_qs);
        resize(1300, 1000);
        workspace().setPanelOpen(u"graph"_qs, true);
        studio::test::showActive(*this);
        selectLayer(0);
        studio::test::settle();
    }

    ValueGraphView& view() { return graph().view(); }
    QPoint at(double frame, double value) { return view().mapFromScene(frame, -value); }
    void drag(QPoint from, QPoint to)
    {
        pointer.press(from);
        pointer.dragTo(to, 3);
    }
    void drop()
    {
        pointer.release();
        studio::test::settle();
    }
    /// Frames and values, with what leaves and enters where it is eased.
    QString rotation()
    {
        QStringList texts;
        for (const auto& key : editor().property({0, Attribute::Rotation})->keys) {
            QString text = u"%1:%2"_qs.arg(key.time).arg(std::round(key.value[0]));
            if (key.easeOut.count > 0) {
                for (const EasingHandle& ease : {key.easeOut, key.easeIn}) {
                    text += u" %1,%2"_qs.arg(ease.x[0], 0, 'f', 1).arg(ease.y[0], 0, 'f', 1);
                }
            }
            texts.append(text + (key.hold ? u" hold"_qs : QString()));
        }
        return texts.join(u" | ");
    }
    /// The same as the points show it.
    QString shown()
    {
        std::map<double, QString> texts;
        for (const GraphPointWidget* point : view().utils()->pointItems(false)) {
            texts[point->x()] = u"%1:%2"_qs.arg(point->x()).arg(std::round(0 - point->y()));
        }
        return joined(texts);
    }

    ui::test::FakePointer pointer{view().viewport()};
};

const QString kStart = u"10:0 0.5,0.0 0.5,1.0 | 50:100 | 70:100"_qs;

} // namespace

/// The graph editor: values and easings as curves, and what becomes of keys under the user's hands.
class GraphTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:
    void handlesKeepTheirEntriesAndFramesFindTheirSegment()
    {
        EasingHandle ease = withShare({}, 0, {0.5, 0});
        QCOMPARE(withShare(ease, 1, {1, 0.2}), withShare({}, 0, {1, 0.2})); // one for all stays so
        ease.count = 2;
        ease = withShare(ease, 1, {0.9, 1.5});
        QVERIFY(ease.x[0] == 0.5 && ease.y[0] == 0 && ease.x[1] == 0.9 && ease.y[1] == 1.5);
        const Document document = turning();
        const NumberProperty& rotation = document.main.layers[0].transform.rotation;
        for (const auto& [frame, segment] :
             {std::pair(0, 0), {10, 0}, {49, 0}, {50, 1}, {70, 1}, {99, 1}}) {
            QCOMPARE(segmentAt(rotation, frame), std::size_t(segment));
        }
    }

    void aPointIsDraggedByWholeFramesInOneStep()
    {
        Graph window;
        QCOMPARE(window.rotation(), kStart);
        QCOMPARE(window.shown(), u"10:0 | 50:100 | 70:100"_qs);
        const QListWidgetItem* const skew = window.graph().list().item(2); // not to be edited
        QVERIFY(skew && skew->text() == u"Skew" && !(skew->flags() & Qt::ItemIsEnabled));
        window.drag(window.at(50, 100), window.at(40.2, 60));
        QVERIFY(window.rotation().startsWith(u"10:0 0.5,0.0 0.5,1.0 | 40:60"_qs)); // meanwhile
        QTest::keyClick(&window.view(), Qt::Key_Escape);
        QCOMPARE(window.rotation(), kStart);
        window.drop();
        QVERIFY(!window.editor().canUndo());

        window.drag(window.at(50, 100), window.at(80.3, 60)); // past another, which keeps its place
        window.drop();
        QCOMPARE(window.shown(), u"10:0 | 70:100 | 80:60"_qs);
        const auto selected = window.dopeSheet().view().selectedKeyframes();
        QCOMPARE(selected.size(), std::size_t(1));
        QCOMPARE((*selected.begin())->x(), 80.0);
        QCOMPARE(window.graph().fields().frame().value(), 80.0);
        QVERIFY(std::abs(window.graph().fields().value().value() - 60) < 1);

        NumericField& value = window.graph().fields().value();
        value.setFocus(Qt::TabFocusReason);
        value.selectAll();
        QTest::keyClicks(&value, u"25"_qs);
        QTest::keyClick(&value, Qt::Key_Return);
        studio::test::settle();
        QCOMPARE(window.shown(), u"10:0 | 70:100 | 80:25"_qs);
        window.view().setFocus();
        QTest::keyClick(&window.view(), Qt::Key_Delete);
        studio::test::settle();
        QCOMPARE(window.shown(), u"10:0 | 70:100"_qs);
        for (int step = 0; step < 3; ++step) {
            window.undo();
        }
        studio::test::settle();
        QCOMPARE(window.rotation(), kStart);
        QCOMPARE(window.shown(), u"10:0 | 50:100 | 70:100"_qs);
        QVERIFY(!window.editor().canUndo());

        window.editor().setLocked({0}, true);
        studio::test::settle();
        window.drag(window.at(50, 100), window.at(40, 60));
        window.drop();
        QCOMPARE(window.rotation(), kStart);
        const auto hint = [&window] { return window.view().accessibleDescription(); };
        QCOMPARE(hint(), QString());
        window.graph().list().clearSelection(); // what could be seen is said
        QVERIFY(hint().contains(u"a property"_qs));
        window.selectLayer(-1);
        QVERIFY(hint().contains(u"a layer"_qs));
    }

    void handlesAndPresetsEditTheEasing()
    {
        Graph window;
        window.drag(window.at(30, 0), window.at(26, 40));
        window.drop();
        QCOMPARE(window.rotation(), u"10:0 0.4,0.4 0.5,1.0 | 50:100 | 70:100"_qs);

        // The editor shows it, and its own handle goes the other way.
        EasingEditor& easing = window.graph().easingEditor();
        QVERIFY(easing.easing() && std::abs(easing.easing()->out.y() - 0.4) < 0.05);
        ui::test::FakePointer pointer(easing.view().viewport());
        pointer.press(easing.view().mapFromScene(4, 5.5));
        pointer.drop(easing.view().mapFromScene(2, 6.5), 3);
        studio::test::settle();
        QCOMPARE(window.rotation(), u"10:0 0.2,0.2 0.5,1.0 | 50:100 | 70:100"_qs);

        auto& presets = easing.presets();
        QCOMPARE(presets.currentIndex(), -1);
        presets.segment(static_cast<int>(EasingPreset::Hold))->click();
        QVERIFY(window.rotation().contains(u"hold"_qs));
        studio::test::settle();
        QCOMPARE(presets.currentIndex(), static_cast<int>(EasingPreset::Hold));
        presets.segment(static_cast<int>(EasingPreset::Linear))->click();
        QCOMPARE(window.rotation(), u"10:0 | 50:100 | 70:100"_qs);
        for (GraphPointWidget* point : window.view().utils()->pointItems(false)) {
            point->setSelected(true);
        }
        presets.segment(static_cast<int>(EasingPreset::Hold))->click();
        QCOMPARE(window.rotation(), u"10:0 hold | 50:100 hold | 70:100"_qs);
        for (int step = 0; step < 5; ++step) {
            window.undo();
        }
        QCOMPARE(window.rotation(), kStart);
    }

    void keysThatCoverEachOtherLeaveOnePoint()
    {
        Graph window;
        for (GraphPointWidget* point : window.view().utils()->pointItems(false)) {
            point->setSelected(true);
        }
        window.view().setupKeyScaling(QPoint(70, 0), true);
        window.view().scaleKeys(QPoint(10, 0));
        const QSignalSpy told(window.view().scene(), &QGraphicsScene::selectionChanged);
        window.view().endKeyScaling();
        QCOMPARE(told.count(), 0); // no point tells of its selection as it dies
        studio::test::settle();
        QCOMPARE(window.editor().property({0, Attribute::Rotation})->keys.size(), std::size_t(1));
        QCOMPARE(window.view().utils()->pointItems(false).size(), std::size_t(1));
        window.undo();
        QCOMPARE(window.rotation(), kStart);
    }

    void whateverIsDoneIsShownAndUndone()
    {
        Graph window;
        const auto rotation = [&] { return *window.editor().property({0, Attribute::Rotation}); };
        const NumberProperty before = rotation();
        QRandomGenerator random(5);
        const auto pick = [&](auto... choices) {
            const std::array all{choices...};
            return all.at(random.bounded(static_cast<quint32>(all.size())));
        };
        for (int i = 0; i < 300; ++i) {
            const auto items = window.view().scene()->items();
            const QPointF place = items.at(random.bounded(int(items.size())))->scenePos();
            const QPoint from = window.view().mapFromScene(place);
            if (!window.view().viewport()->rect().contains(from)) {
                window.view().fitAll();
                continue;
            }
            const Qt::KeyboardModifiers held =
                pick(Qt::NoModifier, Qt::AltModifier, Qt::ShiftModifier);
            switch (random.bounded(10)) {
            case 0: window.undo(); break;
            case 1: window.redo(); break;
            case 2:
                window.graph().easingEditor().presets().segment(random.bounded(6))->click();
                break;
            case 3: window.player().seek(random.bounded(100)); break;
            case 4: window.view().setShowTransformTool(random.bounded(2) == 0); break;
            case 5:
                QTest::keyClick(&window.view(), pick(Qt::Key_Left, Qt::Key_Up, Qt::Key_F));
                break;
            default:
                window.pointer.hold(held);
                window.drag(from, from + QPoint(random.bounded(-90, 90), random.bounded(-40, 40)));
                switch (random.bounded(8)) {
                case 0: QTest::keyClick(&window.view(), Qt::Key_Escape); break;
                case 1: window.undo(); break;
                case 2: window.selectLayer(pick(-1, 0)); break;
                default: break;
                }
                window.drop();
                window.selectLayer(0);
            }
            studio::test::settle();
            std::map<double, QString> texts;
            for (const auto& key : rotation().keys) {
                texts[key.time] = u"%1:%2"_qs.arg(key.time).arg(std::round(key.value[0]));
            }
            QCOMPARE(window.shown(), joined(texts));
        }
        QVERIFY(!(rotation() == before));
        while (window.editor().canUndo()) {
            window.undo();
        }
        QVERIFY(rotation() == before);
    }
};

const ui::test::Registration<GraphTest> kRegistration;

#include "tst_graph.moc"
