// SPDX-License-Identifier: Apache-2.0
#include "AttributePanel.h"

#include "lottie/evaluate.h"
#include <MorrantUI/controls/buttons/KeyframeButton.h>
#include <MorrantUI/controls/values/AttributeRow.h>
#include <MorrantUI/controls/values/ColorSwatch.h>
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/docking/layouts/CollapsibleSection.h>
#include <MorrantUI/docking/layouts/ScrollContainer.h>
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/theme/icons.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace studio {

namespace {

constexpr int kMaxColors = 40; ///< listed; some files have hundreds in a layer
constexpr int kMargin = 8;
constexpr int kRowSpacing = 4;
constexpr double kFull = 100; ///< percent

bool isColor(Attribute attribute)
{
    return attribute == Attribute::SolidColor || attribute == Attribute::ShapeColor;
}

/// What the file means where it says nothing.
double defaultOf(Attribute attribute)
{
    return attribute == Attribute::Scale || attribute == Attribute::Opacity ? kFull : 0;
}

QColor toColor(const std::vector<double>& channels)
{
    const auto channel = [&](std::size_t i) {
        return static_cast<float>(std::clamp(channels[i], 0.0, 1.0));
    };
    return QColor::fromRgbF(channel(0), channel(1), channel(2));
}

std::vector<double> shownBy(const AttributeRow& row)
{
    if (row.swatch()) {
        const QColor color = row.color();
        return {color.redF(), color.greenF(), color.blueF()};
    }
    std::vector<double> values;
    for (int i = 0; i < row.fieldCount(); ++i) {
        values.push_back(row.value(i));
    }
    return values;
}

void showIn(AttributeRow& row, const std::vector<double>& values)
{
    if (row.swatch()) {
        row.setColor(toColor(values));
        return;
    }
    for (int i = 0; i < row.fieldCount(); ++i) {
        row.setValue(i, values[static_cast<std::size_t>(i)]);
    }
}

KeyframeButton::State toButton(KeyState state)
{
    switch (state) {
    case KeyState::Animated: return KeyframeButton::State::Animated;
    case KeyState::KeyAtFrame: return KeyframeButton::State::KeyAtFrame;
    case KeyState::None: break;
    }
    return KeyframeButton::State::None;
}

} // namespace

AttributePanel::AttributePanel(DocumentEditor& editor, QWidget* parent)
    : Panel(tr("Attributes"), parent)
    , m_editor(&editor)
    , m_pages(new QStackedWidget)
    , m_transform(new CollapsibleSection(tr("Transform")))
    , m_colors(new CollapsibleSection(tr("Colours")))
{
    auto* sections = new QWidget;
    auto* layout = new QVBoxLayout(sections);
    layout->setContentsMargins(0, 0, kMargin, kMargin);
    layout->addWidget(m_transform);
    layout->addWidget(m_colors);
    layout->addStretch(1);
    m_pages->addWidget(makeHint(tr("Select a layer to edit its attributes")));
    m_pages->addWidget(new ScrollContainer(sections));
    setContent(m_pages);

    follow(editor);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (qobject_cast<NumericField*>(now) && isAncestorOf(now)) {
            Q_EMIT editingStarted();
        }
    });
}

void AttributePanel::setEditor(DocumentEditor& editor)
{
    setLayer(-1);
    m_editor->disconnect(this);
    m_editor = &editor;
    follow(editor);
}

void AttributePanel::follow(DocumentEditor& editor)
{
    connect(&editor, &DocumentEditor::edited, this, [this] { refresh(); });
    connect(&editor, &DocumentEditor::historyChanged, this, [this] { refresh(); });
    connect(&editor, &DocumentEditor::layersAboutToChange, this, &AttributePanel::finishEditing);
    connect(&editor, &DocumentEditor::layersChanged, this, &AttributePanel::showLayer);
}

void AttributePanel::setLayer(int layer)
{
    finishEditing();
    m_layer = layer;
    rebuild();
}

void AttributePanel::setFrame(int frame)
{
    if (m_frame != frame) {
        finishEditing();
        m_frame = frame;
        refresh();
    }
}

void AttributePanel::finishEditing()
{
    auto* field = qobject_cast<NumericField*>(QApplication::focusWidget());
    if (field && isAncestorOf(field)) {
        field->clearFocus();
    }
    m_editor->commit();
}

void AttributePanel::rebuild()
{
    m_rows.clear(); // first: what their widgets say while they die concerns nobody
    const auto document = m_editor->document();
    const auto transform =
        document ? transformOf(*document, m_layer) : std::vector<PropertyAddress>();
    const auto colors = document ? colorsOf(*document, m_layer) : std::vector<PropertyAddress>();
    m_transform->setContent(buildRows(transform));
    m_colors->setContent(buildRows(colors));
    m_colors->setVisible(!colors.empty());
    showLayer();
    m_pages->setCurrentIndex(transform.empty() ? 0 : 1);
}

/// The layer's name, and whether it lets its attributes be edited.
void AttributePanel::showLayer()
{
    const auto document = m_editor->document();
    const Layer* layer = document ? findLayer(*document, m_layer) : nullptr;
    const bool isLocked = layer && layer->locked;
    setRemark(!layer ? QString() : isLocked ? tr("%1, locked").arg(layer->name) : layer->name);
    m_transform->setEnabled(!isLocked);
    m_colors->setEnabled(!isLocked);
}

QWidget* AttributePanel::buildRows(const std::vector<PropertyAddress>& addresses)
{
    auto* rows = new QWidget;
    auto* layout = new QVBoxLayout(rows);
    layout->setContentsMargins(0, kRowSpacing, 0, kRowSpacing);
    layout->setSpacing(kRowSpacing);
    const std::size_t count = std::min(addresses.size(), std::size_t(kMaxColors));
    for (std::size_t i = 0; i < count; ++i) {
        layout->addWidget(buildRow(addresses[i]));
    }
    if (count < addresses.size()) {
        const auto more = static_cast<int>(addresses.size() - count);
        layout->addWidget(makeHint(tr("and %n more", nullptr, more)));
    }
    return rows;
}

AttributeRow* AttributePanel::buildRow(const PropertyAddress& address)
{
    const Attribute attribute = address.attribute;
    auto* widget = new AttributeRow(nameOf(*m_editor->document(), address));
    const std::size_t count = entryCount(attribute);
    if (isColor(attribute)) {
        widget->addSwatch(Qt::black)->setAlphaEnabled(false);
    } else {
        for (std::size_t i = 0; i < count; ++i) {
            NumericField* field = widget->addField(defaultOf(attribute));
            field->setContextMenuPolicy(Qt::NoContextMenu); // the panel's is the one to open
            if (attribute == Attribute::Opacity) {
                field->setMin(0);
                field->setMax(kFull);
            }
        }
    }
    widget->setPickWhipShown(false);
    widget->setKeyframesShown(canBeAnimated(attribute));
    widget->setLinkable(attribute == Attribute::Scale);
    Row& row = m_rows.emplace_back(Row{address, widget, {}, {}});
    refresh(row);
    if (isColor(attribute)) {
        widget->setDefaultColor(toColor(row.pushed));
    }
    connectRow(widget);
    return widget;
}

void AttributePanel::connectRow(AttributeRow* widget)
{
    connect(widget, &AttributeRow::valueChanged, this, [this, widget](int, bool committed) {
        take(widget, committed);
    });
    connect(widget, &AttributeRow::colorChanged, this, [this, widget](bool committed) {
        take(widget, committed);
    });
    connect(widget, &AttributeRow::dragStateChanged, this, [this](int, bool dragging) {
        if (dragging) {
            Q_EMIT editingStarted();
        } else {
            m_editor->commit();
        }
    });
    connect(widget, &AttributeRow::keyframeToggled, this, [this, widget] {
        if (const Row* row = rowOf(widget)) {
            m_editor->toggleKey(row->address, m_frame);
        }
    });
}

/// Null for a widget whose row has gone.
AttributePanel::Row* AttributePanel::rowOf(const QWidget* widget)
{
    const auto found = std::find_if(
        m_rows.begin(), m_rows.end(), [widget](const Row& row) { return row.widget == widget; });
    return found != m_rows.end() ? &*found : nullptr;
}

/// Takes over what the user has entered: a row may change several of its fields together.
void AttributePanel::take(const AttributeRow* widget, bool committed)
{
    const Row* row = rowOf(widget);
    if (!row) {
        return;
    }
    const Entries now = shownBy(*widget);
    std::vector<EntryChange> changes;
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (now[i] != row->rest[i]) {
            changes.push_back({i, now[i]});
        }
    }
    m_editor->setEntries(row->address, m_frame, changes);
    if (committed) {
        m_editor->commit();
    }
}

void AttributePanel::fillMenu(ContextMenu& menu, QPoint point)
{
    const QWidget* at = childAt(point);
    while (at && at != this && !rowOf(at)) {
        at = at->parentWidget();
    }
    const Row* row = at ? rowOf(at) : nullptr;
    if (!row || !canBeAnimated(row->address.attribute)) {
        return;
    }
    const bool hasKey =
        keyStateAt(*m_editor->property(row->address), m_frame) == KeyState::KeyAtFrame;
    const QString icon = hasKey ? u"icons:keyframeRemove.png"_qs : u"icons:keyframeAdd.png"_qs;
    QAction* toggle = menu.addAction(
        ui::getCachedIcon(icon),
        hasKey ? tr("Remove &Key") : tr("Add &Key"),
        this,
        [this, address = row->address] { m_editor->toggleKey(address, m_frame); });
    toggle->setEnabled(row->widget->isEnabled());
}

void AttributePanel::refresh()
{
    std::for_each(m_rows.begin(), m_rows.end(), [this](Row& row) { refresh(row); });
}

/// Shows the document's values where they have changed, and not while the user is changing them.
void AttributePanel::refresh(Row& row)
{
    const NumberProperty* property = m_editor->property(row.address);
    if (!property) {
        return; // another document: the next layer brings other rows
    }
    row.widget->keyframeButton()->setState(toButton(keyStateAt(*property, m_frame)));
    if (m_editor->isChanging(row.address)) {
        return;
    }
    const Numbers numbers = valueAt(*property, m_frame);
    const auto count = static_cast<std::ptrdiff_t>(entryCount(row.address.attribute));
    const Entries entries(numbers.begin(), numbers.begin() + count);
    if (entries != row.pushed) {
        showIn(*row.widget, entries);
        row.pushed = entries;
        row.rest = shownBy(*row.widget);
    }
}

} // namespace studio
