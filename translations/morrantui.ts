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
    <name>CanvasView</name>
    <message>
        <source>%1 by %2 pixels, shown at %3 %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Canvas</source>
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
    <name>EasingEditor</name>
    <message>
        <source>Time %1, change %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Easing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Easing curve</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Easing presets</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FileSaver</name>
    <message>
        <source>Save “%1” again?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Overwrite “%1”?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has been moved or deleted since it was opened.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program has changed the file since it was opened. Its changes would be lost.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” was not saved: it is open in another tab or window.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save As</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save “%1” As</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is such a file already. What it holds would be lost.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” was not saved: the document could not be read again.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FileTabs</name>
    <message>
        <source>Documents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open another document</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Next Document</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pre&amp;vious Document</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1*</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Has unsaved changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close “%1”?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changes that are not saved will be lost.</source>
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
    <name>KeyFields</name>
    <message>
        <source>Frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame of the key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value of the key</source>
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
    <name>LayoutFile</name>
    <message>
        <source>The layout in “%1” cannot be read: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The layout in “%1” cannot be used: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The layout was not saved: %1.</source>
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
    <name>Recovery</name>
    <message>
        <source>Unsaved changes cannot be kept in “%1”.</source>
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
        <source>Key at frame %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, key at frame %2</source>
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
    <name>TransportActions</name>
    <message>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;First Frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step &amp;Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step Fo&amp;rward</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Last Frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>L&amp;oop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TransportBar</name>
    <message numerus="yes">
        <source>%n dropped</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Transport</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frames that came too late to be shown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time code of the current frame: hours, minutes, seconds, frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy Time Code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit Time Code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> / %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UnsavedKeeper</name>
    <message>
        <source>Unsaved changes of “%1” cannot be kept: it cannot be written.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ValueGraphPane</name>
    <message>
        <source>Nothing is animated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Animated properties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fit &amp;Selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fit &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trans&amp;form Tool</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transform Tool (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a property to see its curves</source>
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
    <name>Workspace</name>
    <message>
        <source>the panels are not those of the main window</source>
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
<context>
    <name>ui::documents</name>
    <message>
        <source>“%1” has changes that are not saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These documents have changes that are not saved:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>• %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” was not saved: it is not a file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” was not saved: %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ui::easing</name>
    <message>
        <source>Linear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ease in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ease out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ease in and out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ui::playback</name>
    <message>
        <source>%1 fps</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ui::sound</name>
    <message>
        <source>its samples are neither PCM nor floating point numbers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has %1 channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has %1 samples a second</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its format contradicts itself</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is no WAV file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it holds no sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its format is incomplete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its format comes too late</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is too long</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it cannot be opened</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
