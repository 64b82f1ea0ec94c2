// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QAbstractButton>

/// Base of the small buttons at the end of an attribute's row: square, as high as a field and flat
/// until the pointer comes near. Space and Return press it; clicking does not take the focus from
/// the field beside it. Its tool tip names it to assistive tools unless it has a name.
class MORRANT_UI_EXPORT RowButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit RowButton(QWidget* parent = nullptr);
    ~RowButton() override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// Draws what the button shows, between its ground and its focus ring.
    virtual void paintMark(QPainter& painter) = 0;

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};
