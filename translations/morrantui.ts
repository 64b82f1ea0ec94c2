<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1">
<context>
    <name>AnglePad</name>
    <message>
        <source>%1×</source>
        <comment>whole turns</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1°</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1× %2</source>
        <comment>whole turns and degrees</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AttributeRow</name>
    <message>
        <source>%1, %2 of %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: keyframe</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: connect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: reset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset to the default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: lock values together</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lock the values together</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ColorSwatch</name>
    <message>
        <source>&amp;Basic colours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Custom colours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add to Custom Colours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Pick Screen Colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1. %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CommandPalette</name>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commands</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No command found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type to find a command</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ContextMenu</name>
    <message>
        <source>Cu&amp;t</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DockableDragHandler</name>
    <message>
        <source>Undock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DopeSheetView</name>
    <message>
        <source>Keys over frames</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DragReadout</name>
    <message>
        <source>%1  →  %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FixedGraphView</name>
    <message>
        <source>Curve</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Curve Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Linear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bézier</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time %1, value %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GeneralGraphView</name>
    <message>
        <source>Curve</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyframe %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Graph editor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Point at time %1, value %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 points selected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>JoystickPad</name>
    <message>
        <source>Horizontal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vertical</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KeyframeButton</name>
    <message>
        <source>Animated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyframe at this frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not animated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyframe</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove the keyframe at this frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set a keyframe at this frame</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MarkerNameEdit</name>
    <message>
        <source>Marker name</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NameDelegate</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NoticeCard</name>
    <message>
        <source>Dismiss</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PickWhip</name>
    <message>
        <source>Drag to what this is to be connected with</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RenamableLabel</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SolidSplitter</name>
    <message>
        <source>Splitter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Between %1 and %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TabBar</name>
    <message>
        <source>Add Tab</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TabCloseButton</name>
    <message>
        <source>Close Tab</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TabItem</name>
    <message>
        <source>Rename Tab</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Script Tab?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not undoable.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close Others</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close Tabs to the Left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close Tabs to the Right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimeEditorRowHeader</name>
    <message>
        <source>Rows</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimeEditorView</name>
    <message>
        <source>Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyframe %1: frame %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time editor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, key at frame %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key at frame %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, selected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimelineView</name>
    <message>
        <source>Timeline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 at %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Marker Colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Red</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Green</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grey</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Marker to Current Frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Playback Here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End Playback Here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Play All Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Time Code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show All Frames</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ValueGraphView</name>
    <message>
        <source>Values over frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame %1, value %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ui::PresetDialog</name>
    <message>
        <source>A name has no line breaks or control characters.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A name cannot contain %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A name cannot end with a dot.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This name is reserved by the system.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This name is too long.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replaces the preset of this name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Existing presets:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace the preset?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is a preset named “%1”. What is in it will be lost.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ui::colorWords</name>
    <message>
        <source>black</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>dark grey</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>grey</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>light grey</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>white</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>red</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>orange</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>yellow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lime</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>green</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cyan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>blue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>violet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>magenta</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>dark %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>light %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>greyish %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2, %3, %4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2 % opaque</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ui::dialogs</name>
    <message>
        <source>Paste the address of the sheet, as the browser shows it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A link has no spaces in it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A link begins with https:// or http://</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The name of the site is missing after the two slashes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not a complete link.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ui::docking::layoutjson</name>
    <message>
        <source>it is too large</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is no JSON</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its version is unknown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has no panels</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
