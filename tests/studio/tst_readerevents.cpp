// SPDX-License-Identifier: Apache-2.0
#include "studiotest.h"
#include "support/ReaderEvents.h"

using namespace studio;
using ui::test::ReaderEvents;

class ReaderEventsTest : public studio::test::StudioTest
{
    Q_OBJECT

    /// What readers find in all that is shown.
    static QHash<QObject*, QString> values(const QWidget& window)
    {
        QHash<QObject*, QString> all;
        for (QWidget* const widget : window.findChildren<QWidget*>()) {
            if (!widget->isVisible()) {
                continue;
            }
            auto* const seen = QAccessible::queryAccessibleInterface(widget);
            const auto* const number = seen->valueInterface();
            const auto state = seen->state();
            all[widget] = seen->text(QAccessible::Name) + seen->text(QAccessible::Value)
                          + seen->text(QAccessible::Description)
                          + (number ? number->currentValue().toString() : QString())
                          + QString::number(state.checked + 2 * state.checkStateMixed)
                          + (state.disabled ? u"-"_qs : QString());
        }
        return all;
    }
    /// Rather than of what comes and goes, and of the focus.
    static bool isOfValue(QAccessible::Event type)
    {
        return type >= QAccessible::StateChanged
               || (type >= QAccessible::TextCaretMoved
                   && type <= QAccessible::TextSelectionChanged);
    }

private Q_SLOTS:
    void playingAndChoosingALayerTellEachValueOnceAndOnlyIfItIsAnother()
    {
        StudioWindow window;
        window.openFile(samplePaths().value(0));
        studio::test::showActive(window);
        window.selectLayer(0);
        studio::test::settle();
        ReaderEvents events;
        qsizetype told = 0;
        for (int step = 0; step < 12; ++step) {
            const auto before = values(window);
            events.take();
            step % 4 == 3 ? window.selectLayer(step / 4 + 1) : window.player().step(1);
            QCoreApplication::processEvents();
            const auto now = values(window);
            QSet<QObject*> known;
            for (const auto& [object, type] : events.take()) {
                const QString value = now.value(object);
                if (isOfValue(type) && now.contains(object)) {
                    QVERIFY2(!known.contains(object), qPrintable(value));
                    QVERIFY2(value != before.value(object), qPrintable(value));
                    known.insert(object);
                }
            }
            told += known.size();
        }
        QVERIFY(told > 24); // at least the frame and the time at each
    }
};

const ui::test::Registration<ReaderEventsTest> kRegistration(
    ui::test::RunOrder::Normal, ReaderEvents::available);

#include "tst_readerevents.moc"
