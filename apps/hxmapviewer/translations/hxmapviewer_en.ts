<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>HXAttributeForm</name>
    <message>
        <source>New feature of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Attributes of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit attributes</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXCommandDock</name>
    <message>
        <source>Command line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Command:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pan, zoomin, zoomout, select, identify, or a command for the current tool</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown command: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXEditActions</name>
    <message>
        <source>Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
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
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Double line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Distance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Area</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXFileOpening</name>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop opening</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXIdentifyPanel</name>
    <message>
        <source>Identify results</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Field</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>feature %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXLabelMenu</name>
    <message>
        <source>Label by</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No labels</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXLayerPanel</name>
    <message>
        <source>Layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove layer</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXLayoutWindow</name>
    <message>
        <source>Layouts (*.hxlayout)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New &amp;layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open la&amp;yout…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save &amp;as…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export P&amp;DF…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export &amp;image…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Landscape</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page tools</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opening %1…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Missing data: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wrote %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export PDF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PDF (*.pdf)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resolution of rasters (dpi):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Images (*.png *.tif *.tiff *.jpg)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resolution (dpi):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Printed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Still writing the page; close when it is done.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Still opening the layout; close when it is done.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXViewerTools</name>
    <message>
        <source>Pan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Identify</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add feature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete selected features</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Merge selected features</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit attributes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit vertices</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXViewerWindow</name>
    <message>
        <source>cannot read &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;%1&apos; is neither geographic nor projected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>HXMapViewer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map tools</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full extent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom in	PgUp</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom out	PgDown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Grid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ctrl+G</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grid settings…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Map</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Coordinate system…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Graphic elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opened</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open map data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Coordinate system</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map coordinate system</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>EPSG code, WKT or PROJ definition:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Identify</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nothing found here</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
