#pragma once

#include <MorrantUI/menus/dismiss.h>

#include <QObject>

class QEvent;
class QWidget;

namespace ui {

/// Watches the application's presses while its widget is to be seen, and only then: hidden panels
/// cost nothing.
class OutsidePressFilter : public QObject
{
    Q_OBJECT

public:
    OutsidePressFilter(QWidget* widget, OutsidePress dismiss);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isOutside(const QWidget& pressed, QPoint position) const;

    QWidget* m_widget; ///< the parent
    OutsidePress m_dismiss;
};

} // namespace ui
