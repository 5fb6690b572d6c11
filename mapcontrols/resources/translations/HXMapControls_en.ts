<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>HODataFrame</name>
    <message>
        <source>No layers in this map</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HOFileFunc</name>
    <message>
        <source>cannot open &apos;%1&apos;: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;%1&apos; is too large to be a layout document</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HOLegendElement</name>
    <message>
        <source>Legend</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HOPageLayoutView</name>
    <message>
        <source>layout version %1 cannot be written</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HOPageSetup</name>
    <message>
        <source>the page size must be positive</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a page of %1 x %2 mm is larger than A0</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXColorBtn</name>
    <message>
        <source>Select color</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXCombineFeatureMethodDialog</name>
    <message>
        <source>Combin feature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Attribute inheritance mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inherited maximum area</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inherits the specified feature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected feature id</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXCustomRenderDialog</name>
    <message>
        <source>Custom feature style</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Polyline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXLicense</name>
    <message>
        <source>cannot read &apos;%1&apos;: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the licence is bound to machine %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the licence expired on %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Valid licence</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No licence</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a licence file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Licence file of an unsupported version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Licence signature invalid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Licence bound to another machine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Licence expired</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no licensee</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no valid issue date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no valid expiry date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no feature list</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXMapCanvas</name>
    <message>
        <source>Map</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toggles pause refresh and continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Line width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please input line width(m):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Input X and Y</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Input DMS data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please input line width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Element</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Custom symbol</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set map ruler and grid</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXMapWidget</name>
    <message>
        <source>No license</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXMessageBar</name>
    <message>
        <source>Remaining messages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n more</source>
        <comment>unread messages</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HXObjects::HODataSource</name>
    <message>
        <source>cannot open &apos;%1&apos;: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has no layer named &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HODigitizeTool</name>
    <message>
        <source>Add polygon</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add line</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOElementEditCommand</name>
    <message>
        <source>%1 1 element</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOElementEditor</name>
    <message>
        <source>Nothing to paste: the clipboard holds no elements and no WKT geometry</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOElementFile</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOFeatureEditor</name>
    <message>
        <source>Choose a feature layer to edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Delete %n feature(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HXObjects::HOFeatureLayer</name>
    <message>
        <source>the layer cannot be edited: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOFeatureLayerLoader</name>
    <message>
        <source>it holds no vector layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is larger than the memory budget and is drawn from its source</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOFeatureMerge</name>
    <message>
        <source>Features of different geometry types cannot be merged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The merged geometry is not valid; nothing was merged</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOFeatureWriter</name>
    <message>
        <source>the table has no primary key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is read over the network or from an archive</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the %1 format cannot be edited</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;%1&apos; is read-only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the folder &apos;%1&apos; is read-only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot open &apos;%1&apos; for writing: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot delete feature %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write the feature: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>feature %1 no longer exists</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>feature %1 was changed by someone else since it was read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the geometry is not valid (it crosses itself or has too few points)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the layer has no field &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOFileCheck</name>
    <message>
        <source>a loop of symbolic links</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>permission denied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a symbolic link to a missing file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no such file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its companion &apos;%1&apos; is not a regular file</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOGdalOpener</name>
    <message>
        <source>not a recognised vector or raster format</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its blocks of %1 x %2 pixels are too large to read</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOLayoutDocument</name>
    <message>
        <source>an element of type &apos;%1&apos; has no valid bounds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Missing data:
%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown element type &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot read the image &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a layout document (%1 at byte %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a layout document</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>layout document version %1 is not supported (this program reads version %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot open &apos;%1&apos;: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOPageExporter</name>
    <message>
        <source>cannot write &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a resolution of %1 dpi is outside 1 to %2 dpi</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a %1 x %2 pixel image is too large; choose a lower resolution</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not enough memory for a %1 x %2 pixel image</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HORasterInfo</name>
    <message>
        <source>its georeferencing is not a finite number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its pixel size is zero</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its georeferencing puts it beyond any coordinate system</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HORasterLayerLoader</name>
    <message>
        <source>it holds no raster band</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its pixels cannot be read: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOShapefileWriter</name>
    <message>
        <source>cannot write beside &apos;%1&apos;: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write beside &apos;%1&apos; (is the disk full?)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write &apos;%1&apos; to disk</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolAddControlPoint</name>
    <message>
        <source>Add control point %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel control point %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolAddFeature</name>
    <message>
        <source>Add feature</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolDoubleLine</name>
    <message>
        <source>Add double line</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolEditVertex</name>
    <message>
        <source>Feature %1 no longer exists</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit vertices</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolMeasureArea</name>
    <message>
        <source>Area: %1, perimeter: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolMeasureDistance</name>
    <message>
        <source>Length: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolMergeFeature</name>
    <message>
        <source>Select two or more features of one layer to merge them</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Feature %1 no longer exists</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Feature %1 is not among the selected features</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Merge %1 features</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolSingleSelect</name>
    <message>
        <source>Move vertex</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXObjects::HOTransactionWriter</name>
    <message>
        <source>the layer &apos;%1&apos; is gone from the source</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot start a transaction: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot commit the edit: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXStatusBarCoordinatesWidget</name>
    <message>
        <source>m</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Feet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Degree</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nautical mile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kilometer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current map display unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current map coordinate system (longitude, latitude or east, north)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the map coordinates at the current cursor position. The display is continuously updated as the mouse is moved. It also allows editing to set the canvas center to a given position. The format is longitude,latitude or east,north</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toggle extents and mouse position display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map coordinates for the current view extents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map coordinates at mouse cursor position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pixel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXStatusBarScaleWidget</name>
    <message>
        <source>Scale</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current map scale</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Displays the current map scale</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current map scale (x:y)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXStyleLibrary</name>
    <message>
        <source>cannot open &apos;%1&apos;: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;: no list of symbols</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HXStylePickerDialog</name>
    <message>
        <source>Circle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Square</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Triangle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Diamond</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cross</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Star</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Solid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dashed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dotted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dash-dot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No fill</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Horizontal hatch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vertical hatch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cross hatch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Diagonal hatch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverse diagonal hatch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Diagonal cross hatch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> px</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select marker symbol</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select line symbol</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select fill symbol</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Properties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shape:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dash:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fill:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Width:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Casing color:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outline color:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Casing width:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outline width:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Color:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opacity:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preview:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HxInputDMSDialog</name>
    <message>
        <source>Enter Coordinate DMS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Degree&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Minute&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Second&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Longitude:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Latidude:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HxInputDataDialog</name>
    <message>
        <source>Enter Coordinates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;X:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Y:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HxRulerAndGridSettingsDialog</name>
    <message>
        <source>Map ruler and grid settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>KM grid ruler</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Draw ruler</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ruler tick mark width:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pixel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ruler tick mark color:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ruler label font height:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ruler label font width:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ruler label font color:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>KM grid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Draw grid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grid line width:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grid line color:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>X start position:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Y start position:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Manually set grid spacing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>X distances:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Y distances:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The type of grid spacing is automatically calculated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Calculate the spacing according to the scale</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Calculate the spacing according to the scale unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Longitude and latitude grid ruler</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Longitude and latitude grid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Longitude start position:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>°</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Latitude start position:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Longitude distances:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Latitude distances:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Specify map scale</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map scale:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>If the current map scale is greater than or equal to the specified scale, the latitude and longitude grid is automatically converted to the kilometer grid.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
