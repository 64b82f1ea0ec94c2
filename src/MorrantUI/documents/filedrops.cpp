// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/documents/filedrops.h"

#include <MorrantUI/theme/events.h>

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <utility>

namespace ui {

namespace {

QStringList filesIn(const QList<QUrl>& urls, const QString& suffix)
{
    QStringList paths;
    for (const QUrl& url : urls) {
        const QString path = url.toLocalFile();
        const bool isTaken =
            suffix.isEmpty() || QFileInfo(path).suffix().compare(suffix, Qt::CaseInsensitive) == 0;
        if (!path.isEmpty() && isTaken) {
            paths.append(path);
        }
    }
    return paths;
}

} // namespace

void offerFileDrops(QWidget& widget, const QString& suffix, TakeFiles take)
{
    widget.setAcceptDrops(true);
    const auto filter = [&widget, suffix, take = std::move(take)](QObject*, QEvent* event) {
        if (event->type() != QEvent::DragEnter && event->type() != QEvent::Drop) {
            return false;
        }
        auto& drop = *static_cast<QDropEvent*>(event); // which a QDragEnterEvent is
        const QList<QUrl> urls = drop.mimeData()->urls();
        if (urls.isEmpty()) {
            return false;
        }
        drop.setDropAction(Qt::CopyAction);
        drop.accept();
        if (event->type() == QEvent::Drop && take) {
            const QStringList paths = filesIn(urls, suffix);
            const bool hasOthers = paths.size() < urls.size();
            const auto later = [take, paths, hasOthers] { take(paths, hasOthers); };
            QMetaObject::invokeMethod(&widget, later, Qt::QueuedConnection);
        }
        return true;
    };
    installEventFilter(&widget, filter, &widget);
}

} // namespace ui
