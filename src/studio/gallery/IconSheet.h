// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>
#include <QWidget>

namespace studio {

/// Every icon and cursor in the theme's icon folder with its name, in as many columns as fit.
class IconSheet : public QWidget
{
    Q_OBJECT

public:
    explicit IconSheet(QWidget* parent = nullptr);
    ~IconSheet() override;

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QStringList m_names; ///< relative to the icon folder, without ending
};

} // namespace studio
