// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

namespace studio {

/// Everything the toolkit draws, in every state, on one scrolling page: for judging a theme at a
/// glance and for the pictures of the documentation. It needs a theme and its application style.
class GalleryPage : public QWidget
{
    Q_OBJECT

public:
    explicit GalleryPage(QWidget* parent = nullptr);
    ~GalleryPage() override;

    /// The size at which nothing is scrolled away, for rendering the whole page into a picture.
    QSize fullSize() const;

private:
    QWidget* m_content = nullptr;
};

} // namespace studio
