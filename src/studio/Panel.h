#pragma once

#include <MorrantUI/theme/Widget.h>

class QAbstractItemView;
class QLabel;
class QVBoxLayout;

namespace studio {

/// Of an item: the name of the theme colour that writeInNamedColors() has it written in.
inline constexpr int kColorNameRole = Qt::UserRole + 1;

/// Lets a view ask for the colours of its items' texts at every paint, so that a change of contrast
/// shows.
void writeInNamedColors(QAbstractItemView* view);

/// A strip with a title above whatever is added to it.
class Panel : public Widget
{
    Q_OBJECT

public:
    explicit Panel(const QString& title, QWidget* parent = nullptr);

protected:
    /// Takes over `content`, which fills the space below the title.
    void setContent(QWidget* content);
    /// A remark at the right of the title, such as a count.
    void setRemark(const QString& text);

    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void colorRemark();

    QLabel* m_title;
    QLabel* m_remark;
    QVBoxLayout* m_layout;
};

} // namespace studio
