// SPDX-License-Identifier: Apache-2.0
#include "graph/GraphEditor.h"

#include "commands.h"
#include "editing/keyrows.h"
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/docking/layouts/ScrollContainer.h>
#include <MorrantUI/graph/EasingEditor.h>
#include <MorrantUI/graph/KeyFields.h>
#include <MorrantUI/graph/ValueGraphView.h>
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/timeline/PlaybackClock.h>

#include <QHBoxLayout>
#include <QListWidget>
#include <QMenu>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QSplitter>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <utility>

namespace studio {

namespace {

constexpr int kListWidth = 200;
constexpr int kEasingWidth = 220;
constexpr int kMargin = 4;
constexpr double kColorStep = 0.01; ///< for a pixel, of a channel from 0 to 1

} // namespace

GraphEditor::GraphEditor(PlaybackClock& player, QWidget* parent)
    : EditorPane(tr("Graph Editor"), parent)
    , m_player(player)
    , m_view(new ValueGraphView)
    , m_curves(new ValueCurves(*m_view))
    , m_easing(new EasingEditor)
    , m_fields(new KeyFields)
    , m_list(new QListWidget)
    , m_menu(new QMenu(tr("&Graph"), this))
{
    m_list->setAccessibleName(tr("Animated properties"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    for (QWidget* part :
         std::initializer_list<QWidget*>{m_list, m_view, &m_fields->frame(), &m_fields->value()})
    {
        part->setContextMenuPolicy(Qt::NoContextMenu); // the panel's is the one to open
    }
    buildMenu();
    buildLayout();
    connectParts();
}

GraphEditor::~GraphEditor()
{
    for (QObject* part :
         std::initializer_list<QObject*>{m_curves, m_view, m_easing, m_fields, m_list}) {
        part->disconnect(this); // they outlive what is a graph editor of this object
    }
}

void GraphEditor::buildMenu()
{
    const auto actions = addCommands(
        *m_menu,
        {
            {tr("&Delete"), u"delete"_qs, {QKeySequence::Delete}, [this] { deleteSelected(); }},
            {tr("Fit &Selection"), {}, {}, [this] { m_view->fitSelected(); }},
            {tr("Fit &All"), u"home"_qs, {}, [this] { m_view->fitAll(); }},
            {tr("Trans&form Tool"),
             u"fit"_qs,
             {Qt::Key_T},
             [this] {
                 m_view->setShowTransformTool(m_tool->isChecked());
                 m_view->updateTransformTool();
             }},
        });
    m_delete = actions.at(0);
    m_tool = actions.at(3);
    m_tool->setCheckable(true);
    for (QAction* action : actions) {
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut); // the panel's alone
        addAction(action);
    }
}

void GraphEditor::buildLayout()
{
    setFocusProxy(m_view); // of a view inside it, Qt would take the others out of the order of Tab
    auto* side = new QWidget;
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(kMargin, 0, kMargin, 0);
    for (QAction* action : m_menu->actions().mid(2)) {
        auto* button = new QToolButton;
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        buttons->addWidget(button);
    }
    buttons->addStretch(1);
    column->addLayout(buttons);
    column->addWidget(m_list, 1);
    column->addWidget(m_fields);

    auto* splitter = new QSplitter;
    splitter->addWidget(side);
    splitter->addWidget(m_view);
    splitter->addWidget(m_easing);
    splitter->setSizes({kListWidth, kUsualSize.width() - kListWidth - kEasingWidth, kEasingWidth});
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setStretchFactor(2, 0);
    splitter->setChildrenCollapsible(false);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new ScrollContainer(splitter));
    // Tab comes to the proxy first, and would pass over these; the last one goes there first.
    for (QWidget* part :
         std::initializer_list<QWidget*>{&m_fields->value(), &m_fields->frame(), m_list})
    {
        setTabOrder(m_view, part);
    }
}

void GraphEditor::connectParts()
{
    connect(&m_player, &PlaybackClock::frameChanged, this, [this](int frame) {
        m_view->setCurrentFrame(frame);
        showEasing();
    });
    connect(m_view, &ValueGraphView::spaceTapped, &m_player, &PlaybackClock::toggle);
    connect(m_curves, &ValueCurves::editingStarted, &m_player, &PlaybackClock::pause);
    connect(m_curves, &ValueCurves::selectionChanged, this, &GraphEditor::chooseKeys);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &GraphEditor::showProperties);

    connect(m_easing, &EasingEditor::editStarted, this, [this] { begin(tr("Change Easing")); });
    connect(m_easing, &EasingEditor::edited, this, &GraphEditor::editEasing);
    connect(m_easing, &EasingEditor::editEnded, this, &GraphEditor::end);
    connect(m_fields, &KeyFields::editStarted, this, [this] { begin(tr("Change Key")); });
    connect(m_fields, &KeyFields::frameEdited, this, [this](double frame) {
        editKey({.time = std::round(frame)});
    });
    connect(m_fields, &KeyFields::valueEdited, this, &GraphEditor::editValue);
    connect(m_fields, &KeyFields::editEnded, this, &GraphEditor::end);
}

// What is shown

void GraphEditor::setDocument(DocumentEditor& editor)
{
    finishEditing();
    if (m_editor) {
        m_editor->disconnect(this);
    }
    m_editor = &editor;
    m_layer = -1;
    m_wanted.clear();
    connect(&editor, &DocumentEditor::edited, this, &GraphEditor::noteEdit);
    connect(&editor, &DocumentEditor::layersChanged, this, &GraphEditor::noteEdit);
    connect(&editor, &DocumentEditor::layersAboutToChange, this, &GraphEditor::finishEditing);
    m_view->setCurrentFrame(m_player.frame());
    listProperties();
}

void GraphEditor::setLayer(int layer)
{
    finishEditing();
    m_layer = layer;
    listProperties();
    selectKeys(std::exchange(m_wanted, {}));
}

/// Many properties may change together: they are shown once.
void GraphEditor::noteEdit()
{
    if (!std::exchange(m_isStale, true)) {
        QMetaObject::invokeMethod(this, &GraphEditor::refresh, Qt::QueuedConnection);
    }
}

void GraphEditor::refresh()
{
    m_isStale = false;
    listProperties();
    m_curves->refresh();
    showEasing();
    showKey();
}

/// Keeps what is chosen, where it is still there.
void GraphEditor::listProperties()
{
    const auto document = m_editor ? m_editor->document() : nullptr;
    std::vector<PropertyAddress> rows;
    QStringList names;
    QStringList others; // such as a mask's path: they are named all the same
    for (const KeyRow& row : document ? keyRowsOf(*document, m_layer) : std::vector<KeyRow>()) {
        if (row.address) {
            rows.push_back(*row.address);
            names.append(row.name);
        } else {
            others.append(row.name);
        }
    }
    if (rows == m_rows && m_list->count() == names.size() + others.size()) {
        showHint(); // of another layer it may be another one
        return;
    }
    const std::vector<PropertyAddress> chosen = m_curves->properties();
    m_rows = rows;
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        m_list->addItems(names);
        for (const QString& other : others) {
            auto* item = new QListWidgetItem(other, m_list);
            item->setFlags(Qt::NoItemFlags);
            item->setToolTip(tr("Its keys cannot be edited, and are seen in the dope sheet only"));
        }
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const bool isChosen = std::find(chosen.begin(), chosen.end(), rows[i]) != chosen.end();
            m_list->item(static_cast<int>(i))->setSelected(isChosen);
        }
        if (!rows.empty() && m_list->selectedItems().isEmpty()) {
            m_list->setCurrentRow(0);
        }
    }
    showProperties();
}

/// Those that are chosen in the list.
void GraphEditor::showProperties()
{
    std::vector<PropertyAddress> chosen;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (m_list->item(static_cast<int>(i))->isSelected()) {
            chosen.push_back(m_rows[i]);
        }
    }
    finishEditing();
    m_curves->show(m_editor, chosen);
    showHint();
    showEasing();
    showKey();
}

void GraphEditor::showHint()
{
    if (!m_curves->properties().empty()) {
        m_view->setHint({});
    } else if (m_layer < 0) {
        m_view->setHint(tr("Select a layer to see its curves"));
    } else {
        m_view->setHint(
            m_rows.empty() ? tr("No transform or colour of this layer is animated")
                           : tr("Select a property to see its curves"));
    }
}

void GraphEditor::showEasing()
{
    if (m_isEditing) {
        return;
    }
    m_segment.reset();
    std::vector<SegmentEasing> easings;
    const auto& shown = m_curves->properties();
    const auto* property = m_editor && !shown.empty() ? m_editor->property(shown.front()) : nullptr;
    const auto segment = property ? segmentAt(*property, m_player.frame()) : std::nullopt;
    if (segment && !m_editor->isLocked(m_layer)) {
        m_segment = KeyAddress{shown.front(), *segment};
        easings = easingsOf(property->keys[*segment]);
    }
    m_easing->setEasings(easings);
}

/// Its frame where one key is selected, and its value where that is one number.
void GraphEditor::showKey()
{
    if (m_isEditing) {
        return;
    }
    const auto keys = m_curves->selection();
    m_delete->setEnabled(!keys.empty());
    const bool isOne = !keys.empty() && std::all_of(keys.begin(), keys.end(), [&](const auto& key) {
        return key.key == keys.front().key;
    });
    if (!isOne) {
        m_fields->setKey(std::nullopt, std::nullopt);
        return;
    }
    const bool isColor = keys.front().key.property.attribute == Attribute::ShapeColor;
    m_fields->value().setDragMultiplier(isColor ? kColorStep : 1);
    const QPointF place = m_curves->placeOf(keys.front());
    m_fields->setKey(place.x(), keys.size() == 1 ? std::optional(0.0 - place.y()) : std::nullopt);
}

void GraphEditor::chooseKeys()
{
    showKey();
    if (m_isFollowing || m_isEditing) {
        return;
    }
    Q_EMIT keysChosen(selectedKeys());
}

/// Each one once, however many of its entries are.
std::vector<KeyAddress> GraphEditor::selectedKeys() const
{
    std::vector<KeyAddress> keys;
    for (const EntryKey& key : m_curves->selection()) {
        if (std::find(keys.begin(), keys.end(), key.key) == keys.end()) {
            keys.push_back(key.key);
        }
    }
    return keys;
}

void GraphEditor::selectKeys(const std::vector<KeyAddress>& keys)
{
    if (m_isEditing || m_curves->isDragging()) {
        return;
    }
    const QScopedValueRollback following(m_isFollowing, true);
    const bool isElsewhere = !keys.empty() && keys.front().property.layer != m_layer;
    m_wanted = isElsewhere ? keys : std::vector<KeyAddress>();
    if (isElsewhere) {
        return;
    }
    refresh();
    const auto isShown = [&](const PropertyAddress& address) {
        const auto& shown = m_curves->properties();
        return std::find(shown.begin(), shown.end(), address) != shown.end();
    };
    const bool areShown = std::all_of(
        keys.begin(), keys.end(), [&](const KeyAddress& key) { return isShown(key.property); });
    if (!areShown) {
        {
            const QSignalBlocker quiet(m_list);
            for (std::size_t i = 0; i < m_rows.size(); ++i) {
                const bool isWanted = std::any_of(keys.begin(), keys.end(), [&](const auto& key) {
                    return key.property == m_rows[i];
                });
                m_list->item(static_cast<int>(i))->setSelected(isWanted);
            }
        }
        showProperties();
    }
    m_curves->selectKeys(keys);
}

// What the user does

void GraphEditor::begin(const QString& text)
{
    if (!m_isEditing && m_editor) {
        m_player.pause();
        m_isEditing = true;
        m_edited = m_curves->selection();
        m_editor->beginGesture(text);
    }
}

void GraphEditor::end(bool changed)
{
    if (!m_isEditing) {
        return;
    }
    if (m_editor && m_editor->isInGesture()) { // which another edit may have ended
        changed ? m_editor->commit() : m_editor->cancel();
    }
    m_curves->refresh();
    const auto now = std::exchange(m_editedNow, std::nullopt);
    if (now) { // the key may have passed others
        for (EntryKey& key : m_edited) {
            key.key = *now;
        }
        m_curves->select(m_edited);
    }
    m_isEditing = false;
    m_edited.clear();
    showEasing();
    chooseKeys();
}

void GraphEditor::deleteSelected()
{
    finishEditing();
    const auto keys = selectedKeys();
    if (m_editor && !keys.empty() && !m_editor->isLocked(m_layer)) {
        m_view->scene()->clearSelection(); // the others' places are about to change
        m_editor->deleteKeys(keys);
    }
}

void GraphEditor::editEasing(const SegmentEasing& easing)
{
    if (m_editor && m_isEditing && m_segment) {
        m_editor->changeKeys(easingChanges(m_segment->property, m_segment->key, easing));
    }
}

void GraphEditor::editKey(const KeyChange& change)
{
    if (!m_isEditing || m_edited.empty()) {
        return;
    }
    const KeyAddress& edited = m_edited.front().key;
    PropertyKeyChange whole{edited.property, change};
    whole.change.key = edited.key;
    const auto places = m_editor->changeKeys({whole});
    m_editedNow = places.empty() ? std::nullopt : places.front();
}

void GraphEditor::editValue(double value)
{
    const auto* key =
        m_editor && !m_edited.empty() ? m_editor->keyAt(m_edited.front().key) : nullptr;
    if (key) {
        KeyChange change{.value = key->value};
        const EntryKey& edited = m_edited.front();
        (*change.value)[edited.entry] = allowedValue(edited.key.property.attribute, value);
        editKey(change);
    }
}

void GraphEditor::finishEditing()
{
    m_fields->finishEditing();
    m_easing->finishGesture();
    m_view->finishGesture();
    end(true);
}

void GraphEditor::fillMenu(ContextMenu& menu)
{
    menu.addActions(m_menu->actions());
}

} // namespace studio
