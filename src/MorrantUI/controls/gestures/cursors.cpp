// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/gestures/cursors.h"

#include <MorrantUI/theme/icons.h>

#include <QHash>
#include <QPixmap>

namespace ui {

namespace {

/// A picture held at its middle, or the system's cursor while there is no such file.
QCursor pictureCursor(const QString& path, Qt::CursorShape fallback)
{
    // Itself never destroyed, since Qt tidies its cursors up at the application's end.
    static auto* const cursors = new QHash<QString, QCursor>;
    const auto known = cursors->constFind(path);
    if (known != cursors->constEnd()) {
        return *known;
    }
    const QPixmap picture = getCachedPixmap(path);
    if (picture.isNull()) {
        return fallback;
    }
    const QSize size = picture.deviceIndependentSize().toSize();
    return *cursors->insert(path, QCursor(picture, size.width() / 2, size.height() / 2));
}

} // namespace

QCursor scrubCursor()
{
    return pictureCursor(QStringLiteral("icons:cursors/scrub.png"), Qt::SizeHorCursor);
}

QCursor panCursor()
{
    return pictureCursor(QStringLiteral("icons:cursors/pan.png"), Qt::OpenHandCursor);
}

QCursor panGrabCursor()
{
    return pictureCursor(QStringLiteral("icons:cursors/pan-grab.png"), Qt::ClosedHandCursor);
}

} // namespace ui
