// SPDX-License-Identifier: Apache-2.0
#include "EditorPane.h"

#include <MorrantUI/theme/colors.h>

#include <QPainter>

namespace studio {

EditorPane::EditorPane(const QString& title, QWidget* parent)
    : Widget(parent)
{
    setWindowTitle(title);
    setAccessibleName(title);
}

void EditorPane::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), ui::colorQt(QStringLiteral("Window")));
}

} // namespace studio
