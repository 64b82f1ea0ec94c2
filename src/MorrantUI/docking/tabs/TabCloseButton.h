// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractButton>

/// The cross at the end of a tab. It is quiet while the tab is neither current nor under
/// the pointer, has a ground only under the pointer itself, and never the focus.
class TabCloseButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit TabCloseButton(QWidget* parent);
    ~TabCloseButton() override;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
