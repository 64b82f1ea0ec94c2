// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/text/TimeCodeEdit.h"

#include "MorrantUI/text/fieldlook.h"
#include "MorrantUI/theme/style/shades.h"

#include <QMimeData>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>

namespace {

constexpr int kSideMargin = 5; ///< logical pixels from the frame to the text, as in other fields
constexpr char32_t kFirstBeyondAscii = 128;

bool mayBePasted(char32_t c)
{
    if (c < kFirstBeyondAscii) {
        return (c >= U'0' && c <= U'9') || c == U':';
    }
    return QChar::category(c) == QChar::Number_DecimalDigit;
}

bool isRefused(const QMimeData& data)
{
    if (!data.hasText()) {
        return false;
    }
    const QList<uint> text = data.text().toUcs4();
    return !std::all_of(text.begin(), text.end(), mayBePasted);
}

} // namespace

TimeCodeEdit::TimeCodeEdit(QWidget* parent)
    : QPlainTextEdit(parent)
{
    document()->setDocumentMargin(0);
    viewport()->setAutoFillBackground(false); // the ground has round corners
    setAttribute(Qt::WA_Hover);
    setLineWrapMode(NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

TimeCodeEdit::~TimeCodeEdit() = default;

QSize TimeCodeEdit::sizeHint() const
{
    QStyleOptionFrame option;
    option.initFrom(this);
    const int chars = fontMetrics().horizontalAdvance(QStringLiteral("-00:00:00:00"));
    const QSize text(chars + cursorWidth(), fontMetrics().lineSpacing());
    const QSize framed = text + QSize(2 * (frameWidth() + kSideMargin), 2 * frameWidth());
    // As high as the fields of a line beside it.
    return framed.expandedTo(
        {0, style()->sizeFromContents(QStyle::CT_LineEdit, &option, text, this).height()});
}

QSize TimeCodeEdit::minimumSizeHint() const
{
    const QSize hint = sizeHint();
    return {hint.height(), hint.height()};
}

/// The line stands in the middle of a field that has no room for two.
void TimeCodeEdit::resizeEvent(QResizeEvent* event)
{
    const int room = contentsRect().height();
    const int line = fontMetrics().lineSpacing();
    const int spare = room < 2 * line ? std::max(0, room - line) : 0;
    const QMargins margins(kSideMargin, (spare + 1) / 2, kSideMargin, 0);
    if (margins != viewportMargins()) {
        setViewportMargins(margins);
    }
    QPlainTextEdit::resizeEvent(event);
}

bool TimeCodeEdit::event(QEvent* event)
{
    if (event->type() != QEvent::Paint) {
        return QPlainTextEdit::event(event);
    }
    ui::paintField(*this);
    return true;
}

/// A disabled text is faded here, since a palette of its own would take the field's ground from
/// the style.
void TimeCodeEdit::paintEvent(QPaintEvent* event)
{
    if (isEnabled()) {
        QPlainTextEdit::paintEvent(event);
        return;
    }
    QPainter painter(viewport());
    painter.setPen(ui::style::faded(palette().color(QPalette::Text)));
    QPointF place = contentOffset();
    for (QTextBlock line = firstVisibleBlock(); line.isValid() && place.y() < height();
         line = line.next())
    {
        const double tall = blockBoundingRect(line).height(); // which lays it out
        line.layout()->draw(&painter, place);
        place.ry() += tall;
    }
}

bool TimeCodeEdit::canInsertFromMimeData(const QMimeData* source) const
{
    return source && !isRefused(*source) && QPlainTextEdit::canInsertFromMimeData(source);
}

void TimeCodeEdit::insertFromMimeData(const QMimeData* source)
{
    if (source && !isRefused(*source)) {
        QPlainTextEdit::insertFromMimeData(source);
    }
}
