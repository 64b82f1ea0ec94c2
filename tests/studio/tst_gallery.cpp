// SPDX-License-Identifier: Apache-2.0
#include "gallery/StateSheet.h"
#include "studiotest.h"

using studio::StateSheet;

namespace {

struct OpenSheet : StateSheet
{
    OpenSheet()
    {
        studio::test::showActive(*this);
        QCoreApplication::processEvents();
    }

    QGridLayout& grid() const { return *qobject_cast<QGridLayout*>(layout()); }

    QWidget* cell(int row, int column) const
    {
        const QLayoutItem* item = grid().itemAtPosition(row, column);
        return item != nullptr ? item->widget() : nullptr;
    }

    QString textAt(int row, int column) const
    {
        return qobject_cast<QLabel*>(cell(row, column))->text();
    }
};

constexpr int kRest = 1; ///< column; those of the states follow
constexpr int kLastState = 6;

} // namespace

class GalleryTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:

    void everyStateOfAControlLooksDifferentFromRest()
    {
        OpenSheet sheet;
        const QImage all = sheet.grab().toImage();
        const auto picture = [&](const QWidget& cell) {
            const double ratio = all.devicePixelRatio();
            const QRect place = cell.geometry();
            return all.copy(QRectF(place.topLeft() * ratio, QSizeF(place.size()) * ratio).toRect());
        };
        for (int row = 1; row < sheet.grid().rowCount(); ++row) {
            const QImage rest = picture(*sheet.cell(row, kRest));
            for (int column = kRest + 1; column <= kLastState; ++column) {
                if (const QWidget* cell = sheet.cell(row, column)) {
                    const QString name = sheet.textAt(row, 0) + u", "_qs + sheet.textAt(0, column);
                    QVERIFY2(picture(*cell) != rest, qUtf8Printable(name));
                }
            }
        }
    }

    void onlyControlsAtRestReact()
    {
        OpenSheet sheet;
        const auto press = [](QWidget* cell) {
            ui::test::FakePointer pointer(cell);
            pointer.press(cell->rect().center());
            const bool isDown = qobject_cast<QAbstractButton*>(cell)->isDown();
            pointer.release();
            return isDown;
        };
        QVERIFY(press(sheet.cell(1, kRest)) && !press(sheet.cell(1, kRest + 1)));
        sheet.hide();
        sheet.show();
        QCoreApplication::processEvents();
        QVERIFY(qobject_cast<QAbstractButton*>(sheet.cell(1, kRest + 2))->isDown());
    }
};

const ui::test::Registration<GalleryTest> kRegistration;

#include "tst_gallery.moc"
