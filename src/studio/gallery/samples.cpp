// SPDX-License-Identifier: Apache-2.0
#include "gallery/samples.h"

#include "gallery/sections.h"
#include <MorrantUI/theme/icons.h>

#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDial>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QSplitter>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolButton>
#include <QTreeWidget>

namespace studio::gallery {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("studio::gallery", text);
}

QIcon icon(const QString& name)
{
    return ui::getCachedIcon(QStringLiteral("icons:%1.png").arg(name));
}

QWidget* row(std::initializer_list<QWidget*> widgets, bool stretch = true)
{
    auto* line = new QWidget;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins({});
    for (QWidget* widget : widgets) {
        layout->addWidget(widget);
    }
    if (stretch) {
        layout->addStretch();
    }
    return line;
}

template <class Control>
Control* named(Control* control, const QString& name)
{
    control->setAccessibleName(name);
    return control;
}

QToolButton* toolButton(
    const QString& name, const QString& text, bool checkable = false, bool checked = false)
{
    auto* button = new QToolButton;
    button->setIcon(icon(name));
    button->setText(text); // which the icon stands for
    button->setAutoRaise(true);
    button->setCheckable(checkable);
    button->setChecked(checked);
    return button;
}

QWidget* toolButtons()
{
    auto* withMenu = toolButton(QStringLiteral("keyframeAdd"), tr("Add key"));
    withMenu->setPopupMode(QToolButton::MenuButtonPopup);
    auto* menu = new QMenu(withMenu);
    menu->addAction(tr("Add key"));
    withMenu->setMenu(menu);
    return row(
        {toolButton(QStringLiteral("toStart"), tr("First frame")),
         toolButton(QStringLiteral("stepBack"), tr("Step back")),
         toolButton(QStringLiteral("play"), tr("Play")),
         toolButton(QStringLiteral("stepForward"), tr("Step forward")),
         toolButton(QStringLiteral("toEnd"), tr("Last frame")),
         toolButton(QStringLiteral("loop"), tr("Loop"), true, true),
         toolButton(QStringLiteral("autoKey"), tr("Set keys by itself"), true),
         toolButton(QStringLiteral("snap"), tr("Snap"), true, true),
         withMenu});
}

QWidget* pushButtons()
{
    auto* standard = new QPushButton(tr("Export"));
    standard->setIcon(icon(QStringLiteral("export")));
    auto* accept = new QPushButton(tr("Render"));
    accept->setDefault(true);
    auto* flat = new QPushButton(tr("Cancel"));
    flat->setFlat(true);
    auto* more = new QPushButton(tr("Presets"));
    auto* menu = new QMenu(more);
    menu->addAction(tr("Draft"));
    more->setMenu(menu);
    return row({accept, standard, more, flat});
}

QWidget* interpolationGroup()
{
    auto* group = new QGroupBox(tr("Interpolation"));
    auto* layout = new QHBoxLayout(group);
    auto* bezier = new QRadioButton(tr("Bezier"));
    bezier->setChecked(true);
    layout->addWidget(bezier);
    layout->addWidget(new QRadioButton(tr("Linear")));
    auto* hold = new QRadioButton(tr("Hold"));
    hold->setEnabled(false);
    layout->addWidget(hold);
    layout->addStretch();
    return group;
}

QWidget* switches()
{
    auto* on = new QCheckBox(tr("Motion blur"));
    on->setChecked(true);
    auto* partly = new QCheckBox(tr("Visible"));
    partly->setTristate(true);
    partly->setCheckState(Qt::PartiallyChecked);
    auto* off = new QCheckBox(tr("Solo"));
    auto* disabled = new QCheckBox(tr("Locked"));
    disabled->setChecked(true);
    disabled->setEnabled(false);
    return row({on, partly, off, disabled});
}

QSlider* slider(int value, bool enabled = true)
{
    auto* control = new QSlider(Qt::Horizontal);
    control->setRange(0, 100);
    control->setValue(value);
    control->setEnabled(enabled);
    return control;
}

QProgressBar* progress(int value, int maximum = 100)
{
    auto* bar = new QProgressBar;
    bar->setRange(0, maximum);
    bar->setValue(value);
    return bar;
}

QScrollBar* scrollBar()
{
    auto* bar = new QScrollBar(Qt::Horizontal);
    bar->setRange(0, 100);
    bar->setPageStep(50);
    bar->setValue(30);
    return bar;
}

/// A menu as it looks when open, without opening a window.
class MenuPicture : public QWidget
{
public:
    explicit MenuPicture(QMenu* menu)
        : m_menu(menu)
    {
        menu->setParent(this, menu->windowFlags());
        menu->resize(menu->sizeHint());
        setFixedSize(menu->size());
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.drawPixmap(0, 0, m_menu->grab());
    }

private:
    QMenu* m_menu;
};

QMenu* keyMenu()
{
    auto* menu = new QMenu;
    menu->addSection(tr("Key"));
    auto* copy = menu->addAction(icon(QStringLiteral("copy")), tr("&Copy"));
    copy->setShortcut(QKeySequence::Copy);
    auto* paste = menu->addAction(icon(QStringLiteral("paste")), tr("&Paste"));
    paste->setShortcut(QKeySequence::Paste);
    paste->setEnabled(false);
    auto* remove = menu->addAction(icon(QStringLiteral("delete")), tr("&Delete"));
    remove->setShortcut(QKeySequence::Delete);
    menu->addSeparator();
    auto* easing = menu->addMenu(tr("Easing"));
    easing->addAction(tr("Ease in"));
    auto* snap = menu->addAction(tr("Snap to frames"));
    snap->setCheckable(true);
    snap->setChecked(true);
    menu->addSeparator();
    auto* kinds = new QActionGroup(menu);
    for (const QString& text : {tr("Bezier"), tr("Linear")}) {
        QAction* kind = kinds->addAction(text);
        kind->setCheckable(true);
        menu->addAction(kind);
    }
    kinds->actions().constFirst()->setChecked(true);
    menu->setActiveAction(copy);
    return menu;
}

/// A tool tip as it looks, without a pointer resting anywhere.
class TipPicture : public QLabel
{
public:
    explicit TipPicture(const QString& text)
        : QLabel(text)
    {
        setMargin(5);
        setForegroundRole(QPalette::ToolTipText);
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QPainter painter(this);
        QStyleOptionFrame option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_PanelTipLabel, &option, &painter, this);
        painter.end();
        QLabel::paintEvent(event);
    }
};

QWidget* menuBar()
{
    auto* bar = new QMenuBar;
    bar->setNativeMenuBar(false);
    for (const QString& title : {tr("&File"), tr("&Edit"), tr("&Layer"), tr("&View")}) {
        bar->addMenu(title)->addAction(title);
    }
    bar->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    return bar;
}

QTreeWidget* layerTree()
{
    auto* tree = named(new QTreeWidget, tr("Layers"));
    tree->setHeaderLabels({tr("Layer"), tr("Mode"), tr("Keys")});
    tree->setAlternatingRowColors(true);
    const auto add = [](auto* parent, const QStringList& texts, const QString& iconName) {
        auto* item = new QTreeWidgetItem(parent, texts);
        item->setIcon(0, icon(iconName));
        return item;
    };
    auto* scene = add(
        tree, {tr("Title"), tr("Normal"), QStringLiteral("24")}, QStringLiteral("precompLayer"));
    add(scene, {tr("Letters"), tr("Screen"), QStringLiteral("16")}, QStringLiteral("shapeLayer"));
    auto* text =
        add(scene, {tr("Caption"), tr("Normal"), QStringLiteral("8")}, QStringLiteral("textLayer"));
    add(tree, {tr("Control"), tr("Normal"), QStringLiteral("4")}, QStringLiteral("nullLayer"));
    auto* ground = add(
        tree, {tr("Ground"), tr("Multiply"), QStringLiteral("0")}, QStringLiteral("solidLayer"));
    ground->setDisabled(true);
    tree->expandAll();
    tree->setCurrentItem(text);
    tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    tree->header()->setStretchLastSection(false);
    return tree;
}

QTableWidget* keyTable()
{
    auto* table = named(new QTableWidget(5, 3), tr("Keys"));
    table->setHorizontalHeaderLabels({tr("Frame"), tr("Value"), tr("Easing")});
    for (int line = 0; line < table->rowCount(); ++line) {
        table->setItem(
            line,
            0,
            new QTableWidgetItem(QStringLiteral("%1").arg(line * 12, 3, 10, QLatin1Char('0'))));
        table->setItem(line, 1, new QTableWidgetItem(QString::number(line * 37.5)));
        table->setItem(line, 2, new QTableWidgetItem(line % 2 == 0 ? tr("Bezier") : tr("Linear")));
    }
    table->setSortingEnabled(true);
    table->sortByColumn(0, Qt::AscendingOrder);
    table->setCurrentCell(1, 1);
    table->horizontalHeader()->setStretchLastSection(true);
    return table;
}

QListWidget* presetList()
{
    auto* list = named(new QListWidget, tr("Presets"));
    for (const QString& text :
         {tr("Fade in"),
          tr("Pop"),
          tr("Slide"),
          tr("Wiggle"),
          tr("Bounce"),
          tr("Typewriter"),
          tr("Glow")})
    {
        auto* item = new QListWidgetItem(text, list);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(text.size() % 2 == 0 ? Qt::Checked : Qt::Unchecked);
    }
    list->setCurrentRow(2);
    return list;
}

} // namespace

QWidget* fields()
{
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    form->setContentsMargins({});
    form->setHorizontalSpacing(16);
    auto* name = new QLineEdit(tr("Title card"));
    auto* search = new QLineEdit;
    search->setPlaceholderText(tr("Find a layer"));
    search->setClearButtonEnabled(true);
    search->addAction(icon(QStringLiteral("search")), QLineEdit::LeadingPosition);
    auto* locked = new QLineEdit(tr("Read from the file"));
    locked->setEnabled(false);
    auto* rate = named(new QDoubleSpinBox, tr("Frame rate"));
    rate->setValue(29.97);
    rate->setSuffix(tr(" fps"));
    auto* frames = named(new QSpinBox, tr("Frames"));
    frames->setMaximum(9999);
    frames->setValue(240);
    auto* mode = named(new QComboBox, tr("Blend mode"));
    mode->addItems({tr("Normal"), tr("Multiply"), tr("Screen"), tr("Overlay")});
    auto* size = named(new QComboBox, tr("Size"));
    size->setEditable(true);
    named(size->lineEdit(), tr("Size"));
    size->addItems({QStringLiteral("1920 × 1080"), QStringLiteral("1080 × 1080")});
    form->addRow(tr("Name"), name);
    form->addRow(tr("Search"), search);
    form->addRow(tr("Source"), locked);
    form->addRow(tr("Rate, frames"), row({rate, frames}));
    form->addRow(tr("Blend, size"), row({mode, size}));
    form->addRow(tr("Switches"), switches());
    form->addRow(tr("Transport"), toolButtons());
    form->addRow(interpolationGroup());
    form->addRow(pushButtons());
    return page;
}

QWidget* ranges()
{
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    form->setContentsMargins({});
    form->setHorizontalSpacing(16);
    auto* ticked = slider(70);
    ticked->setTickPosition(QSlider::TicksBelow);
    ticked->setTickInterval(10);
    auto* dial = named(new QDial, tr("Rotation"));
    dial->setValue(65);
    dial->setFixedSize(52, 52);
    auto* disabledDial = named(new QDial, tr("Rotation, disabled"));
    disabledDial->setValue(30);
    disabledDial->setFixedSize(52, 52);
    disabledDial->setEnabled(false);
    form->addRow(tr("Opacity"), slider(40));
    form->addRow(tr("Snapped"), ticked);
    form->addRow(tr("Disabled"), slider(25, false));
    form->addRow(tr("Rotation"), row({dial, disabledDial}));
    form->addRow(tr("Render"), progress(62));
    form->addRow(tr("Waiting"), progress(0, 0));
    form->addRow(tr("Scroll"), scrollBar());
    return page;
}

QWidget* menus()
{
    auto* tips = new QWidget;
    auto* column = new QVBoxLayout(tips);
    column->setContentsMargins({});
    column->addWidget(menuBar());
    column->addSpacing(12);
    column->addWidget(new TipPicture(tr("Add a key at the current frame")));
    column->addStretch();
    return row({new MenuPicture(keyMenu()), tips});
}

QWidget* views()
{
    auto* tabs = new QTabWidget;
    tabs->setTabsClosable(true);
    auto* split = new QSplitter;
    split->addWidget(layerTree());
    split->addWidget(presetList());
    split->setSizes({320, 150});
    tabs->addTab(split, tr("Layers"));
    auto* notes = named(new QPlainTextEdit(tr("Keys are rounded to whole frames.")), tr("Notes"));
    tabs->addTab(notes, tr("Notes"));
    tabs->addTab(new QWidget, tr("Graph"));
    tabs->setTabEnabled(2, false);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->setSpacing(12);
    layout->addWidget(tabs);
    layout->addWidget(keyTable());
    return page;
}

} // namespace studio::gallery
