#include "Panel.h"

#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/palettes.h>

#include <QAbstractItemView>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace studio {

namespace {

constexpr int kTitleHeight = 30;
constexpr int kTitleIndent = 12;
constexpr int kContentIndent = 8; ///< rows pad themselves by the rest

class NamedColorDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const QString name = index.data(kColorNameRole).toString();
        if (!name.isEmpty()) {
            option->palette.setColor(QPalette::Text, ui::colorQt(name));
        }
    }
};

} // namespace

void writeInNamedColors(QAbstractItemView* view)
{
    view->setItemDelegate(new NamedColorDelegate(view));
}

Panel::Panel(const QString& title, QWidget* parent)
    : Widget(parent)
    , m_title(new QLabel(title, this))
    , m_remark(new QLabel(this))
    , m_layout(new QVBoxLayout(this))
{
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    m_title->setFont(bold);
    colorRemark();

    auto* heading = new QHBoxLayout;
    heading->setContentsMargins(kTitleIndent, 0, kTitleIndent, 0);
    heading->addWidget(m_title);
    heading->addStretch();
    heading->addWidget(m_remark);
    m_title->setFixedHeight(kTitleHeight);

    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    m_layout->addLayout(heading);
}

void Panel::setContent(QWidget* content)
{
    auto* row = new QHBoxLayout;
    row->setContentsMargins(kContentIndent, 0, 0, 0);
    row->addWidget(content);
    m_layout->addLayout(row, 1);
}

void Panel::setRemark(const QString& text)
{
    m_remark->setText(text);
}

void Panel::changeEvent(QEvent* event)
{
    Widget::changeEvent(event);
    if (event->type() == QEvent::StyleChange) { // as of every applyAppStyle()
        colorRemark();
    }
}

void Panel::colorRemark()
{
    ui::setWidgetForeground(m_remark, ui::colorQt(QStringLiteral("HelperHints")));
}

void Panel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), ui::colorQt(QStringLiteral("Base")));
    painter.fillRect(0, 0, width(), kTitleHeight, ui::colorQt(QStringLiteral("SubUIBackground")));
}

} // namespace studio
