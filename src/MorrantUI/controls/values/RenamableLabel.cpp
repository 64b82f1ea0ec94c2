// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/RenamableLabel.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/controls/values/elidedtext.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/controls/values/LineEdit.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>
#include <utility>

namespace {

constexpr int kPadding = 6;           ///< beside the text, as a line edit has it
constexpr double kHoverGround = 0.06; ///< of the text colour's strength

/// A label whose text assistive tools can set.
class AccessibleName : public QAccessibleWidget
{
public:
    explicit AccessibleName(RenamableLabel* label)
        : QAccessibleWidget(label, QAccessible::StaticText)
    {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = label()->isRenamable();
        return state;
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString own = QAccessibleWidget::text(kind);
        const bool isText =
            kind == QAccessible::Value || (kind == QAccessible::Name && own.isEmpty());
        return isText ? label()->text() : own;
    }

    void setText(QAccessible::Text kind, const QString& text) override
    {
        if (kind == QAccessible::Value) {
            label()->rename(text);
        }
    }

    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (label()->isRenamable() && label()->isEnabled()) {
            names.prepend(pressAction());
        }
        return names;
    }

    void doAction(const QString& name) override
    {
        if (name == pressAction()) {
            label()->startEditing();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    RenamableLabel* label() const { return static_cast<RenamableLabel*>(object()); }
};

} // namespace

RenamableLabel::RenamableLabel(QWidget* parent)
    : RenamableLabel(QString(), parent)
{}

RenamableLabel::RenamableLabel(const QString& text, QWidget* parent)
    : QWidget(parent)
    , m_text(text)
{
    ui::installAccessible<RenamableLabel, AccessibleName>();
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

RenamableLabel::~RenamableLabel() = default;

void RenamableLabel::setText(const QString& text)
{
    if (text == m_text) {
        return;
    }
    m_text = text;
    updateGeometry();
    update();
    ui::notifyAccessible(this, QAccessible::NameChanged);
    Q_EMIT textChanged(text);
}

void RenamableLabel::rename(const QString& text)
{
    if (m_renamable && isEnabled()) {
        takeName(text);
    }
}

void RenamableLabel::takeName(const QString& entered)
{
    const QString name = entered.trimmed();
    if (!name.isEmpty() && name != m_text) {
        const QPointer<RenamableLabel> self(this);
        setText(name);
        if (self) {
            Q_EMIT renamed(name);
        }
    }
}

void RenamableLabel::setRenamable(bool renamable)
{
    if (m_renamable == renamable) {
        return;
    }
    const QPointer<RenamableLabel> self(this);
    if (!renamable) {
        finishEditing(Outcome::Take);
    }
    if (!self) {
        return;
    }
    m_renamable = renamable;
    setFocusPolicy(renamable ? Qt::StrongFocus : Qt::NoFocus);
    if (!renamable && hasFocus()) {
        focusNextChild();
    }
}

void RenamableLabel::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

QSize RenamableLabel::sizeHint() const
{
    const int width = ui::wholeWidth(font(), m_text) + 2 * kPadding;
    return {width, std::max(fontMetrics().height() + 2, ui::rowHeight(*this))};
}

QSize RenamableLabel::minimumSizeHint() const
{
    return {
        ui::kLeastCharacters * fontMetrics().averageCharWidth() + 2 * kPadding,
        sizeHint().height()};
}

QRect RenamableLabel::textRect() const
{
    return rect().adjusted(kPadding, 0, -kPadding, 0);
}

QString RenamableLabel::shownText() const
{
    return fontMetrics().elidedText(m_text, Qt::ElideRight, textRect().width());
}

void RenamableLabel::startEditing()
{
    if (m_editing || !m_renamable || !isEnabled() || !isVisible()) {
        return;
    }
    if (!m_editor) {
        m_editor = new LineEdit(this);
        m_editor->installEventFilter(this);
        setTabOrder(this, m_editor); // or Tab would go on behind everything else
    }
    m_editing = true;
    m_editor->setAlignment(QStyle::visualAlignment(layoutDirection(), m_alignment));
    m_editor->setAccessibleName(tr("Name"));
    m_editor->setText(m_text);
    m_editor->selectAll();
    m_editor->setGeometry(rect());
    m_editor->show();
    m_editor->setFocus(Qt::OtherFocusReason);
}

void RenamableLabel::finishEditing(Outcome outcome)
{
    if (!std::exchange(m_editing, false) || !m_editor) {
        return;
    }
    if (m_editor->hasFocus()) {
        setFocus(Qt::OtherFocusReason); // or hiding the editor would pass it on to a neighbour
    }
    m_editor->hide();
    update();
    if (outcome == Outcome::Take) {
        takeName(m_editor->text());
    }
}

bool RenamableLabel::eventFilter(QObject* watched, QEvent* event)
{
    const QPointer<RenamableLabel> self(this);
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (takeEditorKey(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        break;
    case QEvent::FocusOut:
        // Its own context menu is not another place to be.
        if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
            finishEditing(Outcome::Take);
        }
        break;
    default: break;
    }
    return !self || QWidget::eventFilter(watched, event);
}

/// Return and Escape, which are kept from the window's shortcuts and from its default button too.
bool RenamableLabel::takeEditorKey(const QKeyEvent& event)
{
    const bool takes = ui::isReturn(event);
    if (!takes && event.key() != Qt::Key_Escape) {
        return false;
    }
    if (event.type() == QEvent::KeyPress) {
        finishEditing(takes ? Outcome::Take : Outcome::Restore);
    }
    return true;
}

bool RenamableLabel::event(QEvent* event)
{
    const bool asks = event->type() == QEvent::ToolTip; // else nothing is measured
    return (asks && ui::answerWithWholeText(*this, event, m_text, shownText()))
           || QWidget::event(event);
}

void RenamableLabel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        finishEditing(Outcome::Take);
    } else if (event->type() == QEvent::FontChange) {
        updateGeometry();
    }
    QWidget::changeEvent(event);
}

void RenamableLabel::hideEvent(QHideEvent* event)
{
    finishEditing(Outcome::Take);
    QWidget::hideEvent(event);
}

void RenamableLabel::keyPressEvent(QKeyEvent* event)
{
    const bool starts = event->key() == Qt::Key_F2 || ui::isReturn(*event);
    if (starts && m_renamable && !ui::hasModifier(*event)) {
        if (!event->isAutoRepeat()) {
            startEditing();
        }
    } else {
        QWidget::keyPressEvent(event);
    }
}

void RenamableLabel::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_renamable) {
        startEditing();
    } else {
        QWidget::mouseDoubleClickEvent(event);
    }
}

void RenamableLabel::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_editor) {
        m_editor->setGeometry(rect());
    }
}

void RenamableLabel::paintEvent(QPaintEvent*)
{
    if (m_editing) {
        return;
    }
    QStyleOption option;
    option.initFrom(this);
    const ui::style::WidgetState state = ui::style::stateOf(option);
    QPainter painter(this);

    if (state.hovered && m_renamable) {
        const QColor text = option.palette.color(QPalette::WindowText);
        ui::style::fillRounded(
            painter, rect(), ui::style::kRadius, ui::style::translucent(text, kHoverGround));
    }
    style()->drawItemText(
        &painter,
        textRect(),
        static_cast<int>(QStyle::visualAlignment(layoutDirection(), m_alignment))
            | Qt::TextSingleLine,
        option.palette,
        state.enabled,
        shownText(),
        QPalette::WindowText);
    if (state.keyboard) {
        ui::style::drawFocusRing(painter, rect());
    }
}
