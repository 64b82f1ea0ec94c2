// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QApplication>
#include <QToolTip>

namespace ui::test {

/// The application's look when a test began, given back at the end for the tests that follow.
class ApplicationLook
{
public:
    ~ApplicationLook() { restore(); }

    void restore() const
    {
        qApp->setStyleSheet(QString());
        QApplication::setStyle(QStringLiteral("fusion"));
        QApplication::setPalette(m_palette);
        QApplication::setFont(m_font);
        QToolTip::setPalette(m_toolTipPalette);
    }

private:
    const QPalette m_palette = QApplication::palette();
    const QPalette m_toolTipPalette = QToolTip::palette();
    const QFont m_font = QApplication::font();
};

} // namespace ui::test
