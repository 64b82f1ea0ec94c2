// SPDX-License-Identifier: Apache-2.0
#include "Panel.h"

#include <MorrantUI/theme/colors.h>

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyledItemDelegate>

namespace studio {

namespace {

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
    , m_title(title)
    , m_layout(new QHBoxLayout(this))
{
    m_layout->setContentsMargins(kContentIndent, kContentIndent, 0, 0);
    setWindowTitle(title);
}

void Panel::setContent(QWidget* content)
{
    m_layout->addWidget(content);
}

QLabel* Panel::makeHint(const QString& text)
{
    auto* label = new QLabel(text);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

void Panel::setRemark(const QString& text)
{
    setWindowTitle(text.isEmpty() ? m_title : tr("%1 (%2)").arg(m_title, text));
}

void Panel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), ui::colorQt(QStringLiteral("Base")));
}

} // namespace studio
