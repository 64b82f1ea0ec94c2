// SPDX-License-Identifier: Apache-2.0
#include "Report.h"
#include "themeassets.h"
#include "timing.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/timeeditor/DopeSheetOutline.h>
#include <MorrantUI/timeeditor/DopeSheetView.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>
#include <MorrantUI/timeline/DopeSheetPane.h>

#include <QApplication>
#include <QGraphicsRectItem>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

using ui::bench::Report;

namespace {

constexpr QSize kViewSize(1600, 900); ///< logical pixels
constexpr int kRowHeight = 22;
constexpr int kShownFrames = 400; ///< in the width of the view

/// Rows of keys at even distances, of which a part is in sight.
struct Document
{
    int rows = 0;
    int keysPerRow = 0;
    int distance = 0; ///< frames between the keys of a row

    int keys() const { return rows * keysPerRow; }
    int frames() const { return keysPerRow * distance; }
};

/// 1,000 keys in 40 rows, all frames of which are in sight.
constexpr Document kSmall{40, 25, 50};
/// As many keys in sight, of 20,000 and of 100,000.
constexpr Document kLong{40, 500, 50};
constexpr Document kTall{1000, 100, 50};
/// 3,000 keys in sight.
constexpr Document kDense{40, 500, 5};

struct Editor
{
    explicit Editor(const Document& document)
    {
        scene = new TimeEditorScene(&view, QRect(0, 0, 10, 10));
        view.resize(kViewSize);
        view.setup(scene);
        const int frames = document.frames();
        view.setFrameRange(0, frames);
        view.setPlaybackRange(0, frames);
        view.setBackgroundRegion(0, frames);
        view.show();
        view.setScale(static_cast<double>(kShownFrames) / (frames + 4));
        for (int row = 0; row < document.rows; ++row) {
            auto* const curve = new TimeEditorCurveItem(&view);
            for (int key = 0; key < document.keysPerRow; ++key) {
                curve->addKeyframe(key * document.distance + row % document.distance);
            }
            scene->addLayoutItem(curve);
            curves.push_back(curve);
        }
        view.setupViewAndScene(0, frames, document.rows * kRowHeight);
        view.centerOn(frames / 2, 0);
        QCoreApplication::processEvents();
    }

    void paint() { view.viewport()->repaint(); }

    void tick()
    {
        view.setCurrentFrame(view.frameNumber() == 1 ? 2 : 1);
        QCoreApplication::processEvents();
    }

    void pan()
    {
        QScrollBar* const bar = view.horizontalScrollBar();
        bar->setValue(bar->value() + (right ? 3 : -3));
        right = !right;
        QCoreApplication::processEvents();
    }

    void send(QEvent::Type type, QPointF place, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        QMouseEvent event(
            type, place, view.viewport()->mapToGlobal(place), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }

    /// Across the rows in sight, over keys and beside them.
    void move()
    {
        for (int x = 10; x < 1500; x += 29) {
            send(QEvent::MouseMove, QPointF(x, 15 + x % 700), Qt::NoButton, Qt::NoButton);
        }
    }

    void pressAt(QPointF place)
    {
        send(QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton);
    }

    /// On twenty keys near the middle of the view.
    void press()
    {
        const double frame = view.mapToScene(kViewSize.width() / 2, 0).x();
        for (const TimeEditorKeyframeItem* const key : shown.empty() ? find(frame) : shown) {
            pressAt(view.mapFromScene(key->sceneBoundingRect().center()));
        }
    }

    /// A key of each of twenty rows near a frame.
    const std::vector<TimeEditorKeyframeItem*>& find(double frame)
    {
        for (std::size_t row = 2; row < 22; ++row) {
            for (TimeEditorKeyframeItem* const key : curves.at(row)->keyframes()) {
                if (key->x() >= frame) {
                    shown.push_back(key);
                    break;
                }
            }
        }
        return shown;
    }

    TimeEditorView view;
    TimeEditorScene* scene = nullptr;
    std::vector<TimeEditorCurveItem*> curves;
    std::vector<TimeEditorKeyframeItem*> shown;
    bool right = true;
};

/// The floor of a repaint: the same keys by number, drawn one after the other.
class RawKeys : public QWidget
{
public:
    explicit RawKeys(const Editor& editor)
    {
        resize(editor.view.viewport()->size());
        const QRectF visible = editor.view.getVisibleRect();
        for (const TimeEditorCurveItem* const curve : editor.curves) {
            for (const TimeEditorKeyframeItem* const key : curve->keyframes()) {
                if (key->sceneBoundingRect().intersects(visible)) {
                    places.push_back(editor.view.mapFromScene(key->scenePos()));
                }
            }
        }
        show();
        QCoreApplication::processEvents();
    }

    std::vector<QPointF> places;

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), ui::colorQt(QStringLiteral("WindowBase")));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(ui::colorQt(QStringLiteral("Base")));
        painter.setBrush(ui::colorQt(QStringLiteral("Light")));
        const QPolygonF diamond({{0, 1}, {5, 6}, {0, 11}, {-5, 6}});
        for (const QPointF& place : places) {
            painter.drawPolygon(diamond.translated(place));
        }
    }
};

/// The floor of what changes items: as many plain ones below as many rows.
struct PlainItems
{
    explicit PlainItems(const Document& document)
    {
        scene.setItemIndexMethod(QGraphicsScene::NoIndex);
        for (int row = 0; row < document.rows; ++row) {
            auto* const parent = new QGraphicsRectItem(0, 0, 1, kRowHeight);
            parent->setPos(0, row * kRowHeight);
            for (int key = 0; key < document.keysPerRow; ++key) {
                auto* const item = new QGraphicsRectItem(-5, 1, 10, 10, parent);
                item->setPos(key * document.distance, 5);
                items.push_back(item);
            }
            scene.addItem(parent); // with its items, as our rows are
        }
    }

    /// A view that looks at the same place of the items as ours.
    void showLike(const QGraphicsView& other)
    {
        scene.setSceneRect(other.sceneRect());
        view.setScene(&scene);
        view.resize(kViewSize);
        view.setTransform(other.transform());
        view.show();
        view.centerOn(other.mapToScene(other.viewport()->rect().center()));
        QCoreApplication::processEvents();
    }

    QGraphicsScene scene;
    QGraphicsView view;
    std::vector<QGraphicsRectItem*> items;
};

void benchRepaint(Report& report)
{
    const char* const name = "timeeditor-repaint-3000";
    if (!report.wants(name)) {
        return;
    }
    Editor editor(kDense);
    RawKeys raw(editor);
    std::printf("# %zu keys in sight\n", raw.places.size());
    const double ratio = ui::bench::medianRatio([&] { editor.paint(); }, [&] { raw.repaint(); });
    report.judge(name, ratio, "x-raw-loop", 0.7);
}

using Deed = void (Editor::*)();

void benchGrowth(Report& report, const char* what, Deed deed)
{
    const auto compare = [&](const char* size, const Document& document, double limit) {
        const std::string name = std::string("timeeditor-") + what + "-" + size;
        if (!report.wants(name)) {
            return;
        }
        Editor small(kSmall);
        Editor large(document);
        const double ratio =
            ui::bench::medianRatio([&] { (large.*deed)(); }, [&] { (small.*deed)(); });
        report.judge(name, ratio, "x-1k-keys", limit);
        const double time = ui::bench::medianNanosecondsOf([&] { (large.*deed)(); });
        report.state(name + "-time", time / 1e6, "ms");
    };
    compare("20k", kLong, 2.0);
    compare("100k", kTall, 1.5);
}

void benchZoom(Report& report, const char* name, const Document& document)
{
    if (!report.wants(name)) {
        return;
    }
    Editor editor(document);
    PlainItems plain(document);
    plain.showLike(editor.view);
    const double scale = editor.view.getScale();
    bool in = true;
    double width = 10.0;
    const double ratio = ui::bench::medianRatio(
        [&] {
            editor.view.setScale(scale * (in ? 1.02 : 1.0));
            in = !in;
        },
        [&] {
            width = width == 10.0 ? 10.2 : 10.0;
            for (QGraphicsRectItem* const item : plain.items) {
                item->setRect(-width / 2, 1, width, 10);
            }
        });
    report.judge(name, ratio, "x-setRect-loop", 1.3);
}

/// A step with what follows on the screen is judged, the loop alone reported.
void benchDrag(Report& report, const char* name, const Document& document)
{
    if (!report.wants(name)) {
        return;
    }
    constexpr std::size_t kDragged = 1000;
    Editor editor(document);
    editor.scene->blockSignals(true);
    std::size_t left = kDragged;
    for (TimeEditorCurveItem* const curve : editor.curves) {
        for (TimeEditorKeyframeItem* const key : curve->keyframes()) {
            key->setSelected(left > 0);
            left -= left > 0 ? 1 : 0;
        }
    }
    editor.scene->blockSignals(false);
    TimeEditorKeyframeItem* const pressed = editor.curves.front()->keyframes().at(10);
    editor.view.centerOn(pressed);
    QCoreApplication::processEvents();
    PlainItems plain(document);
    plain.showLike(editor.view);
    const QPointF place = editor.view.mapFromScene(pressed->sceneBoundingRect().center());
    editor.send(QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton);
    const double frame = editor.view.transform().m11();
    int step = 0;
    int plainStep = 0;
    const auto drag = [&] {
        ++step;
        const QPointF to = place + QPointF((step % 2 + 1) * 2 * frame, 0);
        editor.send(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
    };
    const auto loop = [&] {
        ++plainStep;
        for (std::size_t i = 0; i < kDragged; ++i) {
            QGraphicsRectItem* const item = plain.items.at(i);
            item->setPos(item->x() + (plainStep % 2 == 0 ? 2 : -2), item->y());
        }
    };
    const auto shown = [](auto&& work) {
        return [work] {
            work();
            QCoreApplication::processEvents();
        };
    };
    report.judge(
        name, ui::bench::medianRatio(shown(drag), shown(loop)), "x-setPos-loop-shown", 2.0);
    report.state(
        std::string(name) + "-unseen", ui::bench::medianRatio(drag, loop), "x-setPos-loop");
    editor.send(QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton);
}

/// Keys that are made and shown, against items that are; against items that nobody has looked at
/// yet it is reported, and so is the time to take them away again.
void benchBuild(Report& report)
{
    const char* const name = "timeeditor-build-100k";
    if (!report.wants(name)) {
        return;
    }
    std::vector<double> ratios;
    std::vector<double> strictRatios;
    std::vector<double> clearings;
    for (int run = 0; run < ui::bench::kRuns; ++run) {
        std::unique_ptr<Editor> editor;
        std::unique_ptr<PlainItems> plain;
        const double ours =
            ui::bench::nanosecondsOf([&] { editor = std::make_unique<Editor>(kTall); });
        const double made =
            ui::bench::nanosecondsOf([&] { plain = std::make_unique<PlainItems>(kTall); });
        const double shown = ui::bench::nanosecondsOf([&] { plain->showLike(editor->view); });
        ratios.push_back(ours / (made + shown));
        strictRatios.push_back(ours / made);
        clearings.push_back(ui::bench::nanosecondsOf([&] { editor->scene->clearScene(); }));
    }
    report.judge(name, ui::bench::median(ratios), "x-plain-items-shown", 2.0);
    report.state(
        std::string(name) + "-to-unseen", ui::bench::median(strictRatios), "x-plain-items");
    report.state("timeeditor-clear-100k-time", ui::bench::median(clearings) / 1e6, "ms");
}

/// The same rows as a list: made by an outline against made by hand. A list that is pushed back
/// with a key of each row elsewhere is reported, as are all rows folded into one.
void benchOutline(Report& report)
{
    const char* const name = "timeeditor-outline-100k";
    if (!report.wants(name)) {
        return;
    }
    std::vector<DopeSheetLine> lines{{.id = QStringLiteral("all")}};
    for (int row = 0; row < kTall.rows; ++row) {
        DopeSheetLine line{.id = QString::number(row), .label = {.depth = 1}};
        for (int key = 0; key < kTall.keysPerRow; ++key) {
            line.keys.push_back({static_cast<double>(key * kTall.distance + row % kTall.distance)});
        }
        lines.push_back(line);
    }
    std::vector<double> ratios;
    std::vector<double> pushes;
    std::vector<double> folds;
    for (int run = 0; run < ui::bench::kRuns; ++run) {
        std::unique_ptr<Editor> rows;
        const double byHand =
            ui::bench::nanosecondsOf([&] { rows = std::make_unique<Editor>(kTall); });
        DopeSheetPane pane;
        DopeSheetOutline outline(pane.view(), pane.header());
        pane.resize(kViewSize);
        pane.show();
        pane.setFrameRange(0, kTall.frames());
        QCoreApplication::processEvents();
        const double asList = ui::bench::nanosecondsOf([&] {
            outline.setLines(lines);
            pane.rowsChanged();
            QCoreApplication::processEvents();
        });
        ratios.push_back(asList / byHand);
        for (std::size_t row = 1; row < lines.size(); ++row) {
            lines[row].keys[0].frame = 1 - lines[row].keys[0].frame;
        }
        pushes.push_back(ui::bench::nanosecondsOf([&] { outline.setLines(lines); }));
        folds.push_back(
            ui::bench::nanosecondsOf([&] { outline.setFolded({QStringLiteral("all")}); }));
    }
    report.judge(name, ui::bench::median(ratios), "x-rows-by-hand", 1.5);
    report.state("timeeditor-outline-push-100k-time", ui::bench::median(pushes) / 1e6, "ms");
    report.state("timeeditor-outline-fold-100k-time", ui::bench::median(folds) / 1e6, "ms");
}

} // namespace

int main(int argc, char** argv)
{
    return benchWithTheme(argc, argv, [](Report& report) {
        benchRepaint(report);
        benchGrowth(report, "repaint", &Editor::paint);
        benchGrowth(report, "tick", &Editor::tick);
        benchGrowth(report, "pan", &Editor::pan);
        benchGrowth(report, "move", &Editor::move);
        benchGrowth(report, "press", &Editor::press);
        benchZoom(report, "timeeditor-zoom-20k", kLong);
        benchZoom(report, "timeeditor-zoom-100k", kTall);
        benchDrag(report, "timeeditor-drag-1000-of-20k", kLong);
        benchBuild(report);
        benchOutline(report);
    });
}
