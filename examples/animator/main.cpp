// SPDX-License-Identifier: Apache-2.0
#include "AnimatorWindow.h"
#include <MorrantUI/MorrantUI.h>

#include <QApplication>
#include <QTest>

#include <cstdio>

namespace {

Animation sample()
{
    using enum ui::Graph::Interpolation;
    return {
        {{QStringLiteral("Opacity"),
          QStringLiteral("Accent2"),
          {{0, 0, {}, {12, 0}, Bezier}, {40, 100, {-12, 0}, {12, 0}, Bezier}, {90, 30}}},
         {QStringLiteral("Position"), QStringLiteral("Red"), {{10, -200}, {60, 350}}}},
        {{.id = 1, .frame = 24, .name = QStringLiteral("beat")}}};
}

std::vector<TimeEditorKeyframeItem*> sheetKeys(AnimatorWindow& window)
{
    return dynamic_cast<TimeEditorCurveItem&>(*window.outline().row(0)).keyframes();
}

/// The frames of the first property's keys in document and views, where these agree.
QString keys(AnimatorWindow& window)
{
    QStringList texts;
    for (std::size_t i = 0; i < sheetKeys(window).size(); ++i) {
        const double time = window.animation().properties[0].keys[i].time;
        const bool agree = window.graph().curves().front()->keys()[i].time == time
                           && sheetKeys(window)[i]->x() == time;
        texts << (agree ? QString::number(time) : QStringLiteral("?"));
    }
    return texts.join(u' ');
}

void drag(QGraphicsView& view, const QGraphicsItem& item, int frames)
{
    const QPointF from = item.sceneBoundingRect().center();
    const auto at = [&](double share) {
        return view.mapFromScene(from + QPointF(share * frames, 0));
    };
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, at(0));
    for (const double share : {0.5, 0.9, 1.0}) {
        QTest::mouseMove(view.viewport(), at(share));
    }
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, at(1));
}

/// Uses the window without a user: a key is dragged past another in either view, and deleted.
bool selfCheck(AnimatorWindow& window)
{
    QStringList told{keys(window)};
    drag(window.sheet().view(), *sheetKeys(window)[1], 55);
    told << keys(window);
    drag(window.graph(), *window.graph().curves().front()->point(2), -60);
    told << keys(window);
    QTest::keyClick(&window.sheet().view(), Qt::Key_Delete); // the one that is selected there
    told << keys(window) << QString::number(window.history().count());
    window.history().setIndex(0);
    told << keys(window);
    std::fprintf(stderr, "animator: %s\n", qPrintable(told.join(u',')));
    return told.join(u',') == QStringLiteral("0 40 90,0 90 95,0 35 90,0 90,3,0 40 90");
}

} // namespace

/// animator [--once]: edits two animated properties; --once does so without a user, for the tests.
int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    VisualDesignDark theme(QStringLiteral(ASSETS_DIR)); // lives as long as the application
    theme.applyAppStyle();
    AnimatorWindow window(sample());
    window.resize(900, 600);
    window.show();
    if (QApplication::arguments().contains(QStringLiteral("--once"))) {
        QApplication::processEvents();
        return selfCheck(window) ? 0 : 1;
    }
    return QApplication::exec();
}
