// SPDX-License-Identifier: Apache-2.0
#include "LayerPanel.h"

#include "LayerTree.h"
#include "commands.h"
#include "editing/DocumentEditor.h"
#include <MorrantUI/theme/icons.h>

#include <QAction>
#include <QLocale>
#include <QMenu>
#include <QStackedWidget>

#include <algorithm>

namespace studio {

namespace {

enum Place
{
    Rename,
    Hide,
    Lock,
    MoveUp,
    MoveDown,
};

bool hasAny(const DocumentEditor& editor, const std::vector<int>& layers, bool Layer::*flag)
{
    return std::any_of(layers.begin(), layers.end(), [&](int layer) {
        const Layer* found = findLayer(*editor.document(), layer);
        return found && found->*flag;
    });
}

} // namespace

LayerPanel::LayerPanel(QWidget* parent)
    : Panel(tr("Layers"), parent)
    , m_tree(new LayerTree)
    , m_pages(new QStackedWidget)
    , m_menu(new QMenu(tr("&Layer"), this))
{
    m_pages->addWidget(m_tree);
    m_pages->addWidget(makeHint(tr("The animation has no layers")));
    setContent(m_pages);
    buildMenu();
    connect(
        m_tree->selectionModel(),
        &QItemSelectionModel::selectionChanged,
        this,
        &LayerPanel::showSelection);
    connect(m_tree->model(), &QAbstractItemModel::layoutChanged, this, &LayerPanel::showSelection);
    connect(m_tree->model(), &QAbstractItemModel::dataChanged, this, &LayerPanel::showActions);
    showActions();
}

void LayerPanel::buildMenu()
{
    m_actions = addCommands(
        *m_menu,
        {
            {tr("&Rename"), u"rename"_qs, {Qt::Key_F2}, [this] { rename(); }},
            {tr("&Hide"), u"eyeOff"_qs, {Qt::CTRL | Qt::Key_H}, [this] { toggleHidden(); }},
            {tr("&Lock"), u"lock"_qs, {Qt::CTRL | Qt::Key_L}, [this] { toggleLocked(); }},
            {tr("Move &Up"), u"chevronUp"_qs, {Qt::ALT | Qt::Key_Up}, [this] { move(-1); }},
            {tr("Move &Down"), u"chevronDown"_qs, {Qt::ALT | Qt::Key_Down}, [this] { move(1); }},
        });
}

void LayerPanel::setEditor(DocumentEditor& editor)
{
    selectLayer(-1);
    m_tree->setEditor(editor);
    selectLayer(-1); // names of layers may be the same in another document
    const int count = m_tree->model()->rowCount();
    m_pages->setCurrentIndex(count > 0 ? 0 : 1);
    setRemark(QLocale().toString(count));
    showSelection();
}

void LayerPanel::selectLayer(int layer)
{
    const QModelIndex row = m_tree->model()->index(layer, 0);
    m_tree->selectionModel()->setCurrentIndex(
        row, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void LayerPanel::rename()
{
    Q_EMIT wanted();
    m_tree->setFocus();
    m_tree->renameCurrent();
}

void LayerPanel::toggleHidden()
{
    const auto layers = m_tree->selectedLayers();
    DocumentEditor& editor = m_tree->editor();
    const auto isShown = [&editor](int layer) { return !hasAny(editor, {layer}, &Layer::hidden); };
    editor.setHidden(layers, std::any_of(layers.begin(), layers.end(), isShown));
}

void LayerPanel::toggleLocked()
{
    const auto layers = m_tree->selectedLayers();
    DocumentEditor& editor = m_tree->editor();
    editor.setLocked(layers, !hasAny(editor, layers, &Layer::locked));
}

/// @param step 1 or -1
void LayerPanel::move(int step)
{
    const auto layers = m_tree->selectedLayers();
    m_tree->editor().moveLayers(layers, step < 0 ? layers.front() - 1 : layers.back() + 2);
}

void LayerPanel::showSelection()
{
    const auto layers = m_tree->selectedLayers();
    showActions();
    Q_EMIT layerSelected(layers.empty() ? -1 : layers.front());
}

void LayerPanel::showActions()
{
    const auto layers = m_tree->selectedLayers();
    const bool isAny = !layers.empty();
    const bool isLocked = isAny && hasAny(m_tree->editor(), layers, &Layer::locked);
    const auto isHidden = [this](int layer) {
        return hasAny(m_tree->editor(), {layer}, &Layer::hidden);
    };
    const bool shows = isAny && std::all_of(layers.begin(), layers.end(), isHidden);
    m_actions[Hide]->setText(shows ? tr("S&how") : tr("&Hide"));
    m_actions[Hide]->setIcon(
        ui::getCachedIcon(shows ? u"icons:eye.png"_qs : u"icons:eyeOff.png"_qs));
    m_actions[Lock]->setText(isLocked ? tr("Un&lock") : tr("&Lock"));
    m_actions[Lock]->setIcon(
        ui::getCachedIcon(isLocked ? u"icons:unlock.png"_qs : u"icons:lock.png"_qs));
    m_actions[Rename]->setEnabled(layers.size() == 1 && !isLocked);
    m_actions[Hide]->setEnabled(isAny);
    m_actions[Lock]->setEnabled(isAny);
    m_actions[MoveUp]->setEnabled(isAny && !isLocked && layers.front() > 0);
    m_actions[MoveDown]->setEnabled(
        isAny && !isLocked && layers.back() < m_tree->model()->rowCount() - 1);
}

} // namespace studio
