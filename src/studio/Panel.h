#pragma once

#include <MorrantUI/theme/Widget.h>

class QLabel;
class QVBoxLayout;

namespace studio {

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

private:
    QLabel* m_title;
    QLabel* m_remark;
    QVBoxLayout* m_layout;
};

} // namespace studio
