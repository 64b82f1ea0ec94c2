// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QPlainTextEdit>

/// A text field, a line high, for time codes: what is pasted or dropped into it has to consist of
/// colons and decimal digits, also those of other scripts. Anything else is refused as a whole.
///
/// What is typed is not checked; ui::framesFromTimeCode() reads it. Tab moves on to the next field.
class MORRANT_UI_EXPORT TimeCodeEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit TimeCodeEdit(QWidget* parent = nullptr);
    ~TimeCodeEdit() override;

    /// Wide enough for "-00:00:00:00".
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// False for a text that would be refused, so that dragging it shows this and does not take it
    /// away from where it came.
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};
