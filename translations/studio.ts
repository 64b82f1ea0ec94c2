<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1">
<context>
    <name>main</name>
    <message>
        <source>The assets were not found; set MORRANT_ASSETS to their folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MORRANT_ASSETS is “%1”, which holds no theme; using “%2”.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio</name>
    <message>
        <source>Render the studio off screen into PNG files in &lt;folder&gt;, and end.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show every control in every state.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End once the first frame is painted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opens and plays Lottie animations.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FILE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A Lottie file (.json).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[FILE]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The studio opens one file at a time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The option --pictures needs a folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anchor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Position X</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Position Y</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scale</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skew</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skew Axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Radius</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outer Radius</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outer Roundness</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inner Radius</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inner Roundness</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dash Offset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Highlight Length</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Highlight Angle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trim Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trim End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trim Offset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time Remap</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mask Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mask Opacity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fill</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stroke</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Solid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The animation has more than %1 layers and shapes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” at byte %2 of the file should be %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a number or a list of numbers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>track matte</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is not a Lottie animation: it holds no list of layers.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The frame rate of %1 is not above 0 and at most %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The animation has no frames: it runs from %1 to %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The animation is longer than %1 frames.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The size of %1 by %2 pixels is not between 1 and %3 on each side.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a list of layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layer %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>composition “%1”, which the file lacks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>camera</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>layer of kind %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mask of mode “%1”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mask feather</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mask expansion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>effect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>layer style</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>blend mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>third dimension</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The parents of layer “%1” form a circle.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layer “%1” has more than %2 parents above each other.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The animation has more than %1 layers, with precompositions counted at each use.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The precomposition “%1” holds itself.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Precompositions are nested more than %1 deep.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file nests lists and objects more than %1 deep.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file holds more than %1 values.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is damaged or not JSON: it is unreadable from byte %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has %1 MB; at most %2 MB can be opened.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” cannot be opened: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an outline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a list of numbers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a list of keyframes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expression</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>offset path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pucker and bloat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>rounded corners</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>repeater</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>twist</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>zig-zag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>shape of kind “%1”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder %1 could not be made.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The picture %1 could not be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“no-such-file.json” cannot be opened: No such file or directory.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The pictures at device ratio %1 could not be rendered.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::AttributePanel</name>
    <message>
        <source>Attributes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transform</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a layer to edit its attributes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, locked</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Remove &amp;Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add &amp;Key</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::Command</name>
    <message>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::ControlSheet</name>
    <message>
        <source>Normal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hovered</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pressed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Focused</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disabled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On, disabled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Render</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion blur</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bezier</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ease both</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layer 12</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Timeline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Snap</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stroke</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Push button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Default button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tool button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check box</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Radio button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Combo box</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Line edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spin box</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Slider</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scroll bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upright scroll bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dial</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Progress bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tab</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>List row</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Header section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Menu row</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Menu bar item</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Splitter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group box</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::DocumentEditor</name>
    <message>
        <source>Change %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Key of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Key of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename Layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide Layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lock Layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unlock Layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Notes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scale Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste Keys</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::DocumentTabs</name>
    <message>
        <source>Viewport</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lottie animations (*.json);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::DopeSheet</name>
    <message>
        <source>Dope Sheet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layers and their properties</source>
        <translation type="unfinished"></translation>
    </message>
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
        <source>D&amp;uplicate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nudge &amp;Left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nudge &amp;Right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nudge Left by Ten</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nudge Right by Ten</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trim &amp;Start to Playhead</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trim &amp;End to Playhead</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select &amp;All Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select C&amp;olumn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select up to Playhead</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select from Playhead</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trans&amp;form Tool</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Follow Play&amp;head</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Sou&amp;nd…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remo&amp;ve Sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WAV sounds (*.wav);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The sound “%1” cannot be used: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add &amp;Key at Playhead</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::DopeSheetEdits</name>
    <message>
        <source>Slip Layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Layer in Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trim Layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trim Layers</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::GalleryPage</name>
    <message>
        <source>Value controls and their states</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Standard controls and their states</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Attributes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fields and buttons</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ranges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Menus and tool tips</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Views</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Foundation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drawn with Skia</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Named colours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Icons and cursors</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::GraphEditor</name>
    <message>
        <source>&amp;Graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Graph Editor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its keys cannot be edited, and are seen in the dope sheet only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a layer to see its curves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No transform or colour of this layer is animated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Easing</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::LayerPanel</name>
    <message>
        <source>Layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The animation has no layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Lock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move &amp;Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move &amp;Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>S&amp;how</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Un&amp;lock</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::LayerTree</name>
    <message>
        <source>%1, hidden</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Precomposition</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Solid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Null</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shape</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not drawn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Visible</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Visibility</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unlocked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lock layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Locked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unlock layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layers</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::MissingPanel</name>
    <message>
        <source>Not drawn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What is not drawn, by layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Everything in this document is drawn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::NotesPanel</name>
    <message>
        <source>Notes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Notes about this document
Shift+Return begins a new line</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::Panel</name>
    <message>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::StateSheet</name>
    <message>
        <source>Hovered</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pressed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Focused</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disabled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>At rest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Focus of the controls in these pictures</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::StudioMenus</name>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open &amp;Sample</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Playback</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Actual Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Backdrop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Panels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Reset Layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control &amp;Gallery</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Dismiss Notice</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Command Palette…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Chequer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::StudioWindow</name>
    <message>
        <source>%1 × %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The default layout cannot be used: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unsaved changes in “%1” cannot be read. They stay there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The studio had to end before changes were saved. They are here again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit the studio?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drop Lottie files, with the extension .json, from this computer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only what has the extension .json and is on this computer was opened.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lottie animations (*.json);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::ValueCurves</name>
    <message>
        <source>Change Easing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Keys</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::Viewport</name>
    <message>
        <source>Composition</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drop a Lottie file here, or open one with Ctrl+O</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>too complex</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::ZoomField</name>
    <message>
        <source>Zoom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> %</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>studio::gallery</name>
    <message>
        <source>Add key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step forward</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set keys by itself</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Snap</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Render</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Presets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Draft</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interpolation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bezier</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Linear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion blur</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Visible</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Solo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Locked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key</source>
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
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Easing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ease in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Snap to frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Normal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Letters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Caption</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ground</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Multiply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Slide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wiggle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bounce</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Typewriter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Glow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Title card</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find a layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read from the file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> fps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blend mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Source</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rate, frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blend, size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Switches</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transport</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotation, disabled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Snapped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disabled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scroll</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a key at the current frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys are rounded to whole frames.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Notes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 px border</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>2 px border</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A radius each corner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Focus frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ease out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layer 12</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scale</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fill</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anchor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ease</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Elastic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Push button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Primary button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tool button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Icon button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rollover button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rollover label</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Segmented button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Independent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toggle switch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check box</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mixed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Renamable label</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Editing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Line edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Number field</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Slider field</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Beyond the slider</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Angle pad</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joystick pad</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour swatch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Translucent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyframe button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Animated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pick whip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transform</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Effects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blur</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
