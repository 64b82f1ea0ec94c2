// SPDX-License-Identifier: Apache-2.0
#include "Report.h"
#include "themeassets.h"
#include "timing.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/timeline/TimelineScene.h>
#include <MorrantUI/timeline/TimelineView.h>

#include <QApplication>
#include <QPainter>
#include <QPainterPath>

using ui::bench::Report;

namespace {

constexpr int kWidth = 1600;  ///< logical pixels
constexpr int kFrames = 1000; ///< all of them in sight
constexpr int kMarkers = 20;
constexpr int kTicks = 201;   ///< every fifth frame
constexpr int kLabels = 21;   ///< every fiftieth
constexpr int kRepaints = 20; ///< in a run: one alone is too short to time

TimelineMarkers markers(int count)
{
    TimelineMarkers all;
    for (int i = 0; i < count; ++i) {
        const int frame = static_cast<int>(qint64(i) * kFrames / count);
        all.push_back({0, frame, 0, QStringLiteral("Marker %1").arg(i), {}});
    }
    return all;
}

struct Ruler
{
    explicit Ruler(int markerCount)
    {
        view.setFrameRange(0, kFrames);
        view.setPlaybackRange(100, 900);
        view.getTimelineScene()->setMarkers(markers(markerCount));
        view.resize(kWidth, view.sizeHint().height());
        view.show();
        QCoreApplication::processEvents();
    }
    void paint()
    {
        for (int i = 0; i < kRepaints; ++i) {
            view.viewport()->repaint();
        }
    }
    void tick()
    {
        for (int i = 0; i < kRepaints; ++i) {
            view.setCurrentFrame(view.currentFrame() == 1 ? 2 : 1);
            QCoreApplication::processEvents();
        }
    }
    TimelineView view;
};

/// As many grounds, lines, flags and texts, drawn without asking where they belong.
class RawRuler : public QWidget
{
public:
    explicit RawRuler(const TimelineView& like)
        : m_font(like.getTimelineScene()->font())
    {
        resize(kWidth, like.height());
        show();
        QCoreApplication::processEvents();
    }
    void paint()
    {
        for (int i = 0; i < kRepaints; ++i) {
            repaint();
        }
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setFont(m_font);
        painter.fillRect(rect(), ui::colorQt(QStringLiteral("TabBackground")));
        painter.fillRect(0, 24, width(), 28, ui::colorQt(QStringLiteral("WindowBase")));
        painter.fillRect(160, 26, 1280, 6, ui::colorQt(QStringLiteral("Accent1")));
        const QColor line = ui::colorQt(QStringLiteral("Grey"));
        for (int i = 0; i < kTicks; ++i) {
            painter.fillRect(i * kWidth / kTicks, 20, 1, 4, line);
        }
        painter.setPen(ui::colorQt(QStringLiteral("HelperHints")));
        for (int i = 0; i < kLabels; ++i) {
            painter.drawText(i * kWidth / kLabels, 10, QString::number(i * 50));
        }
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor flag = ui::colorQt(QStringLiteral("Accent3"));
        for (int i = 0; i < kMarkers; ++i) {
            const double x = i * kWidth / kMarkers;
            QPainterPath path;
            path.addPolygon(
                QPolygonF({{x, 48}, {x - 4.5, 44}, {x - 4.5, 37}, {x + 4.5, 37}, {x + 4.5, 44}}));
            painter.fillPath(path, flag);
            painter.drawText(QPointF(x + 7, 46), QStringLiteral("Marker %1").arg(i));
        }
    }

private:
    QFont m_font;
};

void bench(Report& report)
{
    Ruler ours(kMarkers);
    RawRuler floor(ours.view);
    if (report.wants("ruler-repaint")) {
        const double ratio =
            ui::bench::medianRatio([&ours] { ours.paint(); }, [&floor] { floor.paint(); });
        report.judge("ruler-repaint", ratio, "x-raw", 2.5);
    }
    if (report.wants("ruler-tick")) {
        const double ratio =
            ui::bench::medianRatio([&ours] { ours.tick(); }, [&floor] { floor.paint(); });
        report.judge("ruler-tick", ratio, "x-raw", 2.5);
        const double time = ui::bench::medianNanosecondsOf([&ours] { ours.tick(); });
        report.state("ruler-tick-time", time / kRepaints / 1e6, "ms");
    }
    if (report.wants("ruler-million-markers")) {
        Ruler many(1'000'000);
        const double ratio =
            ui::bench::medianRatio([&many] { many.paint(); }, [&ours] { ours.paint(); });
        report.state("ruler-million-markers", ratio, "x-twenty-markers");
    }
}

} // namespace

int main(int argc, char** argv)
{
    return benchWithTheme(argc, argv, bench);
}
