// SPDX-License-Identifier: Apache-2.0
#include "Report.h"
#include "timing.h"

#include <QApplication>
#include <QProcess>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <string_view>

/// Whole processes, from their start to their end right after the first painted frame: the studio
/// with its default sample against a bare window of Qt's, which this same program shows.
namespace {

constexpr double kStartLimit = 3.0; ///< times the bare window
constexpr std::string_view kBareWindow = "--bare-window";

class BareWindow : public QWidget
{
protected:
    void paintEvent(QPaintEvent*) override { QTimer::singleShot(0, qApp, &QApplication::quit); }
};

int showBareWindow(int argc, char** argv)
{
    const QApplication application(argc, argv);
    BareWindow window;
    window.resize(1440, 900);
    window.show();
    return QApplication::exec();
}

/// A process that fails would look fast.
void runOrGiveUp(const QString& program, const QString& argument)
{
    if (QProcess::execute(program, {argument}) != EXIT_SUCCESS) {
        std::fprintf(stderr, "bench_start: %s did not end well\n", qUtf8Printable(program));
        std::exit(EXIT_FAILURE);
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc > 1 && argv[1] == kBareWindow) {
        return showBareWindow(argc, argv);
    }
    const QCoreApplication application(argc, argv);
    ui::bench::Report report(argc, argv);
    if (report.wants("start-first-frame")) {
        const QString studio = QCoreApplication::applicationDirPath() + QStringLiteral("/studio");
        const auto ours = [&] { runOrGiveUp(studio, QStringLiteral("--quit-after-first-frame")); };
        const auto floor = [] {
            runOrGiveUp(
                QCoreApplication::applicationFilePath(),
                QString::fromLatin1(kBareWindow.data(), static_cast<int>(kBareWindow.size())));
        };
        report.judge("start-first-frame", ui::bench::medianRatio(ours, floor), "x", kStartLimit);
        report.state("start-first-frame-time", ui::bench::medianNanosecondsOf(ours) / 1e6, "ms");
    }
    return report.exitCode();
}
