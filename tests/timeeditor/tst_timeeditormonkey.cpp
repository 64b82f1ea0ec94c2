// SPDX-License-Identifier: Apache-2.0
#include "Editor.h"
#include <MorrantUI/timeeditor/TimeEditorSoundItem.h>

using ui::test::Editor;

namespace {

/// A host that keeps a document of what it is told, and that does anything inside any slot.
class Monkey : public QObject
{
public:
    explicit Monkey(quint32 seed)
        : m_random(seed)
        , m_clock(m_editor.view)
    {
        const auto sometimes = [this] { meddle(12); };
        TimeEditorView* const view = m_editor.view;
        connect(view, &TimeEditorView::keysMoved, this, [this](const KeyMoves& moves) {
            for (const KeyMove& move : moves) {
                if (move.key) {
                    m_keys[move.key] = {move.key, move.to};
                }
            }
        });
        connect(view, &TimeEditorView::clipsChanged, this, [this](const ClipMoves& moves) {
            for (const ClipMove& move : moves) {
                if (move.clip) {
                    m_clips[move.clip] = {move.clip, ui::test::areasOf(*move.clip)};
                }
            }
        });
        connect(view, &TimeEditorView::keysMoved, this, sometimes);
        connect(view, &TimeEditorView::keysMoving, this, sometimes);
        connect(view, &TimeEditorView::clipsChanged, this, sometimes);
        connect(m_editor.scene, &QGraphicsScene::selectionChanged, this, sometimes);
        view->setShowTransformTool(true);
        view->setScale(0.4);
        build();
    }

    /// What is wrong after a number of steps; empty when nothing is.
    QString play(int steps)
    {
        for (int i = 0; i < steps; ++i) {
            step();
            const QString fault = check();
            if (!fault.isEmpty()) {
                return u"step %1: %2"_qs.arg(i).arg(fault);
            }
        }
        switch (m_random.bounded(3)) { // whatever is under way
        case 0: delete m_editor.scene; break;
        case 1: delete std::exchange(m_editor.view, nullptr); break;
        default: break;
        }
        m_editor.pointer.drop({300, 30}, 100);
        QCoreApplication::processEvents();
        delete std::exchange(m_editor.view, nullptr);
        return QGuiApplication::overrideCursor() ? u"a cursor is left"_qs : QString();
    }

private:
    void build()
    {
        m_rows.clear();
        m_bars.clear();
        for (int row = 0; row < 4; ++row) {
            m_rows.emplace_back(m_editor.addRow({row, 10 + 3 * row, 30, 55, 90 - row}));
        }
        for (int row = 0; row < 2; ++row) {
            TimeEditorClipItem* const clip = m_editor.addClip({{5, 20}, {25, 60}});
            connect(clip, &TimeEditorClipItem::clipChanging, this, [this] { meddle(30); });
            m_bars.emplace_back(clip);
        }
        m_editor.scene->addLayoutItem(new TimeEditorSoundItem(m_editor.view));
        read();
    }

    /// The host knows where everything is: it has moved it there itself.
    void read()
    {
        m_keys.clear();
        m_clips.clear();
        for (TimeEditorCurveItem* const row : m_editor.scene->curves()) {
            for (TimeEditorKeyframeItem* const key : row->keyframes()) {
                m_keys[key] = {key, key->x()};
            }
        }
        for (TimeEditorClipItem* const clip : m_editor.scene->clips()) {
            m_clips[clip] = {clip, ui::test::areasOf(*clip)};
        }
    }

    template <typename Items>
    auto any(const Items& items)
    {
        return *std::next(items.begin(), m_random.bounded(static_cast<int>(items.size())));
    }

    void meddle(int seldom)
    {
        if (m_random.bounded(seldom) == 0) {
            change();
        }
    }

    void change()
    {
        std::erase(m_rows, nullptr); // in the order of their making, so that a seed says it all
        std::erase(m_bars, nullptr);
        const int what = m_random.bounded(9);
        if (what == 0 || m_rows.empty()) {
            m_editor.scene->clearScene();
            build();
        } else if (what < 4) {
            const auto keys = any(m_rows)->keyframes();
            delete (keys.empty() ? nullptr : any(keys));
        } else if (what == 4) {
            delete any(m_rows).data();
        } else if (what == 5 && !m_bars.empty()) {
            any(m_bars)->removeClipArea(m_random.bounded(2));
        } else if (what == 6 && !m_bars.empty()) {
            delete any(m_bars).data();
        } else if (what == 7) {
            TimeEditorKeyframeItem* const key = any(m_rows)->addKeyframe(m_random.bounded(100));
            key->animateFeedbackColor(Qt::red);
        } else {
            any(m_rows)->setParentItem(nullptr); // a row of its own
        }
        m_changed = true;
    }

    void step()
    {
        const int what = m_random.bounded(40);
        const QPoint place(m_random.bounded(1200) - 80, m_random.bounded(260) - 30);
        ui::test::FakePointer& pointer = m_editor.pointer;
        if (what < 10) {
            m_random.bounded(2) ? pointer.moveTo(place) : pointer.dragTo(place, 60);
        } else if (what < 16) {
            pointer.moveTo(QPoint(place.x(), m_random.bounded(150)));
            const Qt::MouseButton button = m_random.bounded(8) ? Qt::LeftButton : Qt::RightButton;
            if (!m_pressed.testFlag(button)) {
                m_pressed |= button;
                pointer.press(button);
            }
        } else if (what < 20) {
            const Qt::MouseButton button = m_random.bounded(8) ? Qt::LeftButton : Qt::RightButton;
            m_pressed &= ~button;
            pointer.release(button);
        } else if (what < 24) {
            constexpr std::array kHeld = {
                Qt::Key_Space, Qt::Key_Shift, Qt::Key_Alt, Qt::Key_Control};
            const Qt::Key key = any(kHeld);
            QTest::sendKeyEvent(
                m_random.bounded(2) ? QTest::Press : QTest::Release,
                m_editor.view,
                key,
                u""_qs,
                {});
            const Qt::KeyboardModifiers modifiers(m_random.bounded(16) << 25);
            m_editor.hold(modifiers & ~Qt::MetaModifier);
        } else if (what < 28) {
            constexpr std::array kClicked = {
                Qt::Key_Escape,
                Qt::Key_F,
                Qt::Key_Delete,
                Qt::Key_Left,
                Qt::Key_Up,
                Qt::Key_Return};
            QTest::keyClick(m_editor.view, any(kClicked));
        } else if (what < 30) {
            ui::test::turnWheel(*m_editor.view->viewport(), place, {place.x() - 500, 60});
        } else if (what == 30) {
            change();
        } else if (what == 31) {
            m_editor.view->setScale(std::exp(m_random.bounded(8.0) - 6.0));
        } else if (what == 32) {
            m_editor.view->setVisible(false);
            m_editor.view->setVisible(true);
        } else if (what < 36) {
            m_clock.advanceAnimations(m_random.bounded(200));
        } else {
            QCoreApplication::processEvents();
        }
    }

    QString check()
    {
        if (m_pressed) {
            return {};
        }
        if (std::exchange(m_changed, false)) {
            read(); // the host knows what it has done itself
        }
        m_editor.pointer.moveTo({300, 170}); // the release may have gone elsewhere
        if (m_editor.scene->mouseGrabberItem()) {
            return u"the mouse is still somebody's"_qs;
        }
        for (const auto& [address, known] : m_keys) {
            const auto& [key, frame] = known;
            if (key && (key->x() != frame || key->x() != std::round(key->x()))) {
                return u"a key went from %1 to %2 untold"_qs.arg(frame).arg(key->x());
            }
        }
        for (const auto& [address, known] : m_clips) {
            const auto& [clip, areas] = known;
            if (clip && ui::test::areasOf(*clip) != areas) {
                return u"a clip became %1 untold"_qs.arg(ui::test::areasOf(*clip));
            }
        }
        return {};
    }

    QRandomGenerator m_random;
    Editor m_editor;
    ui::test::FakeClock m_clock;
    template <typename Item, typename Value>
    using Known = std::map<const void*, std::pair<QPointer<Item>, Value>>;

    Known<TimeEditorKeyframeItem, double> m_keys;
    Known<TimeEditorClipItem, QString> m_clips;
    std::vector<QPointer<TimeEditorCurveItem>> m_rows;
    std::vector<QPointer<TimeEditorClipItem>> m_bars;
    bool m_changed = false;
    Qt::MouseButtons m_pressed;
};

} // namespace

/// Random sessions with mouse, keys, wheel and a host that changes everything at any time.
/// MORRANT_EDITOR_SEEDS sets how many (12, or 4 on a display) and MORRANT_EDITOR_STEPS how long
/// each is (250).
class TimeEditorMonkeyTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void noSessionCrashesOrMovesAnythingUntold()
    {
        const auto given = [](const char* name, int otherwise) {
            return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
        };
        const bool display = QGuiApplication::platformName() != QLatin1String("offscreen");
        const int steps = given("MORRANT_EDITOR_STEPS", 250);
        for (int seed = given("MORRANT_EDITOR_SEEDS", display ? 4 : 12); seed > 0; --seed) {
            const QString name = u"seed %1, "_qs.arg(seed);
            QCOMPARE(name + Monkey(static_cast<quint32>(seed)).play(steps), name);
            QVERIFY(!QGuiApplication::overrideCursor());
        }
    }
};

const ui::test::Registration<TimeEditorMonkeyTest> kRegistration;

#include "tst_timeeditormonkey.moc"
