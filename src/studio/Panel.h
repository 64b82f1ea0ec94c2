// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/theme/Widget.h>

class QAbstractItemView;
class QHBoxLayout;
class QLabel;

namespace studio {

/// Of an item: the name of the theme colour that writeInNamedColors() has it written in.
inline constexpr int kColorNameRole = Qt::UserRole + 1;

/// Lets a view ask for the colours of its items' texts at every paint, so that a change of contrast
/// shows.
void writeInNamedColors(QAbstractItemView* view);

/// The ground that a panel's content lies on. Its title is the window title.
class Panel : public Widget
{
    Q_OBJECT

public:
    explicit Panel(const QString& title, QWidget* parent = nullptr);

protected:
    /// Takes over `content`, which fills the panel.
    void setContent(QWidget* content);
    /// A text in the middle that says why there is nothing to see. Owned by the caller.
    static QLabel* makeHint(const QString& text = {});
    /// Adds a remark to the title, such as a count; empty for none.
    void setRemark(const QString& text);

    void paintEvent(QPaintEvent* event) override;

private:
    QString m_title;
    QHBoxLayout* m_layout;
};

} // namespace studio
