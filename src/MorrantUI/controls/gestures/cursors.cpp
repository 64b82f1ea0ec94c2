#include "MorrantUI/controls/gestures/cursors.h"

#include <MorrantUI/theme/icons.h>

#include <QPixmap>

#include <optional>

namespace ui {

QCursor scrubCursor()
{
    // Itself never destroyed, since Qt tidies its cursors up at the application's end.
    static auto* const cursor = new std::optional<QCursor>;
    if (!*cursor) {
        const QPixmap picture = getCachedPixmap(QStringLiteral("icons:cursors/scrub.png"));
        if (picture.isNull()) {
            return Qt::SizeHorCursor;
        }
        const QSize size = picture.deviceIndependentSize().toSize();
        cursor->emplace(picture, size.width() / 2, size.height() / 2);
    }
    return **cursor;
}

} // namespace ui
