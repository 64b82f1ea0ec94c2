// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/ValueGraphPane.h"

#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/docking/layouts/ScrollContainer.h>
#include <MorrantUI/graph/EasingEditor.h>
#include <MorrantUI/graph/KeyFields.h>
#include <MorrantUI/graph/ValueGraphView.h>
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/menus/hostmenus.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/icons.h>

#include <QAction>
#include <QGraphicsScene>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>
#include <QSplitter>
#include <QToolButton>

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <utility>

namespace {

constexpr QSize kUsualSize{900, 260}; ///< logical pixels
constexpr int kListWidth = 200;
constexpr int kEasingWidth = 220;
constexpr int kMargin = 4;

bool isUsable(const QListWidgetItem& row)
{
    return row.flags().testFlag(Qt::ItemIsSelectable);
}

} // namespace

ValueGraphPane::ValueGraphPane(QWidget* parent)
    : Widget(parent)
    , m_view(new ValueGraphView)
    , m_easing(new EasingEditor)
    , m_fields(new KeyFields)
    , m_list(new QListWidget)
    , m_emptyHint(tr("Nothing is animated"))
{
    m_list->setAccessibleName(tr("Animated properties"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setContextMenuPolicy(Qt::NoContextMenu); // the pane's is the one to open
    m_view->setContextMenuPolicy(Qt::NoContextMenu);
    buildCommands();
    buildLayout();
    connectParts();
    showHint();
    showKey();
}

ValueGraphPane::~ValueGraphPane()
{
    for (QObject* part : std::initializer_list<QObject*>{m_view, m_view->scene(), m_fields, m_list})
    {
        part->disconnect(this); // they outlive what is a pane of this object
    }
}

// What it is made of

void ValueGraphPane::setClock(PlaybackClock* clock)
{
    m_view->setClock(clock);
}

PlaybackClock* ValueGraphPane::clock() const
{
    return m_view->clock();
}

QAction* ValueGraphPane::addCommand(Command command, const QString& text, const QString& icon)
{
    auto* const action = new QAction(text, this);
    if (!icon.isEmpty()) {
        action->setIcon(ui::getCachedIcon(icon));
    }
    action->setShortcutContext(Qt::WidgetShortcut);
    m_view->addAction(action);
    m_commands.at(static_cast<std::size_t>(command)) = action;
    return action;
}

void ValueGraphPane::buildCommands()
{
    QAction* const remove =
        addCommand(Command::Delete, tr("&Delete"), QStringLiteral("icons:delete.png"));
    remove->setShortcut(QKeySequence::Delete);
    connect(remove, &QAction::triggered, this, [this] {
        const QPointer<ValueGraphPane> alive(this);
        finishEditing();
        if (alive && !m_view->selectedKeys().empty()) {
            Q_EMIT deleteWanted();
        }
    });
    connect(
        addCommand(
            Command::FitSelection, tr("Fit &Selection"), QStringLiteral("icons:fitSelection.png")),
        &QAction::triggered,
        m_view,
        &ValueGraphView::fitSelected);
    connect(
        addCommand(Command::FitAll, tr("Fit &All"), QStringLiteral("icons:home.png")),
        &QAction::triggered,
        m_view,
        &ValueGraphView::fitAll);
    QAction* const tool =
        addCommand(Command::TransformTool, tr("Trans&form Tool"), QStringLiteral("icons:fit.png"));
    tool->setShortcut(Qt::Key_T);
    tool->setToolTip(
        tr("Transform Tool (%1)").arg(tool->shortcut().toString(QKeySequence::NativeText)));
    tool->setCheckable(true);
    connect(tool, &QAction::toggled, m_view, [view = m_view](bool shows) {
        view->setShowTransformTool(shows);
        view->updateTransformTool();
    });
    ui::offerContextMenu(*this, [this](ContextMenu& menu, QPoint) { menu.addActions(commands()); });
}

/// Buttons, list and fields, one below the other.
QWidget* ValueGraphPane::buildSide()
{
    auto* const side = new QWidget;
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* const buttons = new QHBoxLayout;
    buttons->setContentsMargins(kMargin, 0, kMargin, 0);
    for (const Command shown : {Command::FitAll, Command::TransformTool}) {
        auto* const button = new QToolButton;
        button->setDefaultAction(command(shown));
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        buttons->addWidget(button);
    }
    buttons->addStretch(1);
    column->addLayout(buttons);
    column->addWidget(m_list, 1);
    column->addWidget(m_fields);
    return side;
}

void ValueGraphPane::buildLayout()
{
    setFocusProxy(m_view); // first: of a view inside it, Qt would take others out of Tab's order
    auto* const splitter = new QSplitter;
    splitter->addWidget(buildSide());
    splitter->addWidget(m_view);
    splitter->addWidget(m_easing);
    splitter->setSizes({kListWidth, kUsualSize.width() - kListWidth - kEasingWidth, kEasingWidth});
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setStretchFactor(2, 0);
    splitter->setChildrenCollapsible(false);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new ScrollContainer(splitter));
    // Tab comes to the proxy first, and would pass over these; the last one goes there first.
    for (QWidget* part :
         std::initializer_list<QWidget*>{&m_fields->value(), &m_fields->frame(), m_list})
    {
        setTabOrder(m_view, part);
    }
}

void ValueGraphPane::connectParts()
{
    connect(m_list, &QListWidget::itemSelectionChanged, this, [this] {
        showHint();
        Q_EMIT propertiesChosen();
    });
    connect(
        m_view->scene(), &QGraphicsScene::selectionChanged, this, &ValueGraphPane::showSelection);
    connect(m_view, &ValueGraphView::keysChanging, this, &ValueGraphPane::showKey);
    connect(m_view, &ValueGraphView::keysShown, this, &ValueGraphPane::showKey);

    connect(m_fields, &KeyFields::editStarted, this, &ValueGraphPane::beginFieldGesture);
    connect(m_fields, &KeyFields::frameEdited, this, [this](double frame) {
        place(frame, std::nullopt);
    });
    connect(m_fields, &KeyFields::valueEdited, this, [this](double value) {
        place(std::nullopt, value);
    });
    connect(m_fields, &KeyFields::editEnded, this, [this](bool changed) {
        if (std::exchange(m_hasFieldGesture, false)) {
            m_view->endGesture(changed);
        }
    });
    connect(m_view, &ValueGraphView::gestureEnded, this, [this] {
        if (std::exchange(m_hasFieldGesture, false)) { // by another than the fields
            m_fields->finishEditing();
        }
    });
}

// The list

void ValueGraphPane::setProperties(
    const std::vector<Property>& properties, const std::vector<std::size_t>& chosen)
{
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        for (const Property& property : properties) {
            auto* const row = new QListWidgetItem(property.text, m_list);
            row->setToolTip(property.toolTip);
            if (!property.isUsable) {
                row->setFlags(Qt::NoItemFlags);
            }
        }
    }
    chooseProperties(chosen);
    for (int i = 0; i < m_list->count() && m_list->selectedItems().isEmpty(); ++i) {
        if (isUsable(*m_list->item(i))) {
            const QSignalBlocker quiet(m_list);
            m_list->setCurrentRow(i);
        }
    }
    showHint();
}

std::vector<std::size_t> ValueGraphPane::chosenProperties() const
{
    std::vector<std::size_t> places;
    for (int i = 0; i < m_list->count(); ++i) {
        if (m_list->item(i)->isSelected()) {
            places.push_back(static_cast<std::size_t>(i));
        }
    }
    return places;
}

void ValueGraphPane::chooseProperties(const std::vector<std::size_t>& places)
{
    {
        const QSignalBlocker quiet(m_list);
        for (int i = 0; i < m_list->count(); ++i) {
            QListWidgetItem& row = *m_list->item(i);
            const auto place = static_cast<std::size_t>(i);
            const bool isWanted = std::find(places.begin(), places.end(), place) != places.end();
            row.setSelected(isWanted && isUsable(row));
            if (row.isSelected()) { // where the arrow keys go on from
                m_list->setCurrentItem(&row, QItemSelectionModel::NoUpdate);
            }
        }
    }
    showHint();
}

void ValueGraphPane::setEmptyHint(const QString& hint)
{
    m_emptyHint = hint;
    showHint();
}

void ValueGraphPane::showHint()
{
    bool isAnyUsable = false;
    for (int i = 0; i < m_list->count(); ++i) {
        isAnyUsable = isAnyUsable || isUsable(*m_list->item(i));
    }
    m_view->setHint(isAnyUsable ? tr("Select a property to see its curves") : m_emptyHint);
}

// Keys

void ValueGraphPane::showKey()
{
    command(Command::Delete)->setEnabled(!m_view->selectedKeys().empty());
    m_fields->setKey(m_view->selectedFrame(), m_view->selectedValue());
}

/// What is half typed was meant for the key before.
void ValueGraphPane::showSelection()
{
    const QPointer<ValueGraphPane> alive(this);
    m_fields->leaveKey();
    if (alive) {
        showKey();
    }
}

void ValueGraphPane::beginFieldGesture()
{
    const QPointer<ValueGraphPane> alive(this);
    m_view->finishGesture(); // the one before, whose end is none of the fields'
    if (alive) {
        m_hasFieldGesture = true;
        m_view->beginGesture();
    }
}

/// A gesture that is over takes no further step.
void ValueGraphPane::place(std::optional<double> frame, std::optional<double> value)
{
    if (m_hasFieldGesture) {
        m_view->placeSelectedKeys(frame, value);
    }
}

QAction* ValueGraphPane::command(Command command) const
{
    const auto index = static_cast<std::size_t>(command);
    return index < m_commands.size() ? m_commands.at(index) : nullptr;
}

QList<QAction*> ValueGraphPane::commands() const
{
    return {m_commands.begin(), m_commands.end()};
}

void ValueGraphPane::finishEditing()
{
    const QPointer<ValueGraphPane> alive(this);
    m_fields->finishEditing();
    if (alive) {
        m_easing->finishGesture();
    }
    if (alive) {
        m_view->finishGesture();
    }
}

QSize ValueGraphPane::sizeHint() const
{
    return kUsualSize;
}

void ValueGraphPane::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), ui::colorQt(QStringLiteral("Window")));
}
