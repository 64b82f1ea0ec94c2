// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/AttributeRow.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/values/AttributeFields.h"
#include <MorrantUI/controls/buttons/IconButton.h>
#include <MorrantUI/controls/buttons/KeyframeButton.h>
#include <MorrantUI/controls/connections/ConnectionInstance.h>
#include <MorrantUI/controls/connections/PickWhip.h>
#include <MorrantUI/controls/values/ColorSwatch.h>
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/controls/values/RenamableLabel.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>

#include <algorithm>
#include <vector>

namespace {

constexpr int kSpacing = 4;         ///< between the parts, logical pixels
constexpr int kNameCharacters = 16; ///< of average width in the name column
constexpr int kFieldCharacters = 7; ///< in the narrowest field

bool showsColor(const ColorSwatch& swatch, QColor color)
{
    if (!swatch.isAlphaEnabled()) {
        color.setAlpha(255);
    }
    return swatch.value().rgba() == color.rgba();
}

QHBoxLayout* tightLine(int spacing, QWidget* owner = nullptr)
{
    auto* line = new QHBoxLayout(owner);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(spacing);
    return line;
}

/// By how many parts, from left to right, a key leads on; 0 for keys that do not.
/// @param plain whether the key does so without Alt, as where there is no caret
int stepOf(const QKeyEvent& key, bool plain)
{
    const Qt::KeyboardModifiers held = key.modifiers() & ~Qt::KeypadModifier;
    const bool leads = held == Qt::AltModifier || (plain && held == Qt::NoModifier);
    const int step = key.key() == Qt::Key_Left ? -1 : key.key() == Qt::Key_Right ? 1 : 0;
    return leads ? step : 0;
}

/// In the order of the Tab key. Qt gives no place behind what Tab does not stop at.
void putBehind(QWidget& before, QWidget& added)
{
    const Qt::FocusPolicy policy = before.focusPolicy();
    before.setFocusPolicy(Qt::TabFocus);
    QWidget::setTabOrder(&before, &added);
    before.setFocusPolicy(policy);
}

void addKeepingPlace(QHBoxLayout& line, QWidget* button)
{
    QSizePolicy policy = button->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    button->setSizePolicy(policy);
    line.addWidget(button);
}

} // namespace

/// Qt owns the widgets and layouts.
struct AttributeRow::Parts
{
    QWidget* nameColumn = nullptr;
    RenamableLabel* label = nullptr;
    IconButton* chain = nullptr;
    QHBoxLayout* editors = nullptr;
    QPointer<ColorSwatch> swatch;
    IconButton* reset = nullptr;
    KeyframeButton* keyframe = nullptr;
    PickWhip* whip = nullptr;

    AttributeFields* fields = nullptr;
    QColor defaultColor;
    int nameWidth = 0; ///< 0 follows the font
};

AttributeRow::AttributeRow(const QString& name, QWidget* parent)
    : Widget(parent)
    , m_parts(std::make_unique<Parts>())
{
    ui::installAccessible<AttributeRow, ui::AccessibleGrouping>();
    const ui::QuietReaders quiet(this, ui::kStateChanges); // nobody sees it yet
    m_parts->nameColumn = new QWidget(this);
    m_parts->label = new RenamableLabel(name, m_parts->nameColumn);
    m_parts->label->setRenamable(false);
    m_parts->chain = new IconButton(QStringLiteral("icons:link.png"), m_parts->nameColumn);
    m_parts->chain->setCheckable(true);
    m_parts->chain->hide();
    m_parts->reset = new IconButton(QStringLiteral("icons:reset.png"), this);
    m_parts->keyframe = new KeyframeButton(this);
    m_parts->whip = new PickWhip(this);
    m_parts->fields = new AttributeFields(this);
    layOut();
    connectParts();
    nameParts();
    updateReset();
    for (QWidget* const button :
         {static_cast<QWidget*>(m_parts->chain),
          static_cast<QWidget*>(m_parts->reset),
          static_cast<QWidget*>(m_parts->keyframe),
          static_cast<QWidget*>(m_parts->whip)})
    {
        button->setFocusPolicy(Qt::NoFocus); // Tab goes from value to value
        button->installEventFilter(this);
    }
}

AttributeRow::AttributeRow(QWidget* parent)
    : AttributeRow(QString(), parent)
{}

AttributeRow::~AttributeRow()
{
    // The parts die after us and may end a gesture when they do.
    for (QObject* const part : findChildren<QObject*>()) {
        part->disconnect(this);
    }
}

void AttributeRow::layOut()
{
    QHBoxLayout* const name = tightLine(0, m_parts->nameColumn);
    name->addWidget(m_parts->label, 1);
    name->addWidget(m_parts->chain);

    m_parts->editors = tightLine(kSpacing);
    QHBoxLayout* const buttons = tightLine(0);
    addKeepingPlace(*buttons, m_parts->reset);
    addKeepingPlace(*buttons, m_parts->keyframe);
    addKeepingPlace(*buttons, m_parts->whip);

    QHBoxLayout* const line = tightLine(kSpacing, this);
    line->addWidget(m_parts->nameColumn);
    line->addLayout(m_parts->editors, 1);
    line->addLayout(buttons);
    applyNameWidth();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void AttributeRow::connectParts()
{
    connect(m_parts->label, &RenamableLabel::renamed, this, [this](const QString& name) {
        nameParts();
        Q_EMIT renamed(name);
    });
    connect(m_parts->fields, &AttributeFields::changed, this, [this](int index, bool committed) {
        updateReset();
        Q_EMIT valueChanged(index, committed);
    });
    connect(m_parts->fields, &AttributeFields::edited, this, &AttributeRow::edited);
    connect(m_parts->fields, &AttributeFields::dragged, this, &AttributeRow::dragStateChanged);
    connect(m_parts->fields, &AttributeFields::caughtUp, this, &AttributeRow::updateReset);
    connect(m_parts->chain, &IconButton::clicked, this, [this](bool linked) {
        updateLock();
        Q_EMIT linkedChanged(linked);
    });
    connect(m_parts->reset, &IconButton::clicked, this, [this] {
        const QPointer<AttributeRow> self(this);
        reset();
        if (self) {
            Q_EMIT resetRequested();
        }
    });
    connect(m_parts->keyframe, &KeyframeButton::clicked, this, [this] {
        const QPointer<AttributeRow> self(this);
        m_parts->fields->commitTyping(); // the key gets the value that the user sees
        if (self) {
            Q_EMIT keyframeToggled();
        }
    });
    connect(
        m_parts->whip,
        &PickWhip::connectionStarted,
        m_parts->fields,
        &AttributeFields::commitTyping);
}

/// Tells assistive tools which attribute each part belongs to.
void AttributeRow::nameParts()
{
    const ui::QuietReaders quiet(isVisible() ? nullptr : this, ui::kStateChanges);
    setAccessibleName(name());
    const int count = fieldCount();
    for (int i = 0; i < count; ++i) {
        if (NumericField* const editor = field(i)) {
            editor->setAccessibleName(
                count == 1 ? name()
                           : tr("%1, %2 of %3")
                                 .arg(name(), QString::number(i + 1), QString::number(count)));
        }
    }
    if (m_parts->swatch) {
        m_parts->swatch->setAccessibleName(name());
    }
    m_parts->keyframe->setAccessibleName(tr("%1: keyframe").arg(name()));
    m_parts->whip->setAccessibleName(tr("%1: connect").arg(name()));
    m_parts->reset->setAccessibleName(tr("%1: reset").arg(name()));
    m_parts->reset->setToolTip(tr("Reset to the default"));
    m_parts->chain->setAccessibleName(tr("%1: lock values together").arg(name()));
    m_parts->chain->setToolTip(tr("Lock the values together"));
}

void AttributeRow::setName(const QString& name)
{
    m_parts->label->setText(name);
    nameParts();
}

QString AttributeRow::name() const
{
    return m_parts->label->text();
}

void AttributeRow::setRenamable(bool renamable)
{
    m_parts->label->setRenamable(renamable);
}

bool AttributeRow::isRenamable() const
{
    return m_parts->label->isRenamable();
}

void AttributeRow::setNameWidth(int width)
{
    m_parts->nameWidth = std::max(0, width);
    applyNameWidth();
}

int AttributeRow::nameWidth() const
{
    return m_parts->nameWidth > 0 ? m_parts->nameWidth
                                  : kNameCharacters * fontMetrics().averageCharWidth();
}

/// Narrowed where two fields, or more that this row has, leave no room for it, so that rows of one
/// width stay aligned.
void AttributeRow::applyNameWidth()
{
    const int two = 2 * kFieldCharacters * fontMetrics().averageCharWidth() + kSpacing;
    const int more = std::max(0, two - m_parts->editors->minimumSize().width());
    const int others = minimumSizeHint().width() - leastNameWidth() + more;
    const int wanted = std::min(nameWidth(), width() - others);
    m_parts->nameColumn->setFixedWidth(std::max(wanted, leastNameWidth()));
}

int AttributeRow::leastNameWidth() const
{
    return m_parts->nameWidth > 0 ? nameWidth() : nameWidth() / 2;
}

QSize AttributeRow::minimumSizeHint() const
{
    const int spare = m_parts->nameColumn->minimumWidth() - leastNameWidth();
    return Widget::minimumSizeHint() - QSize(spare, 0);
}

void AttributeRow::resizeEvent(QResizeEvent* event)
{
    Widget::resizeEvent(event);
    applyNameWidth();
}

NumericField* AttributeRow::addField(double value)
{
    const int index = fieldCount();
    if (index == ui::kMaxAttributeFields) {
        return nullptr;
    }
    QWidget* const previous = lastEditor();
    NumericField* const editor = m_parts->fields->add(value, this);
    putBehind(*previous, *editor);
    editor->setMinimumWidth(kFieldCharacters * fontMetrics().averageCharWidth());
    m_parts->editors->insertWidget(index, editor, 1); // a swatch stays behind the fields
    nameParts();
    updateReset();
    return editor;
}

ColorSwatch* AttributeRow::addSwatch(const QColor& color)
{
    if (m_parts->swatch) {
        return nullptr;
    }
    auto* swatch = new ColorSwatch(color, this);
    swatch->installEventFilter(this);
    putBehind(*lastEditor(), *swatch);
    m_parts->swatch = swatch;
    m_parts->defaultColor = swatch->value();
    m_parts->editors->addWidget(swatch, 1);
    connect(swatch, &ColorSwatch::valueChanged, this, [this](bool committed) {
        const QPointer<AttributeRow> self(this);
        updateReset();
        Q_EMIT colorChanged(committed);
        if (self) {
            Q_EMIT edited(committed);
        }
    });
    nameParts();
    updateReset();
    return swatch;
}

/// The part that Tab comes to before a field or swatch to be added: the last field, or the chain.
QWidget* AttributeRow::lastEditor() const
{
    for (int i = fieldCount() - 1; i >= 0; --i) {
        if (NumericField* const editor = field(i)) {
            return editor;
        }
    }
    return m_parts->chain;
}

int AttributeRow::fieldCount() const
{
    return m_parts->fields->count();
}

NumericField* AttributeRow::field(int index) const
{
    return m_parts->fields->at(index);
}

ColorSwatch* AttributeRow::swatch() const
{
    return m_parts->swatch;
}

double AttributeRow::value(int index) const
{
    const NumericField* const editor = field(index);
    return editor ? editor->value() : 0.0;
}

void AttributeRow::setValue(int index, double value)
{
    m_parts->fields->setValue(index, value);
    updateReset();
}

QColor AttributeRow::color() const
{
    return m_parts->swatch ? m_parts->swatch->value() : QColor();
}

void AttributeRow::setColor(const QColor& color)
{
    ColorSwatch* const swatch = m_parts->swatch;
    if (swatch && !showsColor(*swatch, color)) { // an echo must not reach the dialog
        swatch->setValue(color);
        updateReset();
    }
}

void AttributeRow::setDefaultValue(int index, double value)
{
    m_parts->fields->setDefaultValue(index, value);
    updateReset();
}

void AttributeRow::setDefaultColor(const QColor& color)
{
    if (color.isValid()) {
        m_parts->defaultColor = color;
        updateReset();
    }
}

bool AttributeRow::isAtDefault() const
{
    const ColorSwatch* const swatch = m_parts->swatch;
    return m_parts->fields->areAtDefault()
           && (!swatch || showsColor(*swatch, m_parts->defaultColor));
}

void AttributeRow::reset()
{
    const QPointer<ColorSwatch> recolored =
        m_parts->swatch && !showsColor(*m_parts->swatch, m_parts->defaultColor) ? m_parts->swatch
                                                                                : nullptr;
    const bool recolors = recolored;
    const QPointer<AttributeRow> self(this);
    const std::vector<int> changed = m_parts->fields->showDefaults(); // slots hear of each value
    if (self && recolored) {
        recolored->setValue(m_parts->defaultColor);
    }
    if (!self) {
        return;
    }
    updateReset();

    m_parts->fields->reportAll(changed, true);
    if (self && recolored) {
        Q_EMIT colorChanged(true);
    }
    if (self && (recolors || !changed.empty())) {
        Q_EMIT edited(true);
    }
}

KeyframeButton* AttributeRow::keyframeButton() const
{
    return m_parts->keyframe;
}

PickWhip* AttributeRow::pickWhip() const
{
    return m_parts->whip;
}

void AttributeRow::setKeyframesShown(bool shown)
{
    m_parts->keyframe->setVisible(shown);
}

void AttributeRow::setPickWhipShown(bool shown)
{
    m_parts->whip->setVisible(shown);
}

void AttributeRow::setLinkable(bool linkable)
{
    m_parts->chain->setVisible(linkable);
    updateLock();
}

bool AttributeRow::isLinkable() const
{
    return !m_parts->chain->isHidden();
}

void AttributeRow::setLinked(bool linked)
{
    m_parts->chain->setChecked(linked);
    updateLock();
}

bool AttributeRow::isLinked() const
{
    return m_parts->chain->isChecked();
}

void AttributeRow::setConnectionsAccepted(bool accepted)
{
    if (accepted) {
        makeWidgetReceiver(this);
    } else {
        removeWidgetReceiver(this);
    }
}

bool AttributeRow::areConnectionsAccepted() const
{
    return ConnectionReceiver::of(this) == this;
}

void AttributeRow::onConnectionEnter(ConnectionInstance* connection)
{
    if (isAncestorOf(connection->sourceWidget())) {
        // Every drag from here begins here: not a mistake to be marked as one.
        connection->setDrawStyle(ConnectionStyle::Line);
        connection->setAccepted(false);
    } else {
        Q_EMIT connectionEntered(connection);
    }
}

void AttributeRow::onConnectionDrop(ConnectionInstance* connection)
{
    Q_EMIT connectionDropped(connection);
}

void AttributeRow::changeEvent(QEvent* event)
{
    Widget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        applyNameWidth();
    } else if (event->type() == QEvent::LanguageChange) {
        nameParts();
    }
}

bool AttributeRow::event(QEvent* event)
{
    const bool isKey =
        event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    return (isKey && leadOn(*static_cast<QKeyEvent*>(event), false)) || Widget::event(event);
}

bool AttributeRow::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey =
        event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    return (isKey && leadOn(*static_cast<QKeyEvent*>(event), true))
           || Widget::eventFilter(watched, event);
}

/// Moves the focus from part to part.
/// @return whether the key, or its announcement, is one that does so
bool AttributeRow::leadOn(QKeyEvent& key, bool plain)
{
    const int step = stepOf(key, plain) * (layoutDirection() == Qt::RightToLeft ? -1 : 1);
    if (step == 0) {
        return false;
    }
    key.accept();
    if (key.type() == QEvent::KeyPress) {
        const QList<QWidget*> stops = parts();
        const auto next = stops.indexOf(QApplication::focusWidget()) + step;
        if (QWidget* const part = next >= 0 ? stops.value(next) : nullptr) {
            window()->setAttribute(Qt::WA_KeyboardFocusChange); // shows the focus ring
            part->setFocus(Qt::TabFocusReason);
        }
    }
    return true;
}

/// What can have the focus now, in the order in which it is read.
QList<QWidget*> AttributeRow::parts() const
{
    QList<QWidget*> stops{m_parts->chain};
    for (int i = 0; i < fieldCount(); ++i) {
        stops.append(field(i));
    }
    stops += {m_parts->swatch, m_parts->reset, m_parts->keyframe, m_parts->whip};
    stops.removeIf(
        [](const QWidget* part) { return !part || !part->isVisible() || !part->isEnabled(); });
    return stops;
}

void AttributeRow::updateReset()
{
    const bool canReset = !isAtDefault();
    if (!canReset && m_parts->reset->hasFocus()) {
        // Disabling it would pass the focus on to its neighbour, which does something else.
        NumericField* const first = field(0);
        QWidget* const editor = first ? first : static_cast<QWidget*>(swatch());
        if (editor) {
            editor->setFocus(Qt::TabFocusReason);
        }
    }
    const ui::QuietReaders quiet(isVisible() ? nullptr : this, ui::kStateChanges);
    m_parts->reset->setEnabled(canReset);
}

void AttributeRow::updateLock()
{
    m_parts->fields->setLocked(isLinkable() && isLinked());
}
