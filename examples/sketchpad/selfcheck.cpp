// SPDX-License-Identifier: Apache-2.0
#include "selfcheck.h"

#include "RosettePanel.h"
#include "RosetteView.h"
#include "SketchWindow.h"
#include <MorrantUI/controls/values/AttributeRow.h>
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/docking/DockableWindow.h>
#include <MorrantUI/docking/saving/savedlayouts.h>

#include <QApplication>
#include <QDBusConnection>
#include <QDialog>
#include <QImage>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace {

/// The part of a desktop that shows notifications.
class NotificationService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    NotificationService()
    {
        QDBusConnection bus = QDBusConnection::sessionBus();
        bus.registerObject(
            QStringLiteral("/org/freedesktop/Notifications"),
            this,
            QDBusConnection::ExportAllSlots);
        bus.registerService(QStringLiteral("org.freedesktop.Notifications"));
    }

    QStringList shown;

public Q_SLOTS:
    uint Notify(
        const QString&,
        uint,
        const QString&,
        const QString& title,
        const QString& body,
        const QStringList&,
        const QVariantMap&,
        int)
    {
        shown.append(title + QStringLiteral(": ") + body);
        return static_cast<uint>(shown.size());
    }
};

bool holds(bool claim, const char* text)
{
    if (!claim) {
        std::fprintf(stderr, "sketchpad: not so: %s\n", text);
    }
    return claim;
}

/// A drag to the right over the field, in several movements.
void scrub(NumericField* field)
{
    const QPoint start = field->rect().center();
    QTest::mousePress(field, Qt::LeftButton, {}, start);
    for (const int distance : {10, 20, 30}) {
        QTest::mouseMove(field, start + QPoint(distance, 0));
    }
    QTest::mouseRelease(field, Qt::LeftButton, {}, start + QPoint(30, 0));
    QCoreApplication::processEvents();
}

bool aGestureIsOneStep(SketchWindow& window)
{
    QUndoStack& history = window.document().history();
    const Rosette before = window.document().rosette();
    window.panel().size()->setLinked(true);
    scrub(window.panel().size()->field(0)); // the other field follows
    const Rosette after = window.document().rosette();
    bool good =
        holds(after.width > before.width && after.height > before.height, "a drag grows it");
    good &= holds(history.count() == 1, "a drag of two linked fields is one step");
    history.undo();
    good &= holds(window.document().rosette() == before, "undo brings it back");
    good &= holds(window.panel().size()->value(1) == before.height, "the fields show it");
    history.redo();
    return holds(window.document().rosette() == after, "redo does it again") && good;
}

bool skiaDraws(SketchWindow& window)
{
    const QImage before = window.view().grab().toImage();
    const QColor center =
        before.pixelColor(before.rect().center() - QPoint(0, before.height() / 8));
    scrub(window.panel().petals()->field(0));
    bool good = holds(center != before.pixelColor(2, 2), "a petal has a colour of its own");
    good &= holds(window.view().surface() != nullptr, "the drawing is Skia's");
    return holds(window.view().grab().toImage() != before, "more petals look different") && good;
}

bool theDialogAsks(SketchWindow& window)
{
    bool themed = false;
    QTimer::singleShot(0, &window, [&themed] {
        QWidget* dialog = QApplication::activeModalWidget();
        auto* field = dialog ? dialog->findChild<QLineEdit*>() : nullptr;
        if (field) {
            themed = dialog->style() == QApplication::style();
            QTest::keyClicks(field, QStringLiteral("Aster & Co"));
            QTest::keyClick(field, Qt::Key_Return);
        }
    });
    window.rename();
    QCoreApplication::processEvents();
    return holds(themed, "the dialog has the application's style")
           && holds(window.windowTitle() == QStringLiteral("Aster & Co"), "the name is taken");
}

bool theExportIsAnnounced(SketchWindow& window, const NotificationService& service)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("rosette.png"));
    window.exportTo(path);
    const bool told = QTest::qWaitFor([&] { return !service.shown.isEmpty(); });
    return holds(!QImage(path).isNull(), "the drawing is written") && holds(told, "it is announced")
           && holds(
               service.shown.first() == QStringLiteral("Export complete: Aster &amp; Co"),
               "by its name");
}

bool thePanelsStay(SketchWindow& window)
{
    const QByteArray standard = ui::saveLayout();
    DockableWindow* history = ui::panelNamed(QStringLiteral("history"));
    history->undock(true);
    ui::panelNamed(QStringLiteral("drawing"))->dockInArea(history, DockableArea::Center);
    const QByteArray arranged = ui::saveLayout();
    return holds(arranged != standard, "the user has moved a panel")
           && holds(window.close(), "the window closes");
}

} // namespace

bool selfCheck()
{
    const QTemporaryDir folder;
    const QString layout = folder.filePath(QStringLiteral("layout.json"));
    const NotificationService service;

    QByteArray left;
    bool good = true;
    {
        SketchWindow window(layout);
        window.show();
        QCoreApplication::processEvents();
        good &= aGestureIsOneStep(window);
        good &= skiaDraws(window);
        good &= theDialogAsks(window);
        good &= theExportIsAnnounced(window, service);
        good &= thePanelsStay(window);
        left = ui::saveLayout();
    }
    SketchWindow window(layout);
    window.show();
    QCoreApplication::processEvents();
    return holds(ui::saveLayout() == left, "the panels are where they were") && good;
}

#include "selfcheck.moc"
