// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStackedWidget>

/// A stack that is as small as the page in front may be. Qt's own keeps room for the minimum sizes
/// of all pages.
class PageStack : public QStackedWidget
{
    Q_OBJECT

public:
    explicit PageStack(QWidget* parent);
    ~PageStack() override;

    QSize minimumSizeHint() const override;

    /// Shows another page and paints it once. As setCurrentIndex() does it, Qt paints a page that
    /// has a ground of its own twice: for itself, and again with the stack below it.
    void showPage(int index);
};
