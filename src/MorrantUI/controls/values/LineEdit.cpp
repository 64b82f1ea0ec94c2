// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/LineEdit.h"

#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/controls/historykeys.h"
#include "MorrantUI/theme/style/shades.h"
#include <MorrantUI/theme/colors.h>

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QStyleOptionFrame>
#include <QValidator>

#include <utility>

namespace {

constexpr double kEditingValue = 70.0;  ///< percent of the ground's value while it is edited
constexpr double kFrameStrength = 0.25; ///< of the frame's colour at rest

} // namespace

struct LineEdit::Colors
{
    QColor ground;
    QColor text;
    QColor frame;
};

LineEdit::LineEdit(QWidget* parent)
    : QLineEdit(parent)
    , m_background(QStringLiteral("Base"))
    , m_text(QStringLiteral("Text"))
    , m_frame(QStringLiteral("WindowText"))
{
    connect(this, &QLineEdit::textEdited, this, [this] { m_isTyped = true; });
    connect(this, &QLineEdit::textChanged, this, &LineEdit::noteText); // after the former
}

LineEdit::~LineEdit() = default;

void LineEdit::setColors(const QString& background, const QString& text, const QString& frame)
{
    m_background = background;
    m_text = text;
    m_frame = frame;
    update(); // which looks them up
}

LineEdit::Colors LineEdit::colors(bool editing) const
{
    const QColor ground = ui::colorQt(m_background);
    return {
        editing ? ui::changeValue(ground, kEditingValue) : ground,
        ui::colorQt(m_text),
        ui::style::translucent(ui::colorQt(m_frame), kFrameStrength)};
}

void LineEdit::updatePalette(bool editing)
{
    m_isEditing = editing;
    const Colors wanted = colors(editing);
    QPalette changed = palette();
    changed.setColor(QPalette::Base, wanted.ground);
    changed.setColor(QPalette::Text, wanted.text);
    changed.setColor(QPalette::Midlight, wanted.frame);
    setPalette(changed);
}

void LineEdit::setInvalid(bool invalid)
{
    if (std::exchange(m_invalid, invalid) != invalid) {
        update();
    }
}

bool LineEdit::looksInvalid() const
{
    return m_invalid || !hasAcceptableInput();
}

void LineEdit::enterText(const QString& text)
{
    m_settingEdit = true;
    setText(text);
    m_settingEdit = false;
    commitEdit();
}

void LineEdit::commitEdit()
{
    commit(Unacceptable::IsTakenBack);
}

void LineEdit::stepTo(const QString& text)
{
    if (text != this->text()) {
        m_settingEdit = true;
        setText(text);
        m_settingEdit = false;
    }
    if (hasFocus() || !isReadOnly()) {
        m_hasSteps = true;
    } else {
        m_committed = this->text(); // no loss of focus will ever commit it
    }
    const QPointer<LineEdit> self(this);
    const bool isNested = std::exchange(m_tellingStep, true);
    Q_EMIT valueChanged(false);
    if (self) {
        m_tellingStep = isNested;
        m_told = this->text(); // or what the host has made of it
    }
}

std::optional<QString> LineEdit::entryOf(const QString& text)
{
    return text;
}

void LineEdit::fixup(QString& text)
{
    if (validator() && !isAcceptable(text)) {
        validator()->fixup(text);
    }
}

bool LineEdit::isAcceptable(const QString& text) const
{
    if (!inputMask().isEmpty() && !hasAcceptableInput()) {
        return false;
    }
    QString checked = text;
    int position = 0;
    return !validator() || validator()->validate(checked, position) == QValidator::Acceptable;
}

void LineEdit::noteText(const QString& text)
{
    if (text != this->text()) {
        return; // a slot of textEdited() has set another since
    }
    const bool isEcho = m_tellingStep && m_hasSteps; // the host's answer to a step
    // clear() is not told as typed; what is typed after an undo() need not be modified.
    const bool isEdit = std::exchange(m_isTyped, false) || isModified() || m_settingEdit;
    if (!isEdit && !isEcho) {
        m_committed = text;
        m_hasSteps = false;
        if (!hasFocus()) {
            setCursorPosition(0); // of what is too long the beginning is seen
        }
    }
}

bool LineEdit::isCommitted() const
{
    return text() == m_committed;
}

/// @return false when the text cannot be committed
bool LineEdit::commit(Unacceptable rule)
{
    if (isCommitted()) {
        if (endSteps()) {
            Q_EMIT valueChanged(false);
        }
        return true;
    }
    const std::optional<QString> entry = entryOf(text());
    if (!entry) {
        takeBack();
        return true;
    }
    QString result = *entry;
    fixup(result);
    if (!isAcceptable(result)) {
        if (rule == Unacceptable::IsTakenBack) {
            takeBack();
        }
        return false;
    }
    const bool changed = result != m_committed;
    const bool isTold = endSteps();
    showCommitted(result);
    m_committed = text();
    setModified(false);
    if (changed || isTold) {
        Q_EMIT valueChanged(changed);
    }
    return true;
}

/// Shows a text with the one before as what undo brings back.
void LineEdit::showCommitted(const QString& result)
{
    const QString shown = text();
    {
        const QSignalBlocker quiet(this);
        setText(inputMask().isEmpty() ? m_committed : result);
        if (text() != result) {
            selectAll();
            insert(result);
        }
    }
    if (text() != shown) {
        Q_EMIT textChanged(text());
    }
}

/// @return whether there was anything to take back
bool LineEdit::takeBack()
{
    const bool isEdited = !isCommitted();
    const bool isTold = endSteps();
    if (isEdited) {
        setText(m_committed);
    }
    if (isTold) {
        Q_EMIT valueChanged(false);
    }
    return isEdited || isTold;
}

/// @return whether the last of them has told of another text than the one before them
bool LineEdit::endSteps()
{
    return std::exchange(m_hasSteps, false) && m_told != m_committed;
}

bool LineEdit::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Polish: updatePalette(m_isEditing); break;
    case QEvent::ReadOnlyChange: followMode(); break;
    case QEvent::ShortcutOverride: {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool leaves = !isCommitted() || (hasFocus() && !m_keepsFocus);
        const bool isOurs = ui::isReturn(*key) || (key->key() == Qt::Key_Escape && leaves);
        if (!isReadOnly() && ((isOurs && !ui::hasModifier(*key)) || ui::isRedoKey(*key))) {
            event->accept();
            return true;
        }
        break;
    }
    default: break;
    }
    return QLineEdit::event(event);
}

void LineEdit::keyPressEvent(QKeyEvent* event)
{
    if (ui::isReturn(*event)) {
        commitByKey(event);
    } else if (event->key() == Qt::Key_Escape) {
        takeBackByKey(event);
    } else if (ui::isRedoKey(*event) && !isReadOnly()) {
        redo();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void LineEdit::commitByKey(QKeyEvent* event)
{
    const QPointer<LineEdit> self(this);
    const bool committed = commit(Unacceptable::Stays);
    if (self) {
        QLineEdit::keyPressEvent(event); // returnPressed() and editingFinished()
    }
    if (!self || !committed || !hasFocus() || isReadOnly()) {
        return;
    }
    if (m_keepsFocus) {
        selectAll();
    } else {
        clearFocus();
    }
}

void LineEdit::takeBackByKey(QKeyEvent* event)
{
    const QPointer<LineEdit> self(this);
    const bool tookBack = takeBack();
    if (!self) {
        return;
    }
    const bool leaves = hasFocus() && !m_keepsFocus;
    if (leaves) {
        clearFocus();
    } else if (tookBack) {
        selectAll();
    }
    event->setAccepted(tookBack || leaves);
}

bool LineEdit::goesToOwnMenu(const QFocusEvent& event) const
{
    const QWidget* popup = QApplication::activePopupWidget();
    return event.reason() == Qt::PopupFocusReason && popup && popup->parentWidget() == this;
}

void LineEdit::focusInEvent(QFocusEvent* event)
{
    const Qt::FocusReason reason = event->reason();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
        m_keepsFocus = reason != Qt::MouseFocusReason;
    }
    QLineEdit::focusInEvent(event);
    followMode();
}

void LineEdit::focusOutEvent(QFocusEvent* event)
{
    const QPointer<LineEdit> self(this);
    if (!goesToOwnMenu(*event)) {
        commitEdit();
    }
    if (self) {
        QLineEdit::focusOutEvent(event);
        followMode();
        if (event->reason() != Qt::ActiveWindowFocusReason
            && event->reason() != Qt::PopupFocusReason) {
            setCursorPosition(0); // the caret is where it was when the window is active again
        }
    }
}

void LineEdit::followMode()
{
    const bool editing = hasFocus() && !isReadOnly();
    if (editing != m_isEditing) {
        updatePalette(editing);
    }
}

void LineEdit::paintEvent(QPaintEvent* event)
{
    const Colors wanted = colors(m_isEditing);
    const QPalette& installed = palette();
    if (installed.color(QPalette::Base) != wanted.ground
        || installed.color(QPalette::Text) != wanted.text
        || installed.color(QPalette::Midlight) != wanted.frame)
    {
        updatePalette(m_isEditing);
    }
    QLineEdit::paintEvent(event);
}

void LineEdit::initStyleOption(QStyleOptionFrame* option) const
{
    QLineEdit::initStyleOption(option);
    if (looksInvalid()) {
        option->palette.setColor(QPalette::Midlight, ui::colorQt(QStringLiteral("Red")));
        option->state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    }
}
