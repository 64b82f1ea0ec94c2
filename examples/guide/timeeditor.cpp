// SPDX-License-Identifier: Apache-2.0
#include "guide.h"
#include <MorrantUI/MorrantUI.h>

#include <vector>

namespace {

struct Key
{
    int frame;
    KeyEasing easing;
};

struct Attribute
{
    std::vector<Key> all{{0, KeyEasing::Linear}, {24, KeyEasing::Bezier}, {60, KeyEasing::Hold}};
    const std::vector<Key>& keys() const { return all; }
};

class HostUtils : public TimeEditorUtils
{
public:
    using TimeEditorUtils::TimeEditorUtils;
};

} // namespace

QWidget* timeEditorChapter()
{
    const Attribute attribute;
    const int rowCount = 1;
    // [timeeditor]
    auto* view = new TimeEditorView;
    auto* scene = new TimeEditorScene(view, QRect(0, 0, 100, 44)); // the view's from setup() on
    view->setup(scene);
    auto* edits = new HostUtils(view); // your TimeEditorUtils: copy, paste, menus
    edits->setParent(view);            // the view does not own it
    view->setUtils(edits);
    scene->setFps(24);

    auto* row = new TimeEditorCurveItem(view); // an animated attribute
    for (const Key& key : attribute.keys()) {
        row->addKeyframe(key.frame)->setEasing(key.easing);
    }
    scene->addLayoutItem(row); // rows stack from the top

    view->setFrameRange(0, 240);
    view->setPlaybackRange(0, 120);
    view->setBackgroundRegion(0, 120);
    view->setupViewAndScene(0, 240, rowCount * view->trackHeight());
    // [timeeditor]
    return view;
}
